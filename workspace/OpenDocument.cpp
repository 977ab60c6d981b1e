#include "workspace/OpenDocument.h"

#include "base/AtomicFile.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "workspace/Dialogs.h"
#include "workspace/ImportDocument.h"
#include "workspace/Pages.h"
#include "workspace/RecentFiles.h"
#include "workspace/Recovery.h"
#include "workspace/SaveDocument.h"
#include "workspace/Transaction.h"
#include "workspace/Undo.h"

namespace velmora {
namespace {

constexpr const char* kLoadPlace = "Called form Sub:LoadData";

/// `Source` is a TabFile or a Worksheet.
template <typename Source> LoadOutcome Load(MainModule& main, const Source& source) {
    TabDocument& document = main.document;
    LoadData(source, main.settings);
    if (LoadGlobals(main) == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    SetLayoutFromType(document.setup);
    SetFieldLimits(document.setup);
    SetTabsPerPage(document.setup);
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

/// Where the tabs come from: the document's own format, or another program's file.
enum class Origin { TabFile, Foreign };

void TakeOver(MainModule& main, const std::filesystem::path& path, Origin origin) {
    main.document.DocFileName = path;
    main.document.Foreign = origin == Origin::Foreign;
    main.document.DocChanged = origin == Origin::Foreign; // the file does not hold what a save would write
    RememberFile(main.settings, path);
}

OpenOutcome LoadOrUndo(MainModule& main, const std::filesystem::path& path, Origin origin, const LoadProcedure& load) {
    Transaction transaction(main);
    const auto stamp = StampOf(path); // before the reading, so that a change during it is noticed
    try {
        if (load() == LoadOutcome::NoPrinter)
            return OpenOutcome::NoPrinter;
        main.document.Stamp = stamp;
        TakeOver(main, path, origin);
        transaction.Commit();
        if (main.history)
            main.history->Clear(main.document);
        return OpenOutcome::Opened;
    } catch (const OverflowError& error) {
        const std::int16_t tabsPerPage = main.document.setup.TabsPerPage;
        transaction.Undo();
        if (origin == Origin::Foreign)
            TellMostPages(main, tabsPerPage);
        else
            ReportError(main, error.what(), kLoadPlace);
    } catch (const std::exception& error) {
        transaction.Undo();
        ReportError(main, error.what(), kLoadPlace);
    }
    return OpenOutcome::Failed;
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

OpenOutcome ReplaceDocument(MainModule& main, const std::filesystem::path& path, Origin origin,
                            const LoadProcedure& load) {
    main.document.FileError = false;
    if (!FileExists(path)) {
        main.document.FileError = true;
        Tell(main, "Could not load the following file [" + path.string() + "]", Icon::Critical);
        return OpenOutcome::Failed;
    }
    // An error gives back the document as it was, with what was typed last.
    SaveLabel(main, main.document.CurrentPage, main.document.setup.TabsPerPage);
    const auto archived = ArchiveDocument(main);
    if (main.editor)
        main.editor->TakeDown();
    const OpenOutcome outcome = LoadOrUndo(main, path, origin, load);
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

OpenOutcome Open(MainModule& main, const std::filesystem::path& path, Origin origin, const LoadProcedure& load) {
    OpenOutcome outcome = OpenOutcome::Failed;
    Trapped(main, "Called form Sub:OpenFile", [&] { outcome = ReplaceDocument(main, path, origin, load); });
    return outcome;
}

/// A file that exists.
OpenOutcome OpenText(MainModule& main, const std::filesystem::path& path, const ReplaceWith& replace) {
    std::string firstLine;
    try {
        firstLine = ReadFirstLine(path);
    } catch (const FileAccessError&) {
        Tell(main, "Could not finish the process");
        return OpenOutcome::Failed;
    }
    const auto openTabFile = [&] { return OpenFile(main, path); };
    return AnnounceVersion(main, path, firstLine) ? openTabFile() : ImportList(main, path, replace, openTabFile);
}

OpenOutcome AskAndOpen(MainModule& main, OpenKind kind) {
    constexpr int kWorkbooks = 1;
    if (!MayReplaceDocument(main))
        return OpenOutcome::Cancelled;
    FileRequest request{"OPEN", kind == OpenKind::Import ? "Import" : "Open", main.globals.TabsPath,
                        "Velmora/csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls", "Tabs.csv"};
    request.moreFilters = "Workbook (*.xlsx)|*.xlsx|OpenDocument (*.ods)|*.ods|Text list (*.txt)|*.txt";
    request.chosenFilter = kind == OpenKind::Import ? kWorkbooks : 0;
    const auto path = main.ui.ChooseFile(request);
    if (!path)
        return OpenOutcome::Cancelled;
    if (!FileExists(*path)) {
        Tell(main, "You have to select a valid file!");
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
    return Open(main, path, Origin::TabFile, [&] { return LoadDocument(main, ReadTabFile(path)); });
}

OpenOutcome OpenPath(MainModule& main, const std::filesystem::path& path) {
    const auto replace = [&](const LoadProcedure& load) { return Open(main, path, Origin::Foreign, load); };
    if (!FileExists(path))
        return OpenFile(main, path);
    return WorkbookFormatOf(path) ? ImportWorkbook(main, path, replace) : OpenText(main, path, replace);
}

OpenOutcome OpenInstead(MainModule& main, const std::filesystem::path& path) {
    return MayReplaceDocument(main) ? OpenPath(main, path) : OpenOutcome::Cancelled;
}

OpenOutcome OpenNewFile(MainModule& main, OpenKind kind) {
    OpenOutcome outcome = OpenOutcome::Failed;
    Trapped(main, "Called form Function:OpenNewFile", [&] { outcome = AskAndOpen(main, kind); });
    return outcome;
}

} // namespace velmora
