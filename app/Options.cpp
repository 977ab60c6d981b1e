#include "app/Options.h"

#include "base/Numbers.h"
#include "base/Paths.h"
#include "settings/RegistryMove.h"
#include "workspace/Dialogs.h"
#include "workspace/Globals.h"
#include "workspace/Margins.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::string_view kPositions = "Form Position";

void ForgetPositions(SettingsStore& store) {
    for (const std::string_view key : kResetPositions)
        DeleteSetting(store, kPositions, key);
    for (const auto& [key, value] : store.Object.GetSettingAll(kPositions))
        DeleteSetting(store, kPositions, key);
}

/// The file's header carries the margins.
void ResetMargins(MainModule& main) {
    TakePageBack(main);
    const UndoStep step(main.history, main.State(), "Reset");
    const auto active = [&] {
        return ReadAccepted(main.settings, kMarginLeft) + "," + ReadAccepted(main.settings, kMarginTop);
    };
    const std::string before = active();
    ApplyDefaultMargins(main.settings, main.document.setup.OptType, main.document.setup.LayoutName);
    if (active() != before && !main.document.DocFileName.empty())
        main.document.DocChanged = true;
}

bool IsFresh(const TabDocument& document) {
    const auto isEmpty = [&](const FieldTexts& texts) {
        for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
            if (!texts(tab).empty())
                return false;
        return true;
    };
    return document.DocFileName.empty() && !document.DocChanged && isEmpty(document.FieldA) &&
           isEmpty(document.FieldB) && isEmpty(document.FieldC);
}

/// Takes over what was imported, as a start would.
void Adopt(MainModule& main) {
    main.settings.Own.clear();
    if (LoadGlobals(main) == LoadOutcome::NoPrinter)
        return;
    SetLayoutFromType(main.document.setup);
    SetFieldLimits(main.document.setup);
    ReplaceDocument(main, [&] { return LoadEmptyPage(main); });
}

void TakeOver(MainModule& main) {
    SettingsStore& store = main.settings;
    main.globals.AskBeforeDelete = ToFlag(ReadAccepted(store, kAskBeforeDelete));
    main.globals.StartWithSetup = ToFlag(ReadAccepted(store, kStartWithSetup));
    TakePageBack(main);
    if (IsFresh(main.document))
        Adopt(main);
}

} // namespace

const std::array<std::string_view, 24> kResetPositions = {
    "about",     "PrtWiz1",   "PrtWiz2",   "PrtWiz3",    "PrtWiz",    "PrtWiz5",        "autowiz1",    "autowiz2",
    "autowiz2a", "autowiz2b", "autowiz5a", "autowiz5b",  "autowiz6a", "Font Settings",  "SearchFile",  "SearchPath",
    "fix1",      "fix2",      "fix3",      "frmGrid2a4", "Options",   "Page Setup Wiz", "frmSettings", "mdiVelmora"};

void SaveOptions(MainModule& main, bool askBeforeDelete, bool startWithSetup) {
    main.globals.AskBeforeDelete = askBeforeDelete;
    main.globals.StartWithSetup = startWithSetup;
    SaveGlobals(main);
}

LoadOutcome ResetOptions(MainModule& main) {
    const SettingsBatch batch(main.settings);
    main.globals.AskBeforeDelete = true;
    main.globals.StartWithSetup = true;
    const LoadOutcome outcome = LoadGlobals(main);
    ResetMargins(main);
    ForgetPositions(main.settings);
    return outcome;
}

void ImportOldSettings(MainModule& main) {
    const auto file = main.ui.ChooseFile(
        {"OPEN", "Import old settings", main.settings.ProgramFolder, "Registry export (*.reg)|*.reg", "Velmora.reg"});
    if (!file)
        return;
    try {
        const int count = ImportRegistryExport(main.settings, *file);
        if (count > 0) {
            ForgetMissingPrinter(main.settings, main.printers);
            TakeOver(main);
        }
        Tell(main.ui, count == 0 ? "The file '" + PathText(*file) + "' holds no settings of " +
                                       main.settings.SettingsAppName + ". Nothing was changed."
                                 : "Settings imported: " + std::to_string(count) +
                                       ".\r\nAn open document keeps its own tab type, margins and fonts.");
    } catch (const Error& error) {
        Tell(main.ui, std::string(error.what()) + "\r\nNothing was changed.", Icon::Exclamation);
    }
}

} // namespace velmora
