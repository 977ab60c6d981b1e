// Sorting the tabs by one of their fields.
#pragma once

#include "base/NaturalOrder.h"
#include "workspace/mdlMain.h"

namespace velmora {

struct SortRequest {
    int field = 0;           ///< 0 to 2, one in use
    bool descending = false; ///< Z to A
    bool thisPage = false;   ///< the page in view alone, else the whole document
};

/// One step of undo. Tabs with equal texts stay in their order. In either direction those without a text in the field
/// stand behind the others, and empty tabs last.
void SortTabs(MainModule& main, const SortRequest& request, const NaturalOrder& letters = NaturalOrder());

} // namespace velmora
