#include "platform/linux/NumberFormat.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

namespace velmora {
namespace {

enum class Kind { Literal, Digit, Point, Comma, Percent, Exponent, DatePart, AmPm, Elapsed, General, Fraction };

struct Token {
    Kind kind;
    std::string text;
};

/// One of the sections that semicolons separate: for positive numbers, negative ones and zero, or by its condition.
struct Section {
    std::vector<Token> tokens;
    std::string condition; ///< such as ">=100"; empty for the usual one

    bool Has(Kind kind) const {
        return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) { return token.kind == kind; });
    }
    bool IsDate() const { return Has(Kind::DatePart) || Has(Kind::Elapsed); }
};

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

bool IsElapsed(std::string_view inner) {
    return !inner.empty() && ToUpper(inner).find_first_not_of(ToUpper(inner)[0]) == std::string::npos &&
           std::string_view("HMS").find(ToUpper(inner)[0]) != std::string_view::npos;
}

/// What stands in brackets: elapsed time, a condition, a currency sign; colours and languages show nothing.
void TakeBrackets(Section& section, std::string_view inner) {
    if (IsElapsed(inner))
        section.tokens.push_back({Kind::Elapsed, ToUpper(inner)});
    else if (!inner.empty() && std::string_view("<>=").find(inner[0]) != std::string_view::npos)
        section.condition = inner;
    else if (inner.starts_with('$'))
        section.tokens.push_back({Kind::Literal, std::string(inner.substr(1, inner.find('-') - 1))});
}

class Scanner {
public:
    explicit Scanner(std::string_view code) : code_(code) {}

    std::vector<Section> Sections() {
        std::vector<Section> sections(1);
        while (at_ < code_.size()) {
            if (code_[at_] == ';') {
                sections.emplace_back();
                ++at_;
            } else
                Step(sections.back());
        }
        return sections;
    }

private:
    void Step(Section& section) {
        const char sign = code_[at_];
        const std::string rest = ToUpper(code_.substr(at_, 7));
        const auto take = [&](Kind kind, std::size_t length) {
            section.tokens.push_back({kind, std::string(code_.substr(at_, length))});
            at_ += section.tokens.back().text.size();
        };
        if (sign == '"')
            section.tokens.push_back({Kind::Literal, std::string(Quoted('"'))});
        else if (sign == '[')
            TakeBrackets(section, Quoted(']'));
        else if (sign == '\\' || sign == '_' || sign == '*')
            TakeEscape(section, sign);
        else if (rest == "GENERAL")
            take(Kind::General, 7);
        else if (rest.starts_with("AM/PM"))
            take(Kind::AmPm, 5);
        else if (rest.starts_with("A/P"))
            take(Kind::AmPm, 3);
        else if (rest.starts_with("E+") || rest.starts_with("E-"))
            take(Kind::Exponent, 2);
        else if (std::string_view("YMDHS").find(rest[0]) != std::string_view::npos)
            take(Kind::DatePart, std::min(rest.find_first_not_of(rest[0]), rest.size()));
        else
            take(KindOf(sign), 1);
    }

    /// What stands up to the closing sign.
    std::string_view Quoted(char close) {
        const std::size_t from = at_ + 1;
        const std::size_t end = std::min(code_.find(close, from), code_.size());
        at_ = std::min(end + 1, code_.size());
        return code_.substr(from, end - from);
    }

    /// A character as it stands, a blank as wide as a character, or a filling, which shows nothing.
    void TakeEscape(Section& section, char sign) {
        const std::string_view shown = LeftCharacters(code_.substr(at_ + 1), 1);
        if (sign != '*')
            section.tokens.push_back({Kind::Literal, sign == '_' ? " " : std::string(shown)});
        at_ += 1 + shown.size();
    }

    static Kind KindOf(char sign) {
        switch (sign) {
        case '0':
        case '#':
        case '?': return Kind::Digit;
        case '.': return Kind::Point;
        case ',': return Kind::Comma;
        case '%': return Kind::Percent;
        case '/': return Kind::Fraction;
        default: return Kind::Literal;
        }
    }

    std::string_view code_;
    std::size_t at_ = 0;
};

bool Holds(const std::string& condition, double value) {
    const std::size_t digits = std::min(condition.find_first_not_of("<>="), condition.size());
    const std::string sign = condition.substr(0, digits);
    const double limit = std::strtod(condition.c_str() + digits, nullptr);
    if (sign == "<")
        return value < limit;
    if (sign == "<=")
        return value <= limit;
    if (sign == ">")
        return value > limit;
    if (sign == ">=")
        return value >= limit;
    return sign == "<>" ? value != limit : value == limit;
}

const Section* Choose(const std::vector<Section>& sections, double value) {
    const std::size_t count = std::min<std::size_t>(sections.size(), 3); // the fourth is for texts
    for (std::size_t i = 0; i < count; ++i) {
        if (!sections[i].condition.empty()) {
            if (Holds(sections[i].condition, value))
                return &sections[i];
        } else if (i + 1 == count || (i == 0 && (count == 2 ? value >= 0 : value > 0)) || (i == 1 && value < 0))
            return &sections[i];
    }
    return nullptr;
}

