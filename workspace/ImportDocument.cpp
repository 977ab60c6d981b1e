#include "workspace/ImportDocument.h"

#include "base/AtomicFile.h"
#include "workspace/Dialogs.h"
#include "workspace/ImportDialogs.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::size_t kPreviewRows = 20;
constexpr const char* kPlace = "Called form Function:OpenNewFile";
constexpr const char* kNotFinished = "Could not finish process";

/// Runs `work`; an error is shown with its cause first, then `announcement`.
template <typename Work> bool Attempted(MainModule& main, const char* announcement, Work work) {
    main.document.FileError = !Trapped(main, kPlace, work);
    if (main.document.FileError)
        Tell(main, announcement);
    return !main.document.FileError;
}

/// Without anybody to ask, only one sheet can be meant.
std::string SelectSheet(MainModule& main, const std::vector<std::string>& names) {
    if (main.dialogs)
        return main.dialogs->SelectSheet(names);
    return names.size() == 1 ? names.front() : "";
}

/// What the person makes of `choice`, which stands where nobody can be asked.
std::optional<ImportChoice> Choose(MainModule& main, const ImportRequest& request, const ImportChoice& choice) {
    return main.dialogs ? main.dialogs->ChooseImport(request, choice) : choice;
}

/// Rows without a header: no column that was chosen stays hidden for want of a field.
LoadOutcome LoadImported(MainModule& main, const Worksheet& sheet) {
    const int fields = std::max<int>(main.document.setup.NoOfFields, FieldsInUse(sheet));
    Write(main.settings, kNoOfFields, std::to_string(fields));
    return LoadDocument(main, sheet);
}

/// A sheet without a header, by the columns that the person chooses.
OpenOutcome ImportSheet(MainModule& main, Workbook& workbook, const std::string& sheet, const ReplaceWith& replace) {
    std::vector<std::vector<std::string>> rows;
    if (!Attempted(main, kNotFinished, [&] { rows = ReadFirstRows(workbook, sheet, kPreviewRows); }))
        return OpenOutcome::Failed;
    const auto choice = Choose(main, {sheet, {}, [&](const ImportChoice&) { return rows; }}, {});
    if (!choice)
        return OpenOutcome::Cancelled;
    return replace([&] { return LoadImported(main, ReadWorksheet(workbook, sheet, choice->cells)); });
}

/// A list that loses nothing when a tab file's reader takes it: that one also keeps blanks and blank lines.
bool ReadsAsTabFile(const ImportChoice& choice, const ImportChoice& guess, const std::string& text) {
    return choice.delimiter == ',' && choice.encoding == guess.encoding && choice.encoding != ListEncoding::Utf16 &&
           choice.cells == guess.cells && text.find('"') == std::string::npos;
}

Worksheet ReadList(const std::string& text, const ImportChoice& choice) {
    Worksheet sheet = WorksheetOf(ParseTextList(text, choice.delimiter), choice.cells);
    if (choice.encoding == ListEncoding::Windows1252)
        sheet.encoding = Encoding::Windows1252;
    return sheet;
}

} // namespace

bool AnnounceVersion(MainModule& main, const std::filesystem::path& path, const std::string& firstText) {
    const std::string file = "The file: [" + path.string() + "] is ";
    if (TestVersion8(firstText))
        return true;
    if (TestVersion7(firstText)) {
        Tell(main, file + "an Velmora version 7 file.\r\n\r\nVelmora will upgrade it to a version 8 file!");
        return true;
    }
    Tell(main, file + "not an Velmora version 7 or version 8 file.\r\n\r\nVelmora will attempt to import it!");
    return AnnouncesHeader(firstText);
}

OpenOutcome ImportWorkbook(MainModule& main, const std::filesystem::path& path, const ReplaceWith& replace) {
    if (!main.spreadsheets.CanRead(WorkbookFormatOf(path).value_or(WorkbookFormat::Xls))) {
        TellNoSpreadsheets(main);
        return OpenOutcome::Failed;
    }
    std::unique_ptr<Workbook> ExcelWorkbook;
    if (!Attempted(main, kNotFinished, [&] {
            const auto progress = main.ui.StartProgress("Opening Excel file.  Please standby...", 1);
            ExcelWorkbook = main.spreadsheets.Open(path);
        }))
        return OpenOutcome::Failed;
    const std::string SelectedSheet = SelectSheet(main, ExcelWorkbook->SheetNames());
    if (SelectedSheet.empty()) {
        Tell(main, "You have not selected a work sheet to import", Icon::Critical);
        return OpenOutcome::Cancelled;
    }
    std::string firstCell;
    if (!Attempted(main, "Could not finish the process",
                   [&] { firstCell = ReadFirstCell(*ExcelWorkbook, SelectedSheet); }))
        return OpenOutcome::Failed;
    if (!AnnounceVersion(main, path, firstCell))
        return ImportSheet(main, *ExcelWorkbook, SelectedSheet, replace);
    return replace([&] { return LoadDocument(main, ReadWorksheet(*ExcelWorkbook, SelectedSheet, {})); });
}

OpenOutcome ImportList(MainModule& main, const std::filesystem::path& path, const ReplaceWith& replace,
                       const std::function<OpenOutcome()>& openTabFile) {
    std::string bytes;
    if (!Attempted(main, kNotFinished, [&] { bytes = ReadFile(path); }))
        return OpenOutcome::Failed;
    const std::vector<ListEncoding> encodings = FittingEncodings(bytes);
    if (bytes.empty() || encodings.empty())
        return openTabFile();
    ImportChoice guess;
    guess.encoding = encodings.front();
    guess.delimiter = GuessDelimiter(DecodeList(bytes, guess.encoding));
    const auto preview = [&](const ImportChoice& choice) {
        return ParseTextList(DecodeList(bytes, choice.encoding), choice.delimiter, kPreviewRows);
    };
    const auto choice = Choose(main, {path.filename().string(), encodings, preview}, guess);
    if (!choice)
        return OpenOutcome::Cancelled;
    const std::string text = DecodeList(bytes, choice->encoding);
    if (ReadsAsTabFile(*choice, guess, text))
        return openTabFile();
    return replace([&] { return LoadImported(main, ReadList(text, *choice)); });
}

} // namespace velmora
