#include "document/TabOrder.h"

#include "document/FontSettings.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace velmora {
namespace {

FieldTexts Arranged(const FieldTexts& field, const TabOrder& order) {
    FieldTexts arranged;
    arranged.ReDim(static_cast<std::int32_t>(order.size()));
    std::int32_t place = 0;
    for (const std::int32_t tab : order) {
        ++place;
        if (tab > 0)
            arranged(place) = field(tab);
    }
    return arranged;
}

} // namespace

TabNumbers TabsFrom(std::int32_t first, std::int32_t count) {
    TabNumbers tabs(static_cast<std::size_t>(count));
    std::iota(tabs.begin(), tabs.end(), first);
    return tabs;
}

TabOrder OrderOf(const TabDocument& document) {
    return TabsFrom(1, document.TabCount);
}

void FillLastPage(TabOrder& order, std::int16_t tabsPerPage) {
    const auto perPage = static_cast<std::size_t>(tabsPerPage);
    order.resize((order.size() + perPage - 1) / perPage * perPage);
}

bool ChangesNothing(const TabDocument& document, const TabOrder& order) {
    if (std::cmp_not_equal(order.size(), document.TabCount))
        return false;
    const auto isBare = [&](std::int32_t tab) { return tab == 0 || IsBareTab(document, tab); };
    std::int32_t place = 0;
    return std::all_of(order.begin(), order.end(), [&](std::int32_t tab) {
        ++place;
        return tab == place || (isBare(tab) && isBare(place));
    });
}

bool LosesTexts(const TabDocument& document, const TabOrder& order) {
    std::vector<bool> placed(static_cast<std::size_t>(document.TabCount) + 1);
    for (const std::int32_t tab : order)
        placed[static_cast<std::size_t>(tab)] = true;
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        if (!placed[static_cast<std::size_t>(tab)] && !IsBareTab(document, tab))
            return true;
    return false;
}

void Arrange(TabDocument& document, const TabOrder& order) {
    std::array<FieldTexts, kFieldsPerTab> arranged;
    for (std::size_t field = 0; field < arranged.size(); ++field)
        arranged[field] = Arranged(document.Field(static_cast<int>(field)), order);
    for (std::size_t field = 0; field < arranged.size(); ++field)
        document.Field(static_cast<int>(field)) = std::move(arranged[field]);
    document.TabCount = static_cast<std::int32_t>(order.size());
    document.NoOfPages = static_cast<std::int16_t>(document.TabCount / document.setup.TabsPerPage);
}

bool IsBareTab(const TabDocument& document, std::int32_t tab) {
    return document.FieldA(tab).empty() && document.FieldB(tab).empty() && document.FieldC(tab).empty();
}

std::int16_t PageOfTab(const TabDocument& document, std::int32_t tab) {
    return static_cast<std::int16_t>((tab - 1) / document.setup.TabsPerPage + 1);
}

std::int32_t FirstTabOf(const TabDocument& document, std::int16_t page) {
    return (page - 1) * document.setup.TabsPerPage + 1;
}

std::int32_t TabInUse(const TabDocument& document) {
    const bool shown = document.CurrentTab > 0 && PageOfTab(document, document.CurrentTab) == document.CurrentPage;
    return shown ? document.CurrentTab : FirstTabOf(document, document.CurrentPage);
}

} // namespace velmora
