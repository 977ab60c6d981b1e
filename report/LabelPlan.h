// Which tab of the document comes onto which label of a run's sheets.
#pragma once

#include "document/TabOrder.h"

#include <cstdint>
#include <vector>

namespace velmora {

/// Where tabs that are printed alone come: to the place that each has on its page, or one behind the other.
enum class TabPlaces { Own, Flowing };

/// What of a document is printed, and on which labels.
struct LabelChoice {
    std::vector<int> used =
        {};               ///< slots of the first sheet whose labels are gone, from 1; tabs in their own places stay
    TabNumbers tabs = {}; ///< printed alone, in any order, a tab that stands twice twice; empty: all
    TabPlaces places = TabPlaces::Flowing; ///< of `tabs`
};

/// For each label, sheet by sheet, the number of its tab; 0: none. Whole sheets.
using LabelPlan = std::vector<std::int32_t>;

/// Tabs in their order on what labels are left. Raises SubscriptError for a used slot that the sheet does not have, and
/// Error when none is left.
LabelPlan FlowTabs(const TabNumbers& tabs, int perSheet, const std::vector<int>& used);
/// Only sheets of pages that hold one of the tabs, in the order of the pages; each tab once.
LabelPlan KeepPlaces(TabNumbers tabs, int perSheet);

} // namespace velmora
