#include "workspace/ImportDocument.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "document/ListHeading.h"
#include "document/SheetTable.h"
#include "document/TabFileForm.h"
#include "workspace/Dialogs.h"
#include "workspace/ImportDialogs.h"
#include "workspace/ImportMemory.h"
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

/// Thrown where the person has pressed Cancel; no std::exception, which would be reported as a failure.
struct ReadingCancelled {};

/// A workbook whose reading shows progress and can be cancelled: one made to take hours must not take the window.
class CancellableWorkbook {
public:
    /// Opens it; raises what that raises, and ReadingCancelled.
    CancellableWorkbook(MainModule& main, const std::filesystem::path& path) : main_(main) {
        Show([&] { workbook_ = main.spreadsheets.Open(path, [this] { Watch(); }); });
    }
    CancellableWorkbook(const CancellableWorkbook&) = delete;
    CancellableWorkbook& operator=(const CancellableWorkbook&) = delete;

    const std::vector<std::string>& SheetNames() const { return workbook_->SheetNames(); }
    SheetTable Read(const std::string& sheet) {
        std::optional<SheetTable> table;
        Show([&] { table.emplace(*workbook_, sheet, [this] { Watch(); }); });
        return *std::move(table);
    }
    /// What the person chose of the sheet, and the names of the others.
    Worksheet Take(const SheetTable& table, const std::string& sheet, const WorksheetOptions& options) {
        Worksheet taken;
        Show([&] { taken = table.Take(options); });
        for (const std::string& name : SheetNames())
            if (name != sheet)
                taken.leftOut.sheets.push_back(name);
        return taken;
    }

private:
    template <typename Work> void Show(Work work) {
        const auto progress = main_.ui.StartCancellable("Opening Excel file.  Please standby...", 0);
        progress_ = progress.get();
        work();
    }
    /// Within `Show` alone.
    void Watch() const {
        progress_->Advance(0);
        if (progress_->Cancelled())
            throw ReadingCancelled();
    }

    MainModule& main_;
    Progress* progress_ = nullptr;
    std::unique_ptr<Workbook> workbook_;
};

/// What the person says of rows without a header, beginning with what was said of the last ones with these headings,
/// else with a guess; nullopt when cancelled.
std::optional<ImportChoice> ChooseColumns(MainModule& main, const ImportRequest& request, ImportChoice guess) {
    if (const auto rows = request.preview(guess); !rows.empty())
        guess.cells =
            RecallColumns(main.settings, rows.front()).value_or(WorksheetOptions{.heading = LooksLikeHeading(rows)});
    auto choice = main.dialogs->ChooseImport(request, guess);
    if (!choice || choice->cells == guess.cells)
        return choice;
    if (const auto rows = request.preview(*choice); !rows.empty())
        RememberColumns(main.settings, rows.front(), choice->cells);
    return choice;
}

std::optional<ImportChoice> ChooseColumns(MainModule& main, const std::string& sheet, const SheetTable& table) {
    ImportRequest request{
        sheet, {}, [&](const ImportChoice& choice) { return table.FirstRows(kPreviewRows, choice.cells.visibleOnly); }};
    request.hiddenRows = table.HiddenRows();
    return ChooseColumns(main, request, {});
}

/// False when the person would rather have the workbook saved with its results first.
bool MayTakeUnresolved(UserInterface& ui, const Imported& imported) {
    const auto* sheet = std::get_if<Worksheet>(&imported);
    const std::string found = sheet ? UnresolvedFindings(*sheet) : "";
    return found.empty() || Ask(ui, found + "\r\nDo you want to import the worksheet without them?", Buttons::YesNo,
                                Answer::No) == Answer::Yes;
}

