#include "editor/TabMarks.h"

#include <algorithm>
#include <numeric>

namespace velmora {

void TabMarks::BeginAt(std::int32_t tab) {
    tabs_.clear();
    anchor_ = tab;
}

void TabMarks::ExtendTo(std::int32_t tab) {
    const auto [first, last] = std::minmax(anchor_, tab);
    tabs_.resize(static_cast<std::size_t>(last - first) + 1);
    std::iota(tabs_.begin(), tabs_.end(), first);
}

void TabMarks::Toggle(std::int32_t tab) {
    if (tabs_.empty() && anchor_ != tab)
        tabs_.push_back(anchor_);
    const auto place = std::lower_bound(tabs_.begin(), tabs_.end(), tab);
    if (place != tabs_.end() && *place == tab)
        tabs_.erase(place);
    else
        tabs_.insert(place, tab);
    anchor_ = tab;
}

void TabMarks::Set(TabNumbers tabs) {
    tabs_ = std::move(tabs);
    anchor_ = tabs_.empty() ? 1 : tabs_.front();
}

bool TabMarks::Has(std::int32_t tab) const {
    return std::binary_search(tabs_.begin(), tabs_.end(), tab);
}

} // namespace velmora
