// Going on from the last number that the document holds.
#pragma once

#include "wizard/ValueSeries.h"

#include <optional>

namespace velmora {

/// The series that follows the last tab whose text in field 0, 1 or 2 is one number, with any text but digits before
/// and after it: "No.007/x" goes on as "No.008/x". The width is 0 for a bare number without leading zeros. nullopt when
/// no tab has a number, or one that none can follow in 32 bits.
std::optional<NumberSeries> NextNumberInDocument(const TabDocument& document, int field);

/// The number with which a series goes on behind the last of its values that field 0, 1 or 2 of the document holds; its
/// own first number where there is none.
std::int32_t FirstNumberAfter(const TabDocument& document, int field, const NumberSeries& series);

} // namespace velmora
