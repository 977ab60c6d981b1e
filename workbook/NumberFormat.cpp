#include "workbook/NumberFormat.h"

#include "base/Text.h"
#include "workbook/CellDate.h"
#include "workbook/CellFraction.h"
#include "workbook/DecimalNumber.h"
#include "workbook/FormatCode.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace velmora {
namespace {

std::string Print(const char* format, auto... values) {
    std::array<char, 400> text{};
    const int length = std::snprintf(text.data(), text.size(), format, values...);
    return {text.data(), static_cast<std::size_t>(std::clamp(length, 0, static_cast<int>(text.size()) - 1))};
}

std::string PlainNumber(double value) {
    if (value == 0)
        return "0";
    if (std::floor(value) == value && std::abs(value) < 1e15)
        return Print("%.0f", value);
    return ToUpper(Print("%.10g", value));
}

/// How a section lays a number out.
struct NumberShape {
    int whole = 0;    ///< places before the point
    int decimals = 0; ///< places behind it
    int exponent = 0;
    bool grouped = false;
    int power = 0; ///< of ten, by which the number is shown larger
};

NumberShape ShapeOf(const FormatSection& section) {
    NumberShape shape;
    int* places = &shape.whole;
    int commas = 0;
    for (const FormatToken& token : section.tokens) {
        if (token.kind == FormatKind::Digit) {
            ++*places;
            shape.grouped = shape.grouped || (commas > 0 && places == &shape.whole && shape.whole > 1);
            commas = 0;
        } else if (token.kind == FormatKind::Point)
            places = &shape.decimals;
        else if (token.kind == FormatKind::Exponent)
            places = &shape.exponent;
        else if (token.kind == FormatKind::Comma && shape.whole > 0)
            ++commas;
        else if (token.kind == FormatKind::Percent)
            shape.power += 2;
        if (token.kind == FormatKind::Point || token.kind == FormatKind::Percent) {
            shape.power -= 3 * commas;
            commas = 0;
        }
    }
    shape.power -= 3 * commas; // each comma behind the last place is a division
    return shape;
}

/// The digits of a number, handed out place by place.
class Digits {
public:
    Digits(double value, const NumberShape& shape) : shape_(shape) {
        DecimalNumber number(value);
        number.MultiplyByTenTo(shape.power);
        if (shape.exponent > 0) {
            power_ = PowerOf(number);
            number.MultiplyByTenTo(-power_);
        }
        number.RoundTo(shape.decimals);
        whole_ = number.Whole();
        decimals_ = number.Decimals(shape.decimals);
    }

    bool AllZero() const { return whole_.empty() && decimals_.find_first_not_of('0') == std::string::npos; }
    int Power() const { return power_; }

    /// The place `index` of those before the point; the first one takes all digits that are left over.
    std::string Whole(int index, char place) const {
        const int left = shape_.whole - 1 - index; // places to the right of it
        const int size = static_cast<int>(whole_.size());
        std::string text;
        for (int position = index == 0 ? std::max(size - 1, left) : left; position >= left; --position) {
            if (position < size)
                text += whole_[static_cast<std::size_t>(size - 1 - position)];
            else if (place != '#')
                text += place == '0' ? '0' : ' ';
            if (shape_.grouped && position > 0 && position % 3 == 0 && !text.empty() &&
                (position < size || place == '0'))
                text += ',';
        }
        return text;
    }

    std::string Decimal(int index, char place) const {
        const auto at = static_cast<std::size_t>(index);
        const bool onlyZeros = at >= decimals_.size() || decimals_.find_first_not_of('0', at) == std::string::npos;
        if (onlyZeros && place != '0')
            return place == '?' ? " " : "";
        return at < decimals_.size() ? std::string(1, decimals_[at]) : "0";
    }

private:
    /// That of the first digit once it is rounded; several places before the point make it a multiple of their number.
    int PowerOf(DecimalNumber number) const {
        const int step = std::max(shape_.whole, 1);
        number.RoundTo(shape_.decimals + step - 1 - number.Power());
        return number.Power() - (number.Power() % step + step) % step;
    }

