#include "base/Numbers.h"

#include "base/Error.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace velmora {
namespace {

template <typename Int> Int Checked(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<Int>::min() && rounded <= std::numeric_limits<Int>::max()))
        throw OverflowError();
    return static_cast<Int>(rounded);
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && text[at] >= '0' && text[at] <= '9')
        ++at;
    return at;
}

/// Length of a sign at `at`, 0 or 1.
std::size_t SignLength(std::string_view text, std::size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? 1 : 0;
}

bool HasNumberShape(std::string_view text) {
    const std::size_t whole = SignLength(text, 0);
    std::size_t at = SkipDigits(text, whole);
    std::size_t digits = at - whole;
    if (at < text.size() && text[at] == '.') {
        const std::size_t end = SkipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0)
        return false;
    if (at == text.size())
        return true;
    if (std::string_view("EeDd").find(text[at]) == std::string_view::npos)
        return false;
    const std::size_t exponent = at + 1 + SignLength(text, at + 1);
    return exponent < text.size() && SkipDigits(text, exponent) == text.size();
}

/// nullopt for a text of another shape; infinity for a number too large for a double.
std::optional<double> Parse(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (!HasNumberShape(trimmed))
        return std::nullopt;
    std::string plain(trimmed.substr(trimmed[0] == '+' ? 1 : 0));
    for (char& c : plain)
        if (c == 'd' || c == 'D')
            c = 'e';
    double value = 0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool tiny = plain.find("e-") != std::string::npos || plain.find("E-") != std::string::npos;
        return tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

} // namespace

double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest != 0.5)
        return rest < 0.5 ? below : below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int16_t ToInt16(double value) {
    return Checked<std::int16_t>(value);
}

std::int32_t ToInt32(double value) {
    return Checked<std::int32_t>(value);
}

std::int16_t Add16(int a, int b) {
    return ToInt16(static_cast<double>(a) + b);
}

std::int16_t Multiply16(int a, int b) {
    return ToInt16(static_cast<double>(a) * b);
}

bool IsNumeric(std::string_view text) {
    const auto value = Parse(text);
    return value && std::isfinite(*value);
}

double ToDouble(std::string_view text) {
    const auto value = Parse(text);
    if (!value)
        throw TypeMismatchError();
    if (!std::isfinite(*value))
        throw OverflowError();
    return *value;
}

std::string NumberText(double value) {
    constexpr int kDigits = 15; // the last one or two of a double are rounding
    char text[40];
    const auto end = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::general, kDigits).ptr;
    return {text, end};
}

std::string WithDecimalPoint(std::string_view typed) {
    std::string pointed(typed);
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    return IsNumeric(pointed) ? pointed : std::string(typed);
}

bool IsFlag(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    return EqualsNoCase(trimmed, "True") || EqualsNoCase(trimmed, "False") || IsNumeric(trimmed);
}

bool ToFlag(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (EqualsNoCase(trimmed, "True"))
        return true;
    if (EqualsNoCase(trimmed, "False"))
        return false;
    return ToDouble(trimmed) != 0;
}

std::string FlagText(bool flag) {
    return flag ? "True" : "False";
}

} // namespace velmora
