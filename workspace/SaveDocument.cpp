#include "workspace/SaveDocument.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "document/Worksheet.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/RecentFiles.h"
#include "workspace/RecoveryStore.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kTabsNamed = 10;

bool HoldsComma(const TabDocument& document, int tab) {
    for (int field = 0; field < kFieldsPerTab; ++field)
        if (document.Field(field)(tab).find(',') != std::string::npos)
            return true;
    return false;
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

SaveOutcome SaveUnder(MainModule& main, const fs::path& path, SaveKind kind) {
    SaveFile(main, path, kind == SaveKind::Export ? FileHeader::LeftOut : FileHeader::Written);
    if (main.document.FileError)
        return SaveOutcome::Failed;
    if (kind == SaveKind::Export)
        return SaveOutcome::Saved;
    main.document.DocFileName = path;
    main.document.Stamp = StampOf(path);
    RememberFile(main.settings, path);
    main.document.DocChanged = false;
    main.document.Foreign = false;
    main.history.MarkSaved();
    main.recovery.Drop();
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
    if (kind != SaveKind::Save || !named || (document.Foreign && !MayOverwrite(main.ui, document.DocFileName)))
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
    std::size_t count = 0;
    std::string named;
    for (int tab = 1; tab <= main.document.TabCount; ++tab)
        if (HoldsComma(main.document, tab) && ++count <= kTabsNamed)
            named += (named.empty() ? "" : ", ") + std::to_string(tab);
    if (count == 0)
        return;
    if (count > kTabsNamed)
        named += " and " + std::to_string(count - kTabsNamed) + " more";
    Tell(main.ui, "These tabs hold commas: " + named +
                      ".\r\nA comma separates the fields in the file. When it is opened again, the text after a comma "
                      "moves into the next field.");
}

void SaveFile(MainModule& main, const fs::path& path, FileHeader header) {
    main.document.FileError = true;
    Trapped(main.ui, "Called form Sub:SaveFile", [&] {
        if (!WorkbookFormatOf(path))
            WarnOfCommas(main);
        main.document.FileError = !WriteWithRetries(main, path, header);
    });
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