    const NumberShape& shape_;
    std::string whole_; ///< without leading zeros
    std::string decimals_;
    int power_ = 0;
};

std::string Exponent(const std::string& sign, int power, int places) {
    return std::string("E") +
           (power < 0        ? "-"
            : sign[1] == '+' ? "+"
                             : "") +
           Print("%0*d", std::min(places, 9), std::abs(power));
}

std::string LayOutNumber(double value, const FormatSection& section) {
    const NumberShape shape = ShapeOf(section);
    const Digits digits(value, shape);
    std::string text;
    int whole = 0;
    int decimal = 0;
    FormatKind part = FormatKind::Digit; // then Point, then Exponent
    for (const FormatToken& token : section.tokens) {
        if (token.kind == FormatKind::Digit && part == FormatKind::Digit)
            text += digits.Whole(whole++, token.text[0]);
        else if (token.kind == FormatKind::Digit && part == FormatKind::Point)
            text += digits.Decimal(decimal++, token.text[0]);
        else if (token.kind == FormatKind::Point || token.kind == FormatKind::Exponent) {
            part = token.kind;
            text += part == FormatKind::Point ? "." : Exponent(token.text, digits.Power(), shape.exponent);
        } else if (token.kind == FormatKind::General)
            text += PlainNumber(value);
        else if (token.kind == FormatKind::Literal || token.kind == FormatKind::Percent ||
                 token.kind == FormatKind::Fraction)
            text += token.text == "@" ? PlainNumber(value) : token.text;
    }
    return text;
}

} // namespace

std::string_view BuiltInNumberFormat(int number) {
    switch (number) {
    case 1: return "0";
    case 2: return "0.00";
    case 3: return "#,##0";
    case 4: return "#,##0.00";
    case 5:
    case 6: return "$#,##0_);($#,##0)";
    case 7:
    case 8: return "$#,##0.00_);($#,##0.00)";
    case 9: return "0%";
    case 10: return "0.00%";
    case 11: return "0.00E+00";
    case 12: return "# ?/?";
    case 13: return "# ?\?/?\?";
    case 14: return "yyyy-mm-dd";
    case 15: return "d-mmm-yy";
    case 16: return "d-mmm";
    case 17: return "mmm-yy";
    case 18: return "h:mm AM/PM";
    case 19: return "h:mm:ss AM/PM";
    case 20: return "h:mm";
    case 21: return "h:mm:ss";
    case 22: return "yyyy-mm-dd h:mm";
    case 37:
    case 38: return "#,##0;(#,##0)";
    case 39:
    case 40: return "#,##0.00;(#,##0.00)";
    case 41: return "_(* #,##0_);_(* (#,##0);_(* \"-\"_)";
    case 42: return "_($* #,##0_);_($* (#,##0);_($* \"-\"_)";
    case 43: return "_(* #,##0.00_);_(* (#,##0.00);_(* \"-\"??_)";
    case 44: return "_($* #,##0.00_);_($* (#,##0.00);_($* \"-\"??_)";
    case 45: return "mm:ss";
    case 46: return "[h]:mm:ss";
    case 47: return "mm:ss.0";
    case 48: return "##0.0E+0";
    default: return "General";
    }
}

bool IsGeneralFormat(std::string_view code) {
    return code.empty() || EqualsNoCase(code, "General");
}

std::string FormatNumber(double value, std::string_view code, bool from1904) {
    if (!std::isfinite(value) || IsGeneralFormat(code))
        return PlainNumber(value);
    const std::vector<FormatSection> sections = ParseFormatCode(code.substr(0, kMostFormatBytes));
    const FormatSection* section = SectionFor(sections, value);
    if (!section)
        return PlainNumber(value);
    if (section->IsDate())
        return LayOutDate(value, *section, from1904).value_or(PlainNumber(value));
    // A section for negative numbers brings its own sign.
    const bool bringsSign = section != sections.data() && section->condition.empty();
    if (section->Has(FormatKind::Fraction) && section->Has(FormatKind::Digit)) {
        const auto fraction = LayOutFraction(std::abs(value), *section);
        return fraction ? (value < 0 && !bringsSign ? "-" : "") + *fraction : PlainNumber(value);
    }
    const bool rounded = Digits(std::abs(value), ShapeOf(*section)).AllZero() && section->Has(FormatKind::Digit);
    const bool minus = value < 0 && !bringsSign && !rounded;
    return (minus ? "-" : "") + LayOutNumber(std::abs(value), *section);
}

} // namespace velmora
