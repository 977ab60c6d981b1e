#include "document/OpenDocument.h"

#include "app/settings/Validate.h"
#include "document/Transaction.h"

namespace velmora {
namespace {

OpenOutcome LoadOrUndo(MainModule& main, const std::filesystem::path& path) {
    Transaction transaction(main);
    try {
        if (LoadDocument(main, ReadTabFile(path)) == LoadOutcome::NoPrinter)
            return OpenOutcome::NoPrinter;
        main.document.DocFileName = path;
        main.document.DocChanged = false;
        transaction.Commit();
        return OpenOutcome::Opened;
    } catch (const std::exception& error) {
        transaction.Undo();
        ReportError(main, error.what(), "Called form Sub:LoadData");
        return OpenOutcome::Failed;
    }
}

} // namespace

LoadOutcome LoadDocument(MainModule& main, const TabFile& file) {
    TabDocument& document = main.document;
    LoadData(file, main.settings);
    if (LoadGlobals(main) == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    SetLayoutFromType(document);
    SetFieldLimits(document);
    SetTabsPerPage(document);
    {
        const auto progress = main.ui.StartProgress("Calculating the number of labels.  Please standby...", 1);
        document.TabCount =
            GetNumberOfLables(file, file.header ? -kHeaderLines : 0, document, main.settings);
    }
    document.CurrentPage = 1;
    document.CurrentTab = 0;
    if (document.TabCount > 0)
        LoadRows(file, document, main.ui);
    else
        main.ui.Show({"There are no information to import.", main.settings.SettingsAppName, Icon::Information});
    document.FileEncoding = file.encoding;
    ApplyTabType(main);
    return LoadOutcome::Loaded;
}

OpenOutcome OpenFile(MainModule& main, const std::filesystem::path& path) {
    main.document.FileError = false;
    if (!FileExists(path)) {
        main.document.FileError = true;
        main.ui.Show({"Could not load the following file [" + path.string() + "]", main.settings.SettingsAppName,
                      Icon::Critical});
        return OpenOutcome::Failed;
    }
    if (main.editor)
        main.editor->TakeDown();
    const OpenOutcome outcome = LoadOrUndo(main, path);
    if (outcome == OpenOutcome::Failed) {
        main.document.FileError = true;
        main.ui.Show({"Could not finish process", main.settings.SettingsAppName, Icon::Information});
    }
    RefreshDocumentStatus(main);
    ShowCaption(main);
    if (main.editor)
        main.editor->BringUp();
    return outcome;
}

} // namespace velmora
