#include "setup/Margins.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

struct LayoutMargins {
    std::string_view layout;
    std::string_view displayName;
    SettingKey left; ///< millimetres, like the top
    SettingKey top;
};

constexpr std::array<LayoutMargins, 4> kLayouts = {{
    {"A4_8",
     "A4 (8 rows)",
     {kMarginSection, "Default Left Margin - A4_8", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - A4_8", "0", IsNumeric}},
    {"A4_9",
     "A4 (9 rows)",
     {kMarginSection, "Default Left Margin - A4_9", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - A4_9", "0", IsNumeric}},
    {"DL_v",
     "DL_v",
     {kMarginSection, "Default Left Margin - DL_v", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - DL_v", "0", IsNumeric}},
    {"DL_h",
     "DL_h",
     {kMarginSection, "Default Left Margin - DL_h", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - DL_h", "0", IsNumeric}},
}};

/// nullptr for a combination that does not exist. The layout counts for the DL types only.
const LayoutMargins* FindLayout(int tabType, std::string_view layout) {
    if (!FindTabType(tabType))
        return nullptr;
    if (tabType <= 3)
        return &kLayouts[static_cast<std::size_t>(tabType) / 2];
    const auto row = std::find_if(kLayouts.begin() + 2, kLayouts.end(),
                                  [&](const LayoutMargins& candidate) { return candidate.layout == layout; });
    return row == kLayouts.end() ? nullptr : &*row;
}

std::string WholeMillimetres(SettingsStore& store, const SettingKey& key) {
    const std::string stored = Probe(store, key).value_or("");
    return std::to_string(IsNumeric(stored) ? ToInt16(ToDouble(stored)) : 0);
}

} // namespace

std::string LayoutDisplayName(std::string_view layout, int tabType) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    return std::string(row ? row->displayName : "");
}

bool DefaultMarginsExist(SettingsStore& store, int tabType, std::string_view layout) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    if (!row)
        return FindTabType(tabType) != nullptr;
    return Probe(store, row->left) && Probe(store, row->top);
}

MarginTexts LoadDefaultMargins(SettingsStore& store, int tabType, std::string_view layout) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    if (!row)
        return {};
    return {WholeMillimetres(store, row->left), WholeMillimetres(store, row->top)};
}

void SaveDefaultMargins(SettingsStore& store, int tabType, std::string_view layout, const MarginTexts& margins) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    if (!row)
        return;
    const SettingsBatch batch(store);
    Write(store, row->left, margins.left);
    Write(store, row->top, margins.top);
}

void ApplyDefaultMargins(SettingsStore& store, int tabType, std::string_view layout) {
    const MarginTexts margins = LoadDefaultMargins(store, tabType, layout);
    const SettingsBatch batch(store);
    Write(store, kMarginLeft, margins.left);
    Write(store, kMarginTop, margins.top);
}

bool SetupComplete(SettingsStore& store) {
    const SettingKey* const needed[] = {&kPrinter, &kStationeryType, &kPageSize, &kOptType};
    return std::none_of(std::begin(needed), std::end(needed),
                        [&](const SettingKey* key) { return Probe(store, *key).value_or("").empty(); });
}

bool MarginsReady(const MainModule& main) {
    return DefaultMarginsExist(main.settings, main.document.setup.OptType, main.document.setup.LayoutName);
}

} // namespace velmora
