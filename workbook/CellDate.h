// Dates, times and elapsed times of a worksheet, laid out by a section of a format code.
#pragma once

#include "workbook/FormatCode.h"

#include <optional>

namespace velmora {

/// `value` in days, from the origin that FormatNumber names. nullopt outside the years 1900 to 9999.
std::optional<std::string> LayOutDate(double value, const FormatSection& section, bool from1904);

} // namespace velmora