/// How a section lays a number out.
struct NumberShape {
    int whole = 0;    ///< places before the point
    int decimals = 0; ///< places behind it
    int exponent = 0;
    bool grouped = false;
    double scale = 1;
};

NumberShape ShapeOf(const Section& section) {
    NumberShape shape;
    int* places = &shape.whole;
    int commas = 0;
    for (const Token& token : section.tokens) {
        if (token.kind == Kind::Digit) {
            ++*places;
            shape.grouped = shape.grouped || (commas > 0 && places == &shape.whole && shape.whole > 1);
            commas = 0;
        } else if (token.kind == Kind::Point)
            places = &shape.decimals;
        else if (token.kind == Kind::Exponent)
            places = &shape.exponent;
        else if (token.kind == Kind::Comma && shape.whole > 0)
            ++commas;
        else if (token.kind == Kind::Percent)
            shape.scale *= 100;
        if (token.kind == Kind::Point || token.kind == Kind::Percent) {
            shape.scale /= std::pow(1000, commas);
            commas = 0;
        }
    }
    shape.scale /= std::pow(1000, commas); // each comma behind the last place is a division
    return shape;
}

/// The digits of a number, handed out place by place.
class Digits {
public:
    Digits(double value, const NumberShape& shape) : shape_(shape) {
        value *= shape.scale;
        if (shape.exponent > 0) {
            const std::string text = Print("%.*e", std::min(shape.decimals + std::max(shape.whole, 1) - 1, 30), value);
            const std::size_t e = text.find('e');
            power_ = std::atoi(text.c_str() + e + 1);
            if (shape.whole > 1)
                SplitInSteps(value);
            else
                Split(text.substr(0, e));
        } else // halves go up as they are written in decimal
            Split(Print("%.*f", std::min(shape.decimals, 30), value * (1 + 1e-15)));
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
    /// Several places before the point make the power a multiple of their number.
    void SplitInSteps(double value) {
        const int step = shape_.whole;
        power_ -= (power_ % step + step) % step;
        Split(Print("%.*f", std::min(shape_.decimals, 30), value / std::pow(10, power_)));
    }
    void Split(const std::string& text) {
        const std::size_t point = std::min(text.find('.'), text.size());
        const std::size_t first = std::min(text.find_first_not_of('0'), point);
        whole_ = text.substr(first, point - first);
        decimals_ = point < text.size() ? text.substr(point + 1) : "";
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

std::string LayOutNumber(double value, const Section& section) {
    const NumberShape shape = ShapeOf(section);
    const Digits digits(value, shape);
    std::string text;
    int whole = 0;
    int decimal = 0;
    Kind part = Kind::Digit; // then Point, then Exponent
    for (const Token& token : section.tokens) {
        if (token.kind == Kind::Digit && part == Kind::Digit)
            text += digits.Whole(whole++, token.text[0]);
        else if (token.kind == Kind::Digit && part == Kind::Point)
            text += digits.Decimal(decimal++, token.text[0]);
        else if (token.kind == Kind::Point || token.kind == Kind::Exponent) {
            part = token.kind;
            text += part == Kind::Point ? "." : Exponent(token.text, digits.Power(), shape.exponent);
        } else if (token.kind == Kind::General)
            text += PlainNumber(value);
        else if (token.kind == Kind::Literal || token.kind == Kind::Percent || token.kind == Kind::Fraction)
            text += token.text == "@" ? PlainNumber(value) : token.text;
    }
    return text;
}

/// A moment taken apart.
struct Moment {
    std::chrono::year_month_day date;
    unsigned weekday = 0;   ///< 0: Sunday
    std::int64_t ticks = 0; ///< milliseconds since day 0
};

/// Nothing outside the years 1900 to 9999. Without decimals of seconds the moment is rounded to whole ones.
std::optional<Moment> MomentOf(double serial, bool from1904, bool decimals) {
    if (serial < 0 || serial > 2958465)
        return std::nullopt;
    constexpr std::int64_t kDay = 86'400'000;
    Moment moment;
    const double unit = decimals ? 1 : 1000;
    moment.ticks = static_cast<std::int64_t>(std::round(serial * kDay / unit) * unit);
    auto days = moment.ticks / kDay;
    // Day 60 is a 29 February 1900 that never was; the days before it are one later than they count.
    using namespace std::chrono;
    const sys_days origin = from1904 ? sys_days(year(1904) / 1 / 1) : sys_days(year(1899) / 12 / (days < 60 ? 31 : 30));
    const sys_days day = origin + std::chrono::days(days);
    moment.date = year_month_day(day);
    moment.weekday = weekday(day).c_encoding();
    return moment;
}

constexpr std::array<const char*, 12> kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                                 "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};

std::string Padded(std::int64_t number, std::size_t places) {
    return Print("%0*lld", static_cast<int>(std::min<std::size_t>(places, 20)), static_cast<long long>(number));
}

std::string MonthText(unsigned month, std::size_t places) {
    const std::string name = kMonths[month - 1];
    return places <= 2 ? Padded(month, places) : name.substr(0, places == 3 ? 3 : places == 5 ? 1 : name.size());
}

std::string DayText(const Moment& moment, std::size_t places) {
    const std::string name = kWeekdays[moment.weekday];
    return places <= 2 ? Padded(static_cast<unsigned>(moment.date.day()), places)
                       : name.substr(0, places == 3 ? 3 : name.size());
}

/// True when the "m" at `index` stands for minutes: behind hours or before seconds.
bool IsMinutes(const std::vector<Token>& tokens, std::size_t index) {
    const auto letter = [](const Token& token) { return ToUpper(token.text)[0]; };
    const auto isTime = [](const Token& token) { return token.kind == Kind::DatePart || token.kind == Kind::Elapsed; };
    for (std::size_t i = index; i-- > 0;)
        if (isTime(tokens[i])) {
            if (letter(tokens[i]) == 'H')
                return true;
            break;
        }
    for (std::size_t i = index + 1; i < tokens.size(); ++i)
        if (isTime(tokens[i]))
            return letter(tokens[i]) == 'S';
    return false;
}

std::string DatePart(const Moment& moment, const Section& section, std::size_t index) {
    const Token& token = section.tokens[index];
    const std::size_t places = token.text.size();
    const std::int64_t seconds = moment.ticks / 1000;
    const std::int64_t hour = seconds / 3600 % 24;
    switch (ToUpper(token.text)[0]) {
    case 'Y':
        return places <= 2 ? Padded(static_cast<int>(moment.date.year()) % 100, 2)
                           : Padded(static_cast<int>(moment.date.year()), 4);
    case 'D': return DayText(moment, places);
    case 'H': return Padded(section.Has(Kind::AmPm) ? (hour + 11) % 12 + 1 : hour, places);
    case 'S': return Padded(seconds % 60, places);
    default:
        return IsMinutes(section.tokens, index) ? Padded(seconds / 60 % 60, places)
                                                : MonthText(static_cast<unsigned>(moment.date.month()), places);
    }
}

std::string ElapsedText(const Moment& moment, const std::string& unit) {
    const std::int64_t seconds = moment.ticks / 1000;
    return Padded(unit[0] == 'H' ? seconds / 3600 : unit[0] == 'M' ? seconds / 60 : seconds, unit.size());
}

std::string AmPmText(const Moment& moment, const std::string& wanted) {
    const bool morning = moment.ticks / 3'600'000 % 24 < 12;
    return wanted.size() > 3 ? (morning ? "AM" : "PM") : (morning ? "A" : "P");
}

std::optional<std::string> LayOutDate(double value, const Section& section, bool from1904) {
    const auto moment = MomentOf(value, from1904, section.Has(Kind::Digit));
    if (!moment)
        return std::nullopt;
    std::string text;
    const std::string thousandths = Padded(moment->ticks % 1000, 3);
    std::size_t decimal = 0;
    for (std::size_t i = 0; i < section.tokens.size(); ++i) {
        const Token& token = section.tokens[i];
        if (token.kind == Kind::DatePart)
            text += DatePart(*moment, section, i);
        else if (token.kind == Kind::Elapsed)
            text += ElapsedText(*moment, token.text);
        else if (token.kind == Kind::AmPm)
            text += AmPmText(*moment, token.text);
        else if (token.kind == Kind::Digit)
            text += decimal < thousandths.size() ? thousandths.substr(decimal++, 1) : "0";
        else if (token.kind != Kind::General && token.text != "@")
            text += token.text;
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
    case 9: return "0%";
    case 10: return "0.00%";
    case 11: return "0.00E+00";
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
    case 45: return "mm:ss";
    case 46: return "[h]:mm:ss";
    case 47: return "mm:ss.0";
    case 48: return "##0.0E+0";
    default: return "General";
    }
}

std::string FormatNumber(double value, std::string_view code, bool from1904) {
    if (!std::isfinite(value) || code.empty() || EqualsNoCase(code, "General"))
        return PlainNumber(value);
    const std::vector<Section> sections = Scanner(code.substr(0, 255)).Sections();
    const Section* section = Choose(sections, value);
    if (!section)
        return PlainNumber(value);
    if (section->IsDate())
        return LayOutDate(value, *section, from1904).value_or(PlainNumber(value));
    if (section->Has(Kind::Fraction) && section->Has(Kind::Digit))
        return PlainNumber(value);
    // A section for negative numbers brings its own sign.
    const bool bringsSign = section == &sections[0] ? false : section->condition.empty();
    const bool rounded = Digits(std::abs(value), ShapeOf(*section)).AllZero() && section->Has(Kind::Digit);
    const bool minus = value < 0 && !bringsSign && !rounded;
    return (minus ? "-" : "") + LayOutNumber(std::abs(value), *section);
}

} // namespace velmora
