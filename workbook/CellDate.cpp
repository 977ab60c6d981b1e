#include "workbook/CellDate.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace velmora {
namespace {

/// A moment taken apart.
struct Moment {
    std::chrono::year_month_day date;
    unsigned weekday = 0;   ///< 0: Sunday
    std::int64_t ticks = 0; ///< milliseconds since day 0
};

/// Day 0. Day 60 is a 29 February 1900 that never was; the days before it are one later than they count.
std::chrono::sys_days Origin(bool from1904, bool early) {
    using namespace std::chrono;
    return from1904 ? sys_days(year(1904) / 1 / 1) : sys_days(year(1899) / 12 / (early ? 31 : 30));
}

/// nullopt outside the years 1900 to 9999. Without decimals of seconds the moment is rounded to whole ones.
std::optional<Moment> MomentOf(double serial, bool from1904, bool decimals) {
    if (serial < 0 || serial > 2958465)
        return std::nullopt;
    constexpr std::int64_t kDay = 86'400'000;
    Moment moment;
    const double unit = decimals ? 1 : 1000;
    moment.ticks = static_cast<std::int64_t>(std::round(serial * kDay / unit) * unit);
    auto days = moment.ticks / kDay;
    using namespace std::chrono;
    const sys_days day = Origin(from1904, days < 60) + std::chrono::days(days);
    moment.date = year_month_day(day);
    moment.weekday = weekday(day).c_encoding();
    return moment;
}

constexpr std::array<const char*, 12> kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                                 "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};

std::string Padded(std::int64_t number, std::size_t places) {
    std::string text = std::to_string(number);
    text.insert(0, std::min<std::size_t>(places, 20) - std::min<std::size_t>({places, 20, text.size()}), '0');
    return text;
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
bool IsMinutes(const std::vector<FormatToken>& tokens, std::size_t index) {
    const auto letter = [](const FormatToken& token) { return ToUpper(token.text)[0]; };
    const auto isTime = [](const FormatToken& token) {
        return token.kind == FormatKind::DatePart || token.kind == FormatKind::Elapsed;
    };
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

std::string DatePart(const Moment& moment, const FormatSection& section, std::size_t index) {
    const FormatToken& token = section.tokens[index];
    const std::size_t places = token.text.size();
    const std::int64_t seconds = moment.ticks / 1000;
    const std::int64_t hour = seconds / 3600 % 24;
    switch (ToUpper(token.text)[0]) {
    case 'Y':
        return places <= 2 ? Padded(static_cast<int>(moment.date.year()) % 100, 2)
                           : Padded(static_cast<int>(moment.date.year()), 4);
    case 'D': return DayText(moment, places);
    case 'H': return Padded(section.Has(FormatKind::AmPm) ? (hour + 11) % 12 + 1 : hour, places);
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

/// The digits at a place; nullopt where there are others.
std::optional<int> NumberAt(std::string_view text, std::size_t at, std::size_t places) {
    if (text.size() < at + places || text[at] == '-')
        return std::nullopt;
    int number = 0;
    const char* const end = text.data() + at + places;
    return std::from_chars(text.data() + at, end, number).ptr == end ? std::optional(number) : std::nullopt;
}

/// "18:45", perhaps with seconds and their decimals.
std::optional<double> DaysOfTime(std::string_view text) {
    const auto hour = NumberAt(text, 0, 2);
    const auto minute = NumberAt(text, 3, 2);
    double seconds = 0;
    const char* const end = text.data() + text.size();
    const bool whole = text.size() == 5 ||
                       (text.size() > 6 && text[5] == ':' && std::from_chars(text.data() + 6, end, seconds).ptr == end);
    if (!hour || !minute || text[2] != ':' || !whole)
        return std::nullopt;
    return (*hour * 3600 + *minute * 60 + seconds) / 86400;
}

/// "2024-03-01"
std::optional<double> DaysOfDate(std::string_view text, bool from1904) {
    const auto year = NumberAt(text, 0, 4);
    const auto month = NumberAt(text, 5, 2);
    const auto day = NumberAt(text, 8, 2);
    if (!year || !month || !day || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    const bool early = *year < 1900 || (*year == 1900 && *month < 3);
    const auto days = (std::chrono::sys_days(date) - Origin(from1904, early)).count();
    return date.ok() && days >= 0 ? std::optional<double>(days) : std::nullopt;
}

} // namespace

std::optional<double> SerialOfIsoDate(std::string_view text, bool from1904) {
    constexpr std::size_t kDateSize = 10;
    if (text.ends_with('Z'))
        text.remove_suffix(1);
    const bool dated = text.size() >= kDateSize && text[4] == '-';
    const auto day = dated ? DaysOfDate(text.substr(0, kDateSize), from1904) : 0;
    text.remove_prefix(dated ? kDateSize : 0);
    if (dated && text.empty())
        return day;
    const auto time = DaysOfTime(text.substr(text.starts_with('T') ? 1 : 0));
    return day && time ? std::optional(*day + *time) : std::nullopt;
}

std::optional<std::string> LayOutDate(double value, const FormatSection& section, bool from1904) {
    const auto moment = MomentOf(value, from1904, section.Has(FormatKind::Digit));
    if (!moment)
        return std::nullopt;
    std::string text;
    const std::string thousandths = Padded(moment->ticks % 1000, 3);
    std::size_t decimal = 0;
    for (std::size_t i = 0; i < section.tokens.size(); ++i) {
        const FormatToken& token = section.tokens[i];
        if (token.kind == FormatKind::DatePart)
            text += DatePart(*moment, section, i);
        else if (token.kind == FormatKind::Elapsed)
            text += ElapsedText(*moment, token.text);
        else if (token.kind == FormatKind::AmPm)
            text += AmPmText(*moment, token.text);
        else if (token.kind == FormatKind::Digit)
            text += decimal < thousandths.size() ? thousandths.substr(decimal++, 1) : "0";
        else if (token.kind != FormatKind::General && token.text != "@")
            text += token.text;
    }
    return text;
}

} // namespace velmora
