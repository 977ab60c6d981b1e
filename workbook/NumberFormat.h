// Numbers of a worksheet as a person sees them: the value, laid out by the cell's format code.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// The code of a built-in format ("General" where there is none). The system's own date formats, whose look the file
/// does not tell, come as year-month-day.
std::string_view BuiltInNumberFormat(int number);

/// Most bytes of a code that are looked at.
inline constexpr std::size_t kMostFormatBytes = 255;
/// True for the code of cells that were given no format.
bool IsGeneralFormat(std::string_view code);

/// The value laid out by a code such as "0000", "#,##0.00;[Red]-#,##0.00" or "dd/mm/yyyy". Points, commas and names
/// are English. `from1904`: days count from 1 January 1904. A code that is not understood gives the plain number: at
/// most 10 digits unless it is whole. Other numbers are rounded from their first 15 digits, halves up.
std::string FormatNumber(double value, std::string_view code, bool from1904);

} // namespace velmora
