#include "wizard/ValueSeries.h"

#include "base/Error.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace velmora {
namespace {

// The vocabulary of the upper-case switch. "MEI." is in no table, but captions with it are converted too.
constexpr std::string_view kUpperNames[] = {
    "JANUARY", "FEBRUARY", "MARCH",     "APRIL",    "MAY",      "JUNE",     "JULY",      "AUGUST",   "SEPTEMBER",
    "OCTOBER", "NOVEMBER", "DECEMBER",  "JAN.",     "FEB.",     "MAR.",     "APR.",      "JUN.",     "JUL.",
    "AUG.",    "SEP.",     "OCT.",      "NOV.",     "DEC.",     "JANUARIE", "FEBRUARIE", "MAART",    "MEI",
    "JUNIE",   "JULIE",    "AUGUSTUS",  "OKTOBER",  "DESEMBER", "MRT.",     "MEI.",      "OKT.",     "DES.",
    "MONDAY",  "TUESDAY",  "WEDNESDAY", "THURSDAY", "FRIDAY",   "SATURDAY", "SUNDAY",    "MON.",     "TUES.",
    "WED.",    "THUR.",    "FRI.",      "SAT.",     "SUN.",     "MAANDAG",  "DINSDAG",   "WOENSDAG", "DONDERDAG",
    "VRYDAG",  "SATERDAG", "SONDAG",    "MA.",      "DI.",      "WO.",      "DO.",       "VR.",      "SON."};

/// A capital first letter and small ones behind it.
std::string Capitalised(std::string_view upper) {
    std::string text(upper);
    for (std::size_t i = 1; i < text.size(); ++i)
        if (text[i] >= 'A' && text[i] <= 'Z')
            text[i] = static_cast<char>(text[i] - 'A' + 'a');
    return text;
}

// One of these per kind of series: the check of a whole run, and the value of entry `index`, counted from 0. Values are
// written over old ones, so that a run costs no memory for texts that fit their strings.

void CheckRange(const NumberSeries& series, std::int32_t count) {
    if (count > 0 && series.first > std::numeric_limits<std::int32_t>::max() - (count - 1) / series.repeat)
        throw OverflowError(kOutOfRange);
}
void CheckRange(const NameSeries&, std::int32_t) {}
void CheckRange(const TextSeries&, std::int32_t) {}

void WriteValue(const NumberSeries& series, std::int32_t index, std::string& value) {
    std::array<char, 16> text{};
    const char* const end =
        std::to_chars(text.data(), text.data() + text.size(), series.first + index / series.repeat).ptr;
    if (series.width == 0) {
        value.assign<const char*>(text.data(), end);
        return;
    }
    const char* const digits = text.data() + (text[0] == '-' ? 1 : 0);
    value.assign(series.before);
    value.append<const char*>(text.data(), digits);
    value.append(static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, series.width - (end - digits))), '0');
    value.append(digits, end);
    value.append(series.after);
}

void WriteValue(const NameSeries& series, std::int32_t index, std::string& value) {
    value = series.names[static_cast<std::size_t>(index / series.repeat) % series.names.size()];
}

void WriteValue(const TextSeries& series, std::int32_t, std::string& value) {
    value = series.text;
}

} // namespace

const std::array<std::array<std::string_view, kMonths>, kNameStyles> MonthNameTable = {{
    {"January", "February", "March", "April", "May", "June", "July", "August", "September", "October", "November",
     "December"},
    {"Januarie", "Februarie", "Maart", "April", "Mei", "Junie", "Julie", "Augustus", "September", "Oktober", "November",
     "Desember"},
    {"Jan.", "Feb.", "Mar.", "Apr.", "May", "Jun.", "Jul.", "Aug.", "Sep.", "Oct.", "Nov.", "Dec."},
    {"Jan.", "Feb.", "Mrt.", "Apr.", "Mei", "Jun.", "Jul.", "Aug.", "Sep.", "Okt.", "Nov.", "Des."},
}};

