#include "workspace/DocumentStatus.h"
#include "base/Paths.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>

namespace velmora {
namespace {

std::string TabTypeText(int optType) {
    const TabType* type = FindTabType(optType);
    return type ? std::string(Trim(Split(type->caption, '-')[1])) : std::string();
}

void LoadDocumentProperties(MainModule& main) {
    TabDocument& document = main.document;
    document.setup.StationeryType = ReadAccepted(main.settings, kStationeryType);
    document.setup.NoOfFields =
        std::min<std::int16_t>(3, ToInt16(ToDouble(ReadAccepted(main.settings, kNoOfFields.WithFallback("1")))));
    document.NoOfPages = ToInt16(ToDouble(ReadAccepted(main.settings, kNoOfPages)));
}

} // namespace

void ShowDocumentStatus(MainModule& main) {
    ShowDocumentStatus(main, main.document.setup);
}

void ShowDocumentStatus(MainModule& main, const DocumentSetup& setup) {
    main.status->SetPanel(1, "Stationery: " + setup.StationeryType);
    main.status->SetPanel(2, "Tab Type: " + TabTypeText(setup.OptType));
    main.status->SetPanel(3, "No of fields: " + std::to_string(setup.NoOfFields));
    const TabDocument& document = main.document;
    main.status->SetPanel(4, "Pg No: " + std::to_string(document.CurrentPage) + " of " +
                                 std::to_string(document.NoOfPages));
    main.status->SetPanel(5, "No of tabs: " + std::to_string(document.TabCount));
}

void RefreshDocumentStatus(MainModule& main) {
    main.document.setup.OptType = ToInt16(ToDouble(ReadAccepted(main.settings, kOptType)));
    if (main.document.setup.StationeryType.empty())
        LoadDocumentProperties(main);
    ShowDocumentStatus(main);
}

void ShowCurrentTab(MainModule& main) {
    if (main.document.CurrentTab == 0)
        return;
    main.status->SetPanel(5, "No of tabs: " + std::to_string(main.document.CurrentTab) + " of " +
                                 std::to_string(main.document.TabCount));
}

std::string DocumentCaption(const TabDocument& document) {
    return document.DocFileName.empty() ? "Untitled" : PathText(document.DocFileName);
}

void ShowCaption(MainModule& main) {
    main.status->SetCaption(main.settings.SettingsAppName + " [" + DocumentCaption(main.document) + "]");
}

} // namespace velmora
