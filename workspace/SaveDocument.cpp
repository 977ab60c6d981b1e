#include "workspace/SaveDocument.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "document/Worksheet.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Pages.h"
#include "workspace/RecentFiles.h"
#include "workspace/RecoveryStore.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kTextsNamed = 10;
constexpr std::size_t kCharactersNamed = 30;

bool HoldsComma(const TabDocument& document, int tab) {
    for (int field = 0; field < kFieldsPerTab; ++field)
        if (document.Field(field)(tab).find(',') != std::string::npos)
            return true;
    return false;
}

/// The texts of a tab that a reader of its line drops.
std::string LostTexts(const TabDocument& document, int tab) {
    const std::string line = document.FieldA(tab) + "," + document.FieldB(tab) + "," + document.FieldC(tab);
    std::string lost;
    const std::vector<std::string_view> fields = Split(line, ',');
    for (std::size_t i = kFieldsPerTab; i < fields.size(); ++i)
        lost += (i == kFieldsPerTab ? "" : ",") + std::string(fields[i]);
    return lost.find_first_not_of(", ") == std::string::npos ? "" : lost;
}

/// "[x] of tab 2, [y] of tab 7 and 3 more"; empty when no text is lost.
std::string ListLostTexts(const TabDocument& document, const std::vector<std::int32_t>& tabs) {
    std::string list;
    std::size_t count = 0;
    for (const std::int32_t tab : tabs)
        if (const std::string lost = LostTexts(document, tab); !lost.empty() && ++count <= kTextsNamed)
            list += (count == 1 ? "[" : ", [") + std::string(LeftCharacters(lost, kCharactersNamed)) + "] of tab " +
                    std::to_string(tab);
    return count <= kTextsNamed ? list : list + " and " + std::to_string(count - kTextsNamed) + " more";
}

/// What is to be said about commas; empty where no tab holds one.
std::string CommaFindings(const TabDocument& document) {
    std::vector<std::int32_t> tabs;
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        if (HoldsComma(document, tab))
            tabs.push_back(tab);
    if (tabs.empty())
        return "";
    const std::string lost = ListLostTexts(document, tabs);
    return "These tabs hold commas: " + NumberList(tabs) +
           ".\r\nA comma separates the fields in the file. When it is opened again, the text after a comma moves into "
           "the next field." +
           (lost.empty() ? "" : "\r\nWhat moves beyond the third field is lost: " + lost + ".");
}

/// Yes: semicolons are to be written; No: what is there; Cancel: nothing.
Answer AskAboutCommas(MainModule& main) {
    const std::string found = CommaFindings(main.document);
    return found.empty()
               ? Answer::No
               : Ask(main.ui,
                     found + "\r\n\r\nDo you want to write semicolons in their place?\r\nNo writes the commas "
                             "as they are, Cancel goes back to the document.",
                     Buttons::YesNoCancel);
}

void ReplaceCommas(TabDocument& document) {
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        for (int field = 0; field < kFieldsPerTab; ++field)
            std::replace(document.Field(field)(tab).begin(), document.Field(field)(tab).end(), ',', ';');
}

/// The rows of the export, with its progress.
void WriteWorkbook(MainModule& main, const fs::path& path, WorkbookFormat format) {
    const auto progress =
        main.ui.StartProgress("Exporting file.  Please standby...", std::max(1, main.document.TabCount));
    const auto rows = [&, next = TabRows(main.document), done = 0](std::vector<std::string>& texts) mutable {
        progress->Advance(++done);
        return next(texts);
    };
    AtomicFile file(path);
    main.spreadsheets.Write(format, "Tabs", rows, [&](std::string_view bytes) { file.Write(bytes); });
    file.Commit();
}

/// nullopt when written; the system's refusal otherwise. A workbook has no header.
std::optional<FileAccessError> TryWrite(MainModule& main, const fs::path& path, FileHeader header) {
    try {
        if (const auto format = WorkbookFormatOf(path))
            WriteWorkbook(main, path, *format);
        else
            ReplaceFile(path, TabFileBytes(main.document, main.settings, main.ui, header));
        return std::nullopt;
    } catch (const FileAccessError& error) {
        return error;
    }
}

bool WantsRetry(UserInterface& ui, const fs::path& path, const FileAccessError& error) {
    return ui.Show({"The application encountered the following error when it attempted to save the following "
                    "file: [" +
                        PathText(path) + "]\r\nError Nommer:" + std::to_string(error.Number()) +
                        "\r\nError Description:" + error.Cause(),
                    kProgramName, Icon::Critical, Buttons::RetryCancel}) == Answer::Retry;
}

