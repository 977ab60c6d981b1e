#include "workspace/RemoveDuplicates.h"

#include "base/Text.h"
#include "workspace/TakePageBack.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>

namespace velmora {
namespace {

constexpr char kBetween = '\n'; // no text has a second line

/// Empty where all counted texts are blank.
std::string CountedTexts(const TabDocument& document, std::int32_t tab, const CountedFields& fields) {
    std::string all;
    for (int field = 0; field < document.setup.NoOfFields; ++field)
        if (fields.at(static_cast<std::size_t>(field)))
            (all += Trim(document.Field(field)(tab))) += kBetween;
    return all.find_first_not_of(kBetween) == std::string::npos ? "" : all;
}

/// The last page that holds a text, 0 without one.
std::int16_t LastFilledPage(const TabDocument& document, const TabOrder& order) {
    const auto last = std::find_if(order.rbegin(), order.rend(),
                                   [&](std::int32_t tab) { return tab > 0 && !IsBareTab(document, tab); });
    const auto place = static_cast<std::int32_t>(order.rend() - last);
    return place == 0 ? std::int16_t{0} : PageOfTab(document, place);
}

} // namespace

TabNumbers DuplicateTabs(const TabDocument& document, const CountedFields& fields) {
    TabNumbers duplicates;
    std::unordered_set<std::string> seen;
    seen.reserve(static_cast<std::size_t>(document.TabCount));
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        if (std::string texts = CountedTexts(document, tab, fields);
            !texts.empty() && !seen.insert(std::move(texts)).second)
            duplicates.push_back(tab);
    return duplicates;
}

int RemoveDuplicates(MainModule& main, const CountedFields& fields) {
    TakePageBack(main);
    const TabDocument& document = main.document;
    const TabNumbers duplicates = DuplicateTabs(document, fields);
    if (duplicates.empty())
        return 0;
    const TabOrder all = OrderOf(document);
    TabOrder order;
    std::set_difference(all.begin(), all.end(), duplicates.begin(), duplicates.end(), std::back_inserter(order));
    const int emptied = LastFilledPage(document, all) - LastFilledPage(document, order);
    order.resize(all.size() - static_cast<std::size_t>(emptied * document.setup.TabsPerPage));
    const auto last = static_cast<std::int32_t>(order.size());
    Rearrange(main, ChangeOf(duplicates.size(), "Remove Duplicates", "removed"), std::move(order),
              {std::min(TabInUse(document), last)});
    return static_cast<int>(duplicates.size());
}

} // namespace velmora
