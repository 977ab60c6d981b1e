#include "workspace/SortTabs.h"

#include "base/Text.h"
#include "workspace/ChangeTabs.h"
#include "workspace/TakePageBack.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

enum class Rank { Filled, BlankField, Empty };

struct SortedTab {
    Rank rank;
    std::string key;
    std::int32_t tab;
};

SortedTab Prepared(const TabDocument& document, std::int32_t tab, int field, const NaturalOrder& letters) {
    const std::string_view text = Trim(document.Field(field)(tab));
    if (!text.empty())
        return {Rank::Filled, letters.Key(text), tab};
    return {IsEmptyTab(document, tab) ? Rank::Empty : Rank::BlankField, {}, tab};
}

void Sort(std::vector<SortedTab>& tabs, bool descending) {
    std::stable_sort(tabs.begin(), tabs.end(), [descending](const SortedTab& a, const SortedTab& b) {
        if (a.rank != b.rank)
            return a.rank < b.rank;
        return descending ? b.key < a.key : a.key < b.key;
    });
}

} // namespace

void SortTabs(MainModule& main, const SortRequest& request, const NaturalOrder& letters) {
    TakePageBack(main);
    const TabDocument& document = main.document;
    const TabNumbers among = request.thisPage
                                 ? TabsFrom(FirstTabOf(document, document.CurrentPage), document.setup.TabsPerPage)
                                 : OrderOf(document);
    std::vector<SortedTab> tabs;
    tabs.reserve(among.size());
    for (const std::int32_t tab : among)
        tabs.push_back(Prepared(document, tab, request.field, letters));
    const auto filled =
        std::count_if(tabs.begin(), tabs.end(), [](const SortedTab& tab) { return tab.rank != Rank::Empty; });
    TabOrder order = OrderOf(document);
    auto place = order.begin() + among.front() - 1;
    Sort(tabs, request.descending);
    for (const SortedTab& sorted : tabs)
        *place++ = sorted.tab;
    Rearrange(main, ChangeOf(static_cast<std::size_t>(filled), "Sort", "sorted"), std::move(order),
              {TabInUse(document)});
}

} // namespace velmora
