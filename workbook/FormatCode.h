// The codes that lay the numbers of a worksheet out, such as "#,##0.00;[Red]-#,##0.00", taken apart.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

enum class FormatKind { Literal, Digit, Point, Comma, Percent, Exponent, DatePart, AmPm, Elapsed, General, Fraction };

struct FormatToken {
    FormatKind kind;
    std::string text;
};

/// One of the sections that semicolons separate: for positive numbers, negative ones and zero, or by its condition.
struct FormatSection {
    std::vector<FormatToken> tokens;
    std::string condition; ///< such as ">=100"; empty for the usual one

    bool Has(FormatKind kind) const {
        return std::any_of(tokens.begin(), tokens.end(), [&](const FormatToken& token) { return token.kind == kind; });
    }
    bool IsDate() const { return Has(FormatKind::DatePart) || Has(FormatKind::Elapsed); }
};

std::vector<FormatSection> ParseFormatCode(std::string_view code);
/// The section that lays `value` out; null where the code has none for it.
const FormatSection* SectionFor(const std::vector<FormatSection>& sections, double value);

} // namespace velmora
