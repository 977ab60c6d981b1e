// Where a key of the editor leads, over the pages of the whole document.
#pragma once

#include "document/TabOrder.h"

#include <optional>

namespace velmora {

enum class GridMove {
    NextBox, ///< field by field, tab by tab
    PreviousBox,
    NextTab, ///< the same field of another tab
    PreviousTab,
    Up,
    Down,
    RowStart,
    RowEnd,
    FirstTab,
    LastFilledTab ///< the last one with a text
};

/// nullopt: beyond the document's first or last tab.
std::optional<TabBox> PlaceAfter(GridMove move, TabBox from, const TabDocument& document);

} // namespace velmora
