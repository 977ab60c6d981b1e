#include "workspace/ImportDocument.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "document/TabFileForm.h"
#include "workspace/Dialogs.h"
#include "workspace/ImportDialogs.h"
#include "workspace/LoadDocument.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::size_t kPreviewRows = 20;
constexpr const char* kAskPlace = "Called form Function:OpenNewFile";
constexpr const char* kNotFinished = "Could not finish process";

/// Runs `work`; an error is shown with its cause first, then `announcement`.
template <typename Work> bool Attempted(MainModule& main, const char* place, const char* announcement, Work work) {
    main.document.FileError = !Trapped(main.ui, place, work);
    if (main.document.FileError)
        Tell(main.ui, announcement);
    return !main.document.FileError;
}

/// Says what the file is unless it is of version 8. False for what has no header either.
bool AnnounceVersion(UserInterface& ui, const std::filesystem::path& path, const std::string& firstText) {
    const std::string file = "The file: [" + PathText(path) + "] is ";
    if (TestVersion8(firstText))
        return true;
    if (TestVersion7(firstText)) {
        Tell(ui, file + "an Velmora version 7 file.\r\n\r\nVelmora will upgrade it to a version 8 file!");
        return true;
    }
    Tell(ui, file + "not an Velmora version 7 or version 8 file.\r\n\r\nVelmora will attempt to import it!");
    return AnnouncesHeader(firstText);
}

/// What `read` gives to be loaded.
template <typename Read> Imported ReadToLoad(MainModule& main, Read read) {
    Imported imported = OpenOutcome::Failed;
    Attempted(main, kLoadPlace, kNotFinished, [&] { imported = read(); });
    return imported;
}

/// A sheet without a header, by the columns that the person chooses.
Imported ImportRows(MainModule& main, Workbook& workbook, const std::string& sheet) {
    std::vector<std::vector<std::string>> rows;
    if (!Attempted(main, kAskPlace, kNotFinished, [&] { rows = ReadFirstRows(workbook, sheet, kPreviewRows); }))
        return OpenOutcome::Failed;
    const auto choice = main.dialogs->ChooseImport({sheet, {}, [&](const ImportChoice&) { return rows; }}, {});
    if (!choice)
        return OpenOutcome::Cancelled;
    return ReadToLoad(main, [&] { return ReadWorksheet(workbook, sheet, choice->cells); });
}

Imported ImportSheet(MainModule& main, const std::filesystem::path& path, Workbook& workbook,
                     const std::string& sheet) {
    std::string firstCell;
    if (!Attempted(main, kAskPlace, "Could not finish the process",
                   [&] { firstCell = ReadFirstCell(workbook, sheet); }))
        return OpenOutcome::Failed;
    if (!AnnounceVersion(main.ui, path, firstCell))
        return ImportRows(main, workbook, sheet);
    return ReadToLoad(main, [&] { return ReadWorksheet(workbook, sheet, {}); });
}

/// A list that loses nothing when a tab file's reader takes it: that one also keeps blanks and blank lines.
bool ReadsAsTabFile(const ImportChoice& choice, const ImportChoice& guess, const std::string& text) {
    return choice.delimiter == ',' && choice.encoding == guess.encoding && choice.encoding != ListEncoding::Utf16 &&
           choice.cells == guess.cells && text.find('"') == std::string::npos;
}

Worksheet ReadList(const std::string& text, const ImportChoice& choice) {
    const std::string_view list = WithoutEndMarks(text);
    Worksheet sheet = WorksheetOf(list, choice.delimiter, choice.cells);
    const std::size_t rows = sheet.header ? ParseTextList(list, choice.delimiter, kHeaderLines).size() : kHeaderLines;
    if (rows < kHeaderLines)
        RaiseHeaderEnds(static_cast<int>(rows) + 1);
    if (choice.encoding == ListEncoding::Windows1252)
        sheet.encoding = Encoding::Windows1252;
    return sheet;
}

