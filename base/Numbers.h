// Numbers as the documents and settings of this system have always computed them: signed 16-bit and 32-bit
// integers that report an overflow, rounding half to even, and numbers and flags read from text. Texts use a
// decimal point whatever the desktop's locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// Nearest whole number, a half going to the even neighbour. `value` must be finite.
double RoundHalfEven(double value);

/// `value` rounded half to even; raises OverflowError outside -32768 .. 32767.
std::int16_t ToInt16(double value);
/// `value` rounded half to even; raises OverflowError outside the 32-bit range.
std::int32_t ToInt32(double value);

/// Raise OverflowError where the result leaves the 16-bit range.
std::int16_t Add16(int a, int b);
std::int16_t Multiply16(int a, int b);

/// True for a number as ToDouble reads it.
bool IsNumeric(std::string_view text);
/// Blanks around, a sign, digits with a decimal point, an exponent (E or D). Raises TypeMismatchError for anything
/// else, the empty text included, and OverflowError for a number too large for a double.
double ToDouble(std::string_view text);

/// The shortest text that ToDouble reads as `value`, to 15 digits.
std::string NumberText(double value);
/// As a person types it: a decimal comma becomes a point where that makes it a number. Any other text as it is.
std::string WithDecimalPoint(std::string_view typed);

/// True for "True" or "False" in any letter case, blanks around, and for every number.
bool IsFlag(std::string_view text);
/// A number is true when it is not 0. Raises TypeMismatchError where IsFlag is false.
bool ToFlag(std::string_view text);
/// "True" or "False".
std::string FlagText(bool flag);

} // namespace velmora
