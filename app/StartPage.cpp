#include "app/StartPage.h"

#include "base/Numbers.h"
#include "setup/PageSetup.h"

namespace velmora {
namespace {

const SettingKey kStartPage = {"Settings", "Start Page", "True", IsFlag};

} // namespace

bool WantsStartPage(SettingsStore& store) {
    const auto chosen = Probe(store, kStartPage);
    return !chosen || !IsFlag(*chosen) || ToFlag(*chosen);
}

void KeepStartPage(SettingsStore& store, bool wanted) {
    if (wanted != WantsStartPage(store))
        Write(store, kStartPage, FlagText(wanted));
}

bool BeginDocument(MainModule& main, int type, int fields) {
    PageSetup setup(main);
    setup.ChooseType(type);
    setup.ChooseFields(fields);
    return setup.Ok();
}

void BeginWithFields(MainModule& main, int fields) {
    const bool untouched = !main.document.DocChanged;
    if (!BeginDocument(main, main.document.setup.OptType, fields) || !untouched)
        return;
    main.document.DocChanged = false;
    main.history.MarkSaved();
}

} // namespace velmora