/// A file that is no workbook, and how it is read unless the person says otherwise.
struct FoundText {
    explicit FoundText(std::string content) : bytes(std::move(content)), encodings(FittingEncodings(bytes)) {
        if (!encodings.empty())
            guess.encoding = encodings.front();
        text = encodings.empty() ? Decode(bytes).text : DecodeList(bytes, guess.encoding);
        spreadsheet = encodings.empty() ? std::nullopt : SpreadsheetSeparator(text);
        guess.delimiter = spreadsheet ? *spreadsheet : GuessDelimiter(text);
    }

    std::string bytes;
    std::vector<ListEncoding> encodings; ///< none: no text
    ImportChoice guess;
    std::string text;
    std::optional<char> spreadsheet; ///< of a tab file that a spreadsheet saved
};

/// What tells the version: the first cell or the first line.
std::string FirstText(const FoundText& found) {
    if (found.spreadsheet)
        return std::string(Trim(ParseTextList(found.text, *found.spreadsheet, 1).at(0).at(0)));
    std::string_view line;
    LineReader(found.text).Next(line);
    return std::string(line);
}

/// A list without a header, as the person says.
Imported ImportList(MainModule& main, const std::filesystem::path& path, const FoundText& found) {
    const auto preview = [&](const ImportChoice& choice) {
        return ParseTextList(DecodeList(found.bytes, choice.encoding), choice.delimiter, kPreviewRows);
    };
    const auto choice = main.dialogs->ChooseImport({PathText(path.filename()), found.encodings, preview}, found.guess);
    if (!choice)
        return OpenOutcome::Cancelled;
    const std::string text = DecodeList(found.bytes, choice->encoding);
    if (ReadsAsTabFile(*choice, found.guess, text))
        return ReadToLoad(main, [&] { return ParseTabFile(found.bytes); });
    return ReadToLoad(main, [&] { return ReadList(text, *choice); });
}

} // namespace

Imported ReadOwnFile(MainModule& main, const std::filesystem::path& path) {
    return ReadToLoad(main, [&] { return ReadTabFile(path); });
}

Imported ImportWorkbook(MainModule& main, const std::filesystem::path& path) {
    if (!main.spreadsheets.CanRead(WorkbookFormatOf(path).value_or(WorkbookFormat::Xls))) {
        TellNoSpreadsheets(main.ui);
        return OpenOutcome::Failed;
    }
    std::unique_ptr<Workbook> ExcelWorkbook;
    if (!Attempted(main, kAskPlace, kNotFinished, [&] {
            const auto progress = main.ui.StartProgress("Opening Excel file.  Please standby...", 1);
            ExcelWorkbook = main.spreadsheets.Open(path);
        }))
        return OpenOutcome::Failed;
    const std::string SelectedSheet = main.dialogs->SelectSheet(ExcelWorkbook->SheetNames());
    if (SelectedSheet.empty()) {
        Tell(main.ui, "You have not selected a work sheet to import", Icon::Critical);
        return OpenOutcome::Cancelled;
    }
    return ImportSheet(main, path, *ExcelWorkbook, SelectedSheet);
}

Imported ImportText(MainModule& main, const std::filesystem::path& path) {
    bool large = false;
    if (!Attempted(main, kAskPlace, kNotFinished, [&] { large = IsLargeTabFile(path); }))
        return OpenOutcome::Failed;
    if (large)
        return ReadToLoad(main, [&] {
            TabFile file = ReadTabFile(path);
            AnnounceVersion(main.ui, path, std::string(file.FirstLine()));
            return file;
        });
    std::string bytes;
    try {
        bytes = ReadFile(path);
    } catch (const FileAccessError&) {
        Tell(main.ui, "Could not finish the process");
        return OpenOutcome::Failed;
    }
    const FoundText found(std::move(bytes));
    const bool header = AnnounceVersion(main.ui, path, FirstText(found));
    if (found.spreadsheet)
        return ReadToLoad(main, [&] { return ReadList(found.text, found.guess); });
    if (header || found.bytes.empty() || found.encodings.empty())
        return ReadToLoad(
            main, [&] { return ParseTabFile(found.guess.encoding == ListEncoding::Utf16 ? found.text : found.bytes); });
    return ImportList(main, path, found);
}

} // namespace velmora
