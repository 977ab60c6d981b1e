#include "workspace/ArrangeTabs.h"

#include "workspace/ChangeTabs.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// Takes tabs without a text away that stand behind the document's end.
void DropBareEnd(const TabDocument& document, TabOrder& order) {
    while (std::cmp_greater(order.size(), document.TabCount) &&
           (order.back() == 0 || IsBareTab(document, order.back())))
        order.pop_back();
}

/// `marked` are ascending, so that what has moved already is not met again.
void MoveTabs(MainModule& main, const char* name, TabNumbers marked, std::int32_t distance) {
    TabOrder order = OrderOf(main.document);
    if (distance > 0)
        std::reverse(marked.begin(), marked.end());
    for (std::int32_t& tab : marked) {
        std::swap(order[static_cast<std::size_t>(tab - 1)], order[static_cast<std::size_t>(tab + distance - 1)]);
        tab += distance;
    }
    std::sort(marked.begin(), marked.end());
    Rearrange(main, ChangeOf(marked.size(), name, "moved"), std::move(order), marked);
}

void CopyTexts(TabDocument& document, std::int32_t from, const TabNumbers& to) {
    for (int field = 0; field < document.setup.NoOfFields; ++field) {
        FieldTexts& texts = document.Field(field);
        for (const std::int32_t tab : to)
            texts(tab) = texts(from);
    }
}

} // namespace

void InsertTabs(MainModule& main) {
    const TabNumbers marked = TakeMarkedTabs(main);
    if (marked.empty())
        return;
    TabOrder order = OrderOf(main.document);
    order.insert(order.begin() + marked.front() - 1, marked.size(), 0);
    DropBareEnd(main.document, order);
    Rearrange(main, ChangeOf(marked.size(), "Insert Tab", "inserted"), std::move(order),
              TabsFrom(marked.front(), static_cast<std::int32_t>(marked.size())));
}

void RemoveTabs(MainModule& main) {
    const TabNumbers marked = TakeMarkedTabs(main);
    if (marked.empty())
        return;
    TabOrder order;
    const TabOrder all = OrderOf(main.document);
    std::set_difference(all.begin(), all.end(), marked.begin(), marked.end(), std::back_inserter(order));
    order.resize(all.size());
    Rearrange(main, ChangeOf(marked.size(), "Remove Tab", "removed"), std::move(order), {marked.front()});
}

void MoveTabsUp(MainModule& main) {
    if (const TabNumbers marked = TakeMarkedTabs(main); !marked.empty() && marked.front() > 1)
        MoveTabs(main, "Move Up", marked, -1);
}

void MoveTabsDown(MainModule& main) {
    if (const TabNumbers marked = TakeMarkedTabs(main); !marked.empty() && marked.back() < main.document.TabCount)
        MoveTabs(main, "Move Down", marked, 1);
}

void FillDown(MainModule& main) {
    const TabNumbers marked = TakeMarkedTabs(main);
    if (marked.empty() || marked.back() == 1)
        return;
    const std::int32_t from = marked.size() > 1 ? marked.front() : marked.front() - 1;
    ChangeTabs(main, ChangeOf(marked.size(), "Fill Down", "filled"), marked, true,
               [&](TabDocument& document) { CopyTexts(document, from, marked); });
}

} // namespace velmora
