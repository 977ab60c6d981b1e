#include "workbook/FormatCode.h"

#include "base/Text.h"

#include <cstdlib>

namespace velmora {
namespace {

bool IsElapsed(std::string_view inner) {
    return !inner.empty() && ToUpper(inner).find_first_not_of(ToUpper(inner)[0]) == std::string::npos &&
           std::string_view("HMS").find(ToUpper(inner)[0]) != std::string_view::npos;
}

/// What stands in brackets: elapsed time, a condition, a currency sign; colours and languages show nothing.
void TakeBrackets(FormatSection& section, std::string_view inner) {
    if (IsElapsed(inner))
        section.tokens.push_back({FormatKind::Elapsed, ToUpper(inner)});
    else if (!inner.empty() && std::string_view("<>=").find(inner[0]) != std::string_view::npos)
        section.condition = inner;
    else if (inner.starts_with('$'))
        section.tokens.push_back({FormatKind::Literal, std::string(inner.substr(1, inner.find('-') - 1))});
}

class Scanner {
public:
    explicit Scanner(std::string_view code) : code_(code) {}

    std::vector<FormatSection> Sections() {
        std::vector<FormatSection> sections(1);
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
    void Step(FormatSection& section) {
        const char sign = code_[at_];
        const std::string rest = ToUpper(code_.substr(at_, 7));
        const auto take = [&](FormatKind kind, std::size_t length) {
            section.tokens.push_back({kind, std::string(code_.substr(at_, length))});
            at_ += section.tokens.back().text.size();
        };
        if (sign == '"')
            section.tokens.push_back({FormatKind::Literal, std::string(Quoted('"'))});
        else if (sign == '[')
            TakeBrackets(section, Quoted(']'));
        else if (sign == '\\' || sign == '_' || sign == '*')
            TakeEscape(section, sign);
        else if (rest == "GENERAL")
            take(FormatKind::General, 7);
        else if (rest.starts_with("AM/PM"))
            take(FormatKind::AmPm, 5);
        else if (rest.starts_with("A/P"))
            take(FormatKind::AmPm, 3);
        else if (rest.starts_with("E+") || rest.starts_with("E-"))
            take(FormatKind::Exponent, 2);
        else if (std::string_view("YMDHS").find(rest[0]) != std::string_view::npos)
            take(FormatKind::DatePart, std::min(rest.find_first_not_of(rest[0]), rest.size()));
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
    void TakeEscape(FormatSection& section, char sign) {
        const std::string_view shown = LeftCharacters(code_.substr(at_ + 1), 1);
        if (sign != '*')
            section.tokens.push_back({FormatKind::Literal, sign == '_' ? " " : std::string(shown)});
        at_ += 1 + shown.size();
    }

    static FormatKind KindOf(char sign) {
        switch (sign) {
        case '0':
        case '#':
        case '?': return FormatKind::Digit;
        case '.': return FormatKind::Point;
        case ',': return FormatKind::Comma;
        case '%': return FormatKind::Percent;
        case '/': return FormatKind::Fraction;
        default: return FormatKind::Literal;
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

} // namespace

std::vector<FormatSection> ParseFormatCode(std::string_view code) {
    return Scanner(code).Sections();
}

const FormatSection* SectionFor(const std::vector<FormatSection>& sections, double value) {
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

} // namespace velmora
