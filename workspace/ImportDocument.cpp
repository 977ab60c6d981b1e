#include "workspace/ImportDocument.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
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

/// A list that loses nothing when a tab file's reader takes it: that one also keeps blanks and blank lines. It is a tab
/// file without a header then, neither changed nor foreign.
bool ReadsAsTabFile(const ImportChoice& choice, const ImportChoice& guess, const std::string& text) {
    return choice.delimiter == ',' && choice.encoding == guess.encoding && choice.encoding != ListEncoding::Utf16 &&
           choice.cells == guess.cells && text.find('"') == std::string::npos;
}

Worksheet ReadList(const std::string& text, const ImportChoice& choice) {
    Worksheet sheet = WorksheetOf(text, choice.delimiter, choice.cells);
    if (choice.encoding == ListEncoding::Windows1252)
        sheet.encoding = Encoding::Windows1252;
    return sheet;
}

} // namespace

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

Imported ImportList(MainModule& main, const std::filesystem::path& path) {
    std::string bytes;
    if (!Attempted(main, kAskPlace, kNotFinished, [&] {
            CheckListSize(path);
            bytes = ReadFile(path);
        }))
        return OpenOutcome::Failed;
    const std::vector<ListEncoding> encodings = FittingEncodings(bytes);
    if (bytes.empty() || encodings.empty())
        return ReadOwnFile(main, path);
    ImportChoice guess;
    guess.encoding = encodings.front();
    guess.delimiter = GuessDelimiter(DecodeList(bytes, guess.encoding));
    const auto preview = [&](const ImportChoice& choice) {
        return ParseTextList(DecodeList(bytes, choice.encoding), choice.delimiter, kPreviewRows);
    };
    const auto choice = main.dialogs->ChooseImport({PathText(path.filename()), encodings, preview}, guess);
    if (!choice)
        return OpenOutcome::Cancelled;
    const std::string text = DecodeList(bytes, choice->encoding);
    if (ReadsAsTabFile(*choice, guess, text))
        return ReadOwnFile(main, path);
    return ReadToLoad(main, [&] { return ReadList(text, *choice); });
}

} // namespace velmora
