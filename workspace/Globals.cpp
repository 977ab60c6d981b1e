#include "workspace/Globals.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "settings/RegistryMove.h"
#include "workspace/Dialogs.h"

#include <algorithm>

namespace velmora {
namespace {

/// Settings of an older installation are read only while there is no INI file yet.
void ChooseStore(MainModule& main) {
    SettingsStore& store = main.settings;
    const bool first = !store.IniFile.empty() && !FileExists(store.IniFile);
    const MoveResult moved = first ? MoveRegistrySettings(store) : MoveResult::NothingThere;
    if (moved != MoveResult::NothingThere)
        ForgetMissingPrinter(main.settings, main.printers);
    if (moved == MoveResult::PartlyFailed)
        Tell(main.ui,
             "Not all settings of the older installation could be moved from [" + store.Keys.Place() +
                 "]: it is damaged, or can't be changed. The program goes on with settings of its own. When the cause "
                 "is mended, the others can be had with Tools > Options ... > Import old settings.",
             Icon::Exclamation);
    store.SaveMode = 1;
}

LoadOutcome LoadPrinter(MainModule& main) {
    SettingsStore& store = main.settings;
    main.globals.PrinterName = ReadAccepted(store, kPrinter);
    if (!Trim(main.globals.PrinterName).empty())
        return LoadOutcome::Loaded;
    const auto printer = main.printers.DefaultPrinter();
    if (!printer) {
        Tell(main.ui,
             "You must first install a default printer before you can use this application.\r\n"
             "The execution of this application will be aborted.",
             Icon::Critical);
        return LoadOutcome::NoPrinter;
    }
    main.globals.PrinterName = *printer;
    Write(store, kPrinter, *printer);
    Read(store, AskForPrinter(true)); // nobody chose this one
    return LoadOutcome::Loaded;
}

} // namespace

void ForgetMissingPrinter(SettingsStore& settings, const PrintSystem& printers) {
    CSetting& stored = settings.Object;
    stored.SaveMode(1);
    const auto name = stored.Probe(kPrinter.section, kPrinter.key);
    if (!name)
        return;
    try {
        const std::vector<std::string> installed = printers.Printers();
        if (std::find(installed.begin(), installed.end(), *name) == installed.end())
            stored.SaveSettingStr(kPrinter.section, kPrinter.key, "");
    } catch (const PrinterError&) {} // whether it is there cannot be known
}

LoadOutcome LoadGlobals(MainModule& main) {
    SettingsStore& store = main.settings;
    ChooseStore(main);
    const SettingsBatch batch(store);
    main.globals.AskBeforeDelete = ToFlag(ReadAccepted(store, kAskBeforeDelete));
    main.globals.StartWithSetup = ToFlag(ReadAccepted(store, kStartWithSetup));
    main.document.setup.StationeryType = ReadAccepted(store, kStationeryType);
    main.document.setup.PageSize = ReadAccepted(store, kPageSize);
    main.document.setup.OptType = ToInt16(ToDouble(ReadAccepted(store, kOptType)));
    const LoadOutcome outcome = LoadPrinter(main);
    // A fraction just below 4 passes the test and would round out of the range.
    main.document.setup.NoOfFields = std::min<std::int16_t>(3, ToInt16(ToDouble(ReadAccepted(store, kNoOfFields))));
    LoadFontSettings(store, main.fonts);
    return outcome;
}

void SaveGlobals(MainModule& main) {
    SettingsStore& store = main.settings;
    const SettingsBatch batch(store);
    Write(store, kAskBeforeDelete, FlagText(main.globals.AskBeforeDelete));
    Write(store, kStartWithSetup, FlagText(main.globals.StartWithSetup));
    Write(store, kPrinter, main.globals.PrinterName);
    Write(store, kStationeryType, main.document.setup.StationeryType);
    Write(store, kPageSize, main.document.setup.PageSize);
    Write(store, kOptType, std::to_string(main.document.setup.OptType));
    Write(store, kNoOfFields, std::to_string(main.document.setup.NoOfFields));
    Write(store, kNoOfPages, std::to_string(main.document.NoOfPages));
}

void ApplyTabType(MainModule& main) {
    NormalisePages(main.document);
    SaveGlobals(main);
}

} // namespace velmora
