#include "document/OpenDocument.h"

#include "app/settings/Validate.h"
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "document/Dialogs.h"
#include "document/RecentFiles.h"
#include "document/Recovery.h"
#include "document/SaveDocument.h"
#include "document/Transaction.h"
#include "document/Undo.h"

namespace velmora {
namespace {

/// `Source` is a TabFile or a Worksheet.
template <typename Source> LoadOutcome Load(MainModule& main, const Source& source) {
    TabDocument& document = main.document;
    LoadData(source, main.settings);
    if (LoadGlobals(main) == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    SetLayoutFromType(document);
    SetFieldLimits(document);
    SetTabsPerPage(document);
    {
        const auto progress = main.ui.StartProgress("Calculating the number of labels.  Please standby...", 1);
        document.TabCount = GetNumberOfLables(source, source.header ? -kHeaderLines : 0, document, main.settings);
    }
    document.CurrentPage = 1;
    document.CurrentTab = 0;
    if (document.TabCount > 0)
        LoadRows(source, document, main.ui);
    else
        Tell(main, "There are no information to import.");
    document.FileEncoding = source.encoding;
    ApplyTabType(main);
    return LoadOutcome::Loaded;
}

OpenOutcome LoadOrUndo(MainModule& main, const std::filesystem::path& path) {
    Transaction transaction(main);
    const auto stamp = StampOf(path); // before the reading, so that a change during it is noticed
    try {
        if (LoadDocument(main, ReadTabFile(path)) == LoadOutcome::NoPrinter)
            return OpenOutcome::NoPrinter;
        main.document.DocFileName = path;
        main.document.Stamp = stamp;
        RememberFile(main.settings, path);
        main.document.DocChanged = false;
        transaction.Commit();
        if (main.history)
            main.history->Clear(main.document);
        return OpenOutcome::Opened;
    } catch (const std::exception& error) {
        transaction.Undo();
        ReportError(main, error.what(), "Called form Sub:LoadData");
        return OpenOutcome::Failed;
    }
}

/// False when the person wants to stay with the open document, or it could not be saved.
bool MayReplaceDocument(MainModule& main) {
    if (main.document.DocFileName.empty())
        return true;
    const Answer answer = AskToSave(main);
    if (answer == Answer::Yes)
        return SaveLabels(main, SaveKind::Save) == SaveOutcome::Saved;
    return answer == Answer::No;
}

/// Says what the file is unless it is of version 8. False when it cannot be read.
bool AnnounceVersion(MainModule& main, const std::filesystem::path& path) {
    std::string firstLine;
    try {
        firstLine = ReadFirstLine(path);
    } catch (const FileAccessError&) {
        Tell(main, "Could not finish the process");
        return false;
    }
    const std::string file = "The file: [" + path.string() + "] is ";
    if (TestVersion8(firstLine))
        return true;
    if (TestVersion7(firstLine))
        Tell(main, file + "an Velmora version 7 file.\r\n\r\nVelmora will upgrade it to a version 8 file!");
    else
        Tell(main, file + "not an Velmora version 7 or version 8 file.\r\n\r\nVelmora will attempt to import it!");
    return true;
}

OpenOutcome ReplaceDocument(MainModule& main, const std::filesystem::path& path) {
    main.document.FileError = false;
    if (!FileExists(path)) {
        main.document.FileError = true;
        Tell(main, "Could not load the following file [" + path.string() + "]", Icon::Critical);
        return OpenOutcome::Failed;
    }
    // An error gives back the document as it was, with what was typed last.
    SaveLabel(main, main.document.CurrentPage, main.document.TabsPerPage);
    const auto archived = ArchiveDocument(main);
    if (main.editor)
        main.editor->TakeDown();
    const OpenOutcome outcome = LoadOrUndo(main, path);
    if (archived && outcome != OpenOutcome::Opened) {
        KeepRecoveryCopy(main); // before its stand-in goes
        main.recovery->Forget(*archived);
    }
    if (outcome == OpenOutcome::Failed) {
        main.document.FileError = true;
        Tell(main, "Could not finish process");
    }
    RefreshDocumentStatus(main);
    ShowCaption(main);
    if (main.editor)
        main.editor->BringUp();
    return outcome;
}

OpenOutcome AskAndOpen(MainModule& main) {
    if (!MayReplaceDocument(main))
        return OpenOutcome::Cancelled;
    const auto path = main.ui.ChooseFile(
        {"OPEN", "Open", main.globals.TabsPath, "Velmora/csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls", "Tabs.csv"});
    if (!path)
        return OpenOutcome::Cancelled;
    if (!FileExists(*path)) {
        Tell(main, "You have to select a valid file!");
        return OpenOutcome::Failed;
    }
    if (EndsWithNoCase(path->string(), ".XLS")) {
        TellNoSpreadsheets(main);
        return OpenOutcome::Failed;
    }
    return OpenPath(main, *path);
}

} // namespace

LoadOutcome LoadDocument(MainModule& main, const TabFile& file) {
    return Load(main, file);
}

LoadOutcome LoadDocument(MainModule& main, const Worksheet& sheet) {
    return Load(main, sheet);
}

OpenOutcome OpenFile(MainModule& main, const std::filesystem::path& path) {
    OpenOutcome outcome = OpenOutcome::Failed;
    Trapped(main, "Called form Sub:OpenFile", [&] { outcome = ReplaceDocument(main, path); });
    return outcome;
}

OpenOutcome OpenPath(MainModule& main, const std::filesystem::path& path) {
    return !FileExists(path) || AnnounceVersion(main, path) ? OpenFile(main, path) : OpenOutcome::Failed;
}

OpenOutcome OpenInstead(MainModule& main, const std::filesystem::path& path) {
    return MayReplaceDocument(main) ? OpenPath(main, path) : OpenOutcome::Cancelled;
}

OpenOutcome OpenNewFile(MainModule& main) {
    OpenOutcome outcome = OpenOutcome::Failed;
    Trapped(main, "Called form Function:OpenNewFile", [&] { outcome = AskAndOpen(main); });
    return outcome;
}

} // namespace velmora
