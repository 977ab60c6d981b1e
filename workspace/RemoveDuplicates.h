// Tabs that hold again what a tab before them holds.
#pragma once

#include "workspace/ChangeTabs.h"

#include <array>

namespace velmora {

/// Which of the fields 0 to 2 count.
using CountedFields = std::array<bool, 3>;

/// Tabs whose texts in the counted fields a tab before has too, but for blanks around them. Tabs that are blank there
/// are no duplicates.
TabNumbers DuplicateTabs(const TabDocument& document, const CountedFields& fields);
/// Removes them, as one step, closes up, and takes away the pages at the end that this leaves empty; gives their
/// number.
int RemoveDuplicates(MainModule& main, const CountedFields& fields);

} // namespace velmora
