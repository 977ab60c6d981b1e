// Dates, times and elapsed times of a worksheet, laid out by a section of a format code.
#pragma once

#include "workbook/FormatCode.h"

#include <optional>

namespace velmora {

/// `value` in days, from the origin that FormatNumber names. nullopt outside the years 1900 to 9999.
std::optional<std::string> LayOutDate(double value, const FormatSection& section, bool from1904);
/// The days up to a moment such as "2024-03-01" or "2024-03-01T18:45:00.5", or of a time alone ("18:45:00"). nullopt
/// for other texts and before the origin.
std::optional<double> SerialOfIsoDate(std::string_view text, bool from1904);

} // namespace velmora
