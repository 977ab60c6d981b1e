// Numbers of a worksheet laid out as fractions, by a section such as "# ?/?".
#pragma once

#include "workbook/FormatCode.h"

#include <optional>

namespace velmora {

/// `value` from 0. The denominator is the one of the section, or the closest of at most three places. nullopt where the
/// section is no fraction and for numbers of more than 15 digits.
std::optional<std::string> LayOutFraction(double value, const FormatSection& section);

} // namespace velmora