/// False when the person gave up.
bool WriteWithRetries(MainModule& main, const fs::path& path, FileHeader header) {
    for (;;) {
        const auto error = TryWrite(main, path, header);
        if (error && !WantsRetry(main.ui, path, *error)) {
            Tell(main.ui, "File was NOT saved succesfully!");
            return false;
        }
        if (error)
            continue;
        if (FileExists(path))
            return true;
        if (Ask(main.ui, "The file was not saved.  Do you want to retry?", Buttons::YesNo) != Answer::Yes)
            return false;
    }
}

void RememberFolder(MainModule& main, const fs::path& path) {
    main.globals.TabsPath = WithSeparator(path.parent_path());
    if (FitsSetting(main.globals.TabsPath))
        SaveFolder(main.settings, "Lables", main.globals.TabsPath);
}

/// False for a file that the system does not let us replace, which is said.
bool CanReplace(UserInterface& ui, const fs::path& path) {
    if (!FileExists(path))
        return true;
    try {
        AtomicFile probe(path);
        return true;
    } catch (const FileAccessError&) {
        Tell(ui,
             "You can not overwrite the following file [" + PathText(path) +
                 "]\r\nThe file may be open or you may not have permission to overwrite it.  Please select a new "
                 "file name.",
             Icon::Critical);
        return false;
    }
}

/// "Saved: a.csv"; of a file of texts alone, what it does not hold.
std::string DoneText(const char* done, const fs::path& path, bool textsAlone) {
    return std::string(done) + (textsAlone ? " (no tab type, no fonts): " : ": ") + PathText(path);
}

/// What is replaced in the copy stays in the document.
SaveOutcome ExportTo(MainModule& main, const fs::path& path, bool replaceCommas) {
    TabDocument& document = main.document;
    if (!replaceCommas) {
        SaveFile(main, path, FileHeader::LeftOut);
    } else {
        const std::array texts = {document.FieldA, document.FieldB, document.FieldC};
        ReplaceCommas(document);
        SaveFile(main, path, FileHeader::LeftOut);
        for (int field = 0; field < kFieldsPerTab; ++field)
            document.Field(field) = texts[static_cast<std::size_t>(field)];
    }
    if (document.FileError)
        return SaveOutcome::Failed;
    main.status->Tell({DoneText("Written", path, true), false, path});
    return SaveOutcome::Saved;
}

SaveOutcome SaveUnder(MainModule& main, const fs::path& path, SaveKind kind) {
    const Answer commas = WorkbookFormatOf(path) ? Answer::No : AskAboutCommas(main);
    if (commas == Answer::Cancel)
        return SaveOutcome::Cancelled;
    if (kind == SaveKind::Export)
        return ExportTo(main, path, commas == Answer::Yes);
    if (commas == Answer::Yes) {
        const UndoStep step(main.history, main.State(), "Replace Commas");
        ReplaceCommas(main.document);
        ShowChangedPages(main);
    }
    SaveFile(main, path);
    if (main.document.FileError)
        return SaveOutcome::Failed;
    main.document.DocFileName = path;
    main.document.Stamp = StampOf(path);
    RememberFile(main.settings, path);
    main.document.DocChanged = false;
    main.document.Foreign = false;
    main.history.MarkSaved();
    main.recovery.Drop();
    main.status->Tell({DoneText("Saved", path, WorkbookFormatOf(path).has_value())});
    return SaveOutcome::Saved;
}

bool CanWrite(SpreadsheetApplication& spreadsheets, const fs::path& path) {
    const auto format = WorkbookFormatOf(path);
    return !format || spreadsheets.CanWrite(*format);
}

FileRequest RequestFor(MainModule& main, SaveKind kind) {
    const bool workbook = EndsWithNoCase(PathText(main.document.DocFileName), ".XLS");
    const std::string excel = "Excel file (*.xls)|*.xls";
    FileRequest request{"SAVE", kind == SaveKind::Export ? "Export" : "Save as", main.globals.TabsPath,
                        workbook ? "csv-file (*.csv)|*.csv|" + excel : "Velmora file(*.csv)|*.csv", "Tabs.csv"};
    request.moreFilters = (workbook ? "" : excel + "|") + "Workbook (*.xlsx)|*.xlsx";
    const std::string own = StemText(main.document.DocFileName);
    const bool besideForeign = kind == SaveKind::Save && main.document.Foreign && !own.empty();
    if (besideForeign)
        request.folder = main.document.DocFileName.parent_path();
    if (besideForeign || (kind == SaveKind::Export && !own.empty())) {
        const bool isItself = IsSameFile(request.folder / PathOf(own + ".csv"), main.document.DocFileName);
        request.defaultName = own + (!isItself ? ".csv" : besideForeign ? " tabs.csv" : " copy.csv");
    }
    return request;
}