Imported ImportSheet(MainModule& main, const std::filesystem::path& path, CancellableWorkbook& workbook,
                     const std::string& sheet) {
    std::optional<SheetTable> table;
    if (!Attempted(main, kAskPlace, "Could not finish the process", [&] { table.emplace(workbook.Read(sheet)); }))
        return OpenOutcome::Failed;
    const bool header = AnnounceVersion(main.ui, path, table->FirstCell());
    const auto choice = header ? ImportChoice() : ChooseColumns(main, sheet, *table);
    if (!choice)
        return OpenOutcome::Cancelled;
    Imported imported = ReadToLoad(main, [&] { return workbook.Take(*table, sheet, choice->cells); });
    return MayTakeUnresolved(main.ui, imported) ? std::move(imported) : OpenOutcome::Cancelled;
}

Imported ReadWorkbook(MainModule& main, const std::filesystem::path& path) {
    std::optional<CancellableWorkbook> ExcelWorkbook;
    if (!Attempted(main, kAskPlace, kNotFinished, [&] { ExcelWorkbook.emplace(main, path); }))
        return OpenOutcome::Failed;
    const std::string SelectedSheet = main.dialogs->SelectSheet(ExcelWorkbook->SheetNames());
    if (SelectedSheet.empty()) {
        Tell(main.ui, "You have not selected a work sheet to import", Icon::Critical);
        return OpenOutcome::Cancelled;
    }
    return ImportSheet(main, path, *ExcelWorkbook, SelectedSheet);
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
        decoded_ = guess.encoding;
    }

    /// Decoded anew where the person says so: a large list is held once.
    const std::string& TextIn(ListEncoding encoding) {
        if (encoding != decoded_)
            text = DecodeList(bytes, encoding);
        decoded_ = encoding;
        return text;
    }

    std::string bytes;
    std::vector<ListEncoding> encodings; ///< none: no text
    ImportChoice guess;
    std::string text;
    std::optional<char> spreadsheet; ///< of a tab file that a spreadsheet saved

private:
    ListEncoding decoded_ = ListEncoding::Utf8; ///< of the text
};

std::string FirstLineOf(std::string_view text) {
    std::string_view line;
    LineReader(text).Next(line);
    return std::string(line);
}

/// By its first lines: no list, and no tab file that a spreadsheet saved. Of such a file nothing needs a guess.
bool IsOwnTabFile(std::string_view bytes) {
    const std::string line = FirstLineOf(bytes);
    return (TestVersion7(line) || TestVersion8(line)) && !SpreadsheetSeparator(bytes);
}

/// What tells the version: the first cell or the first line.
std::string FirstText(const FoundText& found) {
    if (found.spreadsheet)
        return std::string(Trim(ParseTextList(found.text, *found.spreadsheet, 1).at(0).at(0)));
    return FirstLineOf(found.text);
}

/// A list without a header, as the person says.
Imported ImportList(MainModule& main, const std::filesystem::path& path, FoundText& found) {
    const auto preview = [&](const ImportChoice& choice) {
        return ParseTextList(found.TextIn(choice.encoding), choice.delimiter, kPreviewRows);
    };
    const auto choice = ChooseColumns(main, {PathText(path.filename()), found.encodings, preview}, found.guess);
    if (!choice)
        return OpenOutcome::Cancelled;
    const std::string& text = found.TextIn(choice->encoding);
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
    try {
        return ReadWorkbook(main, path);
    } catch (const ReadingCancelled&) {
        return OpenOutcome::Cancelled;
    }
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
    if (IsOwnTabFile(bytes)) {
        AnnounceVersion(main.ui, path, FirstLineOf(bytes));
        return ReadToLoad(main, [&] { return ParseTabFile(std::move(bytes)); });
    }
    FoundText found(std::move(bytes));
    const bool header = AnnounceVersion(main.ui, path, FirstText(found));
    if (found.spreadsheet)
        return ReadToLoad(main, [&] { return ReadList(found.text, found.guess); });
    if (header || found.bytes.empty() || found.encodings.empty())
        return ReadToLoad(
            main, [&] { return ParseTabFile(found.guess.encoding == ListEncoding::Utf16 ? found.text : found.bytes); });
    return ImportList(main, path, found);
}

} // namespace velmora
