#include "workspace/ArrangePages.h"

#include "workspace/ChangeTabs.h"
#include "workspace/TakePageBack.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// Where a page begins in the order.
auto StartOf(TabOrder& order, const TabDocument& document, std::int16_t page) {
    return order.begin() + FirstTabOf(document, page) - 1;
}

/// Ends with `page` in view, its first tab in use.
void RearrangePages(MainModule& main, const TabChange& what, TabOrder order, std::int16_t page) {
    Rearrange(main, what, std::move(order), {FirstTabOf(main.document, page)});
}

} // namespace

void InsertPage(MainModule& main) {
    TakePageBack(main);
    const TabDocument& document = main.document;
    TabOrder order = OrderOf(document);
    order.insert(StartOf(order, document, document.CurrentPage), static_cast<std::size_t>(document.setup.TabsPerPage),
                 0);
    RearrangePages(main, {"Insert Page", "Page " + std::to_string(document.CurrentPage) + " inserted"},
                   std::move(order), document.CurrentPage);
}

void DuplicatePage(MainModule& main) {
    TakePageBack(main);
    const TabDocument& document = main.document;
    const TabNumbers page = TabsFrom(FirstTabOf(document, document.CurrentPage), document.setup.TabsPerPage);
    TabOrder order = OrderOf(document);
    order.insert(order.begin() + page.back(), page.begin(), page.end());
    RearrangePages(main, {"Duplicate Page", "Page " + std::to_string(document.CurrentPage) + " duplicated"},
                   std::move(order), static_cast<std::int16_t>(document.CurrentPage + 1));
}

void MovePage(MainModule& main, std::int16_t to) {
    TakePageBack(main);
    const TabDocument& document = main.document;
    TabOrder order = OrderOf(document);
    const auto page = StartOf(order, document, document.CurrentPage);
    const auto behind = page + document.setup.TabsPerPage;
    const auto target = StartOf(order, document, to);
    if (target < page)
        std::rotate(target, page, behind);
    else
        std::rotate(page, behind, target + document.setup.TabsPerPage);
    RearrangePages(main, {"Move Page", "Page " + std::to_string(document.CurrentPage) + " moved"}, std::move(order),
                   to);
}

} // namespace velmora