const std::array<std::array<std::string_view, kDays>, kNameStyles> DayNameTable = {{
    {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"},
    {"Maandag", "Dinsdag", "Woensdag", "Donderdag", "Vrydag", "Saterdag", "Sondag"},
    {"Mon.", "Tues.", "Wed.", "Thur.", "Fri.", "Sat.", "Sun."},
    {"Ma.", "Di.", "Wo.", "Do.", "Vr.", "Sat.", "Son."},
}};

const std::array<std::string_view, kNameStyles> kStyleCaptions = {"English Full Word", "Afrikaans Full Word",
                                                                  "English Abbreviated", "Afrikaans Abbreviated"};

const std::array<std::string_view, 15> kNumberFormats = {
    "No, I donot require any number formatting.",
    "Make each number at least 2 digits long - eg 01",
    "Make each number at least 3 digits long - eg 001",
    "Make each number at least 4 digits long - eg 0001",
    "Make each number at least 5 digits long - eg 00001",
    "Make each number at least 6 digits long - eg 000001",
    "Make each number at least 7 digits long - eg 0000001",
    "Make each number at least 8 digits long - eg 00000001",
    "Make each number at least 9 digits long - eg 000000001",
    "Make each number at least 10 digits long - eg 0000000001",
    "Make each number at least 11 digits long - eg 00000000001",
    "Make each number at least 12 digits long - eg 000000000001",
    "Make each number at least 13 digits long - eg 0000000000001",
    "Make each number at least 14 digits long - eg 00000000000001",
    "Make each number at least 15 digits long - eg 000000000000001"};

int FormatWidth(std::string_view format) {
    constexpr std::string_view kExample = "eg ";
    const std::size_t example = format.find(kExample);
    return example == std::string_view::npos ? 0 : static_cast<int>(format.size() - example - kExample.size());
}

std::size_t FormatOfWidth(int width) {
    if (width == kTextsAlone)
        return 0;
    const auto found = std::find_if(kNumberFormats.begin(), kNumberFormats.end(),
                                    [&](std::string_view format) { return FormatWidth(format) >= width; });
    return std::min(static_cast<std::size_t>(found - kNumberFormats.begin()), kNumberFormats.size() - 1);
}

int WidthOf(std::string_view digits, bool withTexts) {
    if (digits.size() > 1 && digits.starts_with('0'))
        return static_cast<int>(digits.size());
    return withTexts ? kTextsAlone : 0;
}

std::string UpperCaption(std::string_view caption) {
    for (const std::string_view upper : kUpperNames)
        if (Capitalised(upper) == caption)
            return std::string(upper);
    return std::string(caption);
}

std::string LowerCaption(std::string_view caption) {
    const bool known = std::find(std::begin(kUpperNames), std::end(kUpperNames), caption) != std::end(kUpperNames);
    return known ? Capitalised(caption) : std::string(caption);
}

TextSeries MakeTextSeries(std::string_view input, std::int16_t most) {
    const std::string line = OneLine(input);
    return {std::string(LeftCharacters(Trim(line), static_cast<std::size_t>(most)))};
}

void FillBuffer(const ValueSeries& series, FieldTexts& buffer) {
    std::visit(
        [&](const auto& values) {
            CheckRange(values, buffer.Count());
            for (std::int32_t tab = 1; tab <= buffer.Count(); ++tab)
                WriteValue(values, tab - 1, buffer(tab));
        },
        series);
}

std::string ValueAt(const ValueSeries& series, std::int32_t tab, std::int32_t count) {
    std::string value;
    std::visit(
        [&](const auto& values) {
            CheckRange(values, count);
            WriteValue(values, tab - 1, value);
        },
        series);
    return value;
}

std::string PreviewText(const ValueSeries& series, std::int32_t count) {
    constexpr std::int32_t kShown = 3;
    if (const auto* fixed = std::get_if<TextSeries>(&series))
        return fixed->text + " on every tab";
    const std::int32_t shown = std::min(count, kShown);
    std::string text;
    for (std::int32_t tab = 1; tab <= shown; ++tab)
        text += (text.empty() ? "" : ", ") + ValueAt(series, tab, count);
    return count == shown ? text : text + (count == shown + 1 ? ", " : " ... ") + ValueAt(series, count, count);
}

std::string OverviewText(const ValueSeries& series, std::int32_t count) {
    std::string first = ValueAt(series, 1, count);
    if (count == 1)
        return first;
    if (count > 2 && !std::holds_alternative<NumberSeries>(series))
        return first + ", " + ValueAt(series, 2, count) + " ...";
    return first + (count == 2 ? ", " : " ... ") + ValueAt(series, count, count);
}

} // namespace velmora
