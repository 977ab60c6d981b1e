#include "editor/GridMoves.h"

namespace velmora {
namespace {

/// Boxes are counted through: all fields in use of tab 1, then those of tab 2.
TabBox BoxAfter(TabBox from, int boxes, int fields) {
    const int counted = (from.tab - 1) * fields + from.field + boxes;
    return counted < 0 ? TabBox{0, 0} : TabBox{counted / fields + 1, counted % fields};
}

std::int32_t LastFilledTab(const TabDocument& document) {
    std::int32_t tab = document.TabCount;
    while (tab > 1 && IsEmptyTab(document, tab))
        --tab;
    return tab;
}

TabBox Moved(GridMove move, TabBox from, const TabDocument& document) {
    const int columns = document.setup.ColsPerPage;
    const std::int32_t rowStart = from.tab - (from.tab - 1) % columns;
    switch (move) {
    case GridMove::NextBox: return BoxAfter(from, 1, document.setup.NoOfFields);
    case GridMove::PreviousBox: return BoxAfter(from, -1, document.setup.NoOfFields);
    case GridMove::NextTab: return {from.tab + 1, from.field};
    case GridMove::PreviousTab: return {from.tab - 1, from.field};
    case GridMove::Up: return {from.tab - columns, from.field};
    case GridMove::Down: return {from.tab + columns, from.field};
    case GridMove::RowStart: return {rowStart, from.field};
    case GridMove::RowEnd: return {rowStart + columns - 1, from.field};
    case GridMove::FirstTab: return {1, from.field};
    default: return {LastFilledTab(document), from.field};
    }
}

} // namespace

std::optional<TabBox> PlaceAfter(GridMove move, TabBox from, const TabDocument& document) {
    const TabBox place = Moved(move, from, document);
    return place.tab >= 1 && place.tab <= document.TabCount ? std::optional(place) : std::nullopt;
}

} // namespace velmora