/// The path to write, asked for until there is one that may be written; nullopt when the person cancels.
std::optional<fs::path> AskForPath(MainModule& main, SaveKind kind) {
    for (;;) {
        auto path = main.ui.ChooseFile(RequestFor(main, kind));
        if (path && !CanWrite(main.spreadsheets, *path))
            Tell(main.ui,
                 "Workbooks of this format can not be written.  Please select a file name that ends in .csv, .xls or "
                 ".xlsx.");
        else if (path && kind == SaveKind::Export && IsSameFile(*path, main.document.DocFileName))
            Tell(main.ui, "An export is a copy without the document's settings.  Please select another file name.");
        else if (!path || (MayOverwrite(main.ui, *path) && CanReplace(main.ui, *path)))
            return path;
    }
}

SaveOutcome AskAndSave(MainModule& main, SaveKind kind) {
    const auto path = AskForPath(main, kind);
    if (!path)
        return SaveOutcome::Cancelled;
    const bool exists = FileExists(*path);
    const SaveOutcome outcome = SaveUnder(main, *path, kind);
    if (outcome == SaveOutcome::Saved && exists) // kept: a new file is saved without a word
        Tell(main.ui, "File saved successfully");
    if (outcome == SaveOutcome::Saved)
        RememberFolder(main, *path);
    return outcome;
}

/// What may be lost of a file whose reading is not known any more.
std::string UsualFindings(const fs::path& path) {
    return WorkbookFormatOf(path)
               ? "Other worksheets, columns that are no fields, formulas and formats would be lost."
               : "Columns behind the third, quotation marks and what a later version wrote would be lost.";
}

/// The question about another program's file, before its first save.
bool MayReplaceForeignFile(UserInterface& ui, const TabDocument& document) {
    const fs::path& path = document.DocFileName;
    return !FileExists(path) ||
           Ask(ui,
               "The following file is another program's, and a save does not keep all that it may hold.\r\n[" +
                   PathText(path) + "]\r\n" +
                   (document.ForeignFindings.empty() ? UsualFindings(path) : document.ForeignFindings) +
                   "\r\nDo you want to overwrite it?\r\nNo saves the document as a new file.",
               Buttons::YesNo, Answer::No) == Answer::Yes;
}

/// Asks where another program changed the file since it was read.
bool MayReplaceChangedFile(MainModule& main) {
    const TabDocument& document = main.document;
    const auto now = StampOf(document.DocFileName);
    return !now || !document.Stamp || now == document.Stamp ||
           Ask(main.ui,
               "Another program has changed the following file since it was opened.\r\n[" +
                   PathText(document.DocFileName) + "]\r\nDo you want to overwrite it?",
               Buttons::YesNo, Answer::No) == Answer::Yes;
}

SaveOutcome Save(MainModule& main, SaveKind kind) {
    const TabDocument& document = main.document;
    const bool named = !document.DocFileName.empty() && CanWrite(main.spreadsheets, document.DocFileName);
    if (kind != SaveKind::Save || !named || (document.Foreign && !MayReplaceForeignFile(main.ui, document)))
        return AskAndSave(main, kind);
    if (!MayReplaceChangedFile(main))
        return SaveOutcome::Cancelled;
    const SaveOutcome outcome = SaveUnder(main, document.DocFileName, kind);
    if (outcome == SaveOutcome::Saved)
        Tell(main.ui, "File saved successfully");
    return outcome;
}

} // namespace

void WarnOfCommas(MainModule& main) {
    if (const std::string found = CommaFindings(main.document); !found.empty())
        Tell(main.ui, found);
}

void SaveFile(MainModule& main, const fs::path& path, FileHeader header) {
    const Encoding encoding = main.document.FileEncoding;
    main.document.FileError = true;
    Trapped(main.ui, "Called form Sub:SaveFile",
            [&] { main.document.FileError = !WriteWithRetries(main, path, header); });
    if (main.document.FileError || header == FileHeader::LeftOut)
        main.document.FileEncoding = encoding; // the document's own file is as it was
    if (main.document.FileError)
        Tell(main.ui, "Could not finish process");
}

SaveOutcome SaveLabels(MainModule& main, SaveKind kind) {
    if (kind == SaveKind::Export && main.document.setup.TabsPerPage == 0)
        return SaveOutcome::Cancelled; // there are no pages yet
    SaveOutcome outcome = SaveOutcome::Failed;
    Trapped(main.ui, "Called form Sub:SaveLabels", [&] {
        TakePageBack(main);
        outcome = Save(main, kind);
        ShowCaption(main);
    });
    return outcome;
}

} // namespace velmora
