#include "wizard/FieldWords.h"

#include "base/Error.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>

namespace velmora {
namespace {

struct Setting {
    std::string key;
    std::string value;
};

[[noreturn]] void Refuse(const std::string& cause) {
    throw Error(cause);
}

/// The quoted text at the front, which is cut off.
std::string TakeQuoted(std::string_view& rest) {
    std::string text;
    rest.remove_prefix(1);
    for (;;) {
        const std::size_t quote = rest.find('"');
        if (quote == std::string_view::npos)
            Refuse("a double quote is not closed");
        text += rest.substr(0, quote);
        rest.remove_prefix(quote + 1);
        if (!rest.starts_with('"'))
            return text;
        text += '"';
        rest.remove_prefix(1);
    }
}

std::string TakeValue(std::string_view& rest) {
    if (rest.starts_with('"'))
        return TakeQuoted(rest);
    std::string text(rest.substr(0, rest.find(',')));
    rest.remove_prefix(text.size());
    return text;
}

std::vector<Setting> TakeApart(std::string_view rest) {
    std::vector<Setting> settings;
    for (;;) {
        Setting& setting = settings.emplace_back();
        setting.key = rest.substr(0, rest.find_first_of("=,"));
        rest.remove_prefix(setting.key.size());
        if (rest.starts_with('=')) {
            rest.remove_prefix(1);
            setting.value = TakeValue(rest);
        }
        if (rest.empty())
            return settings;
        if (rest[0] != ',')
            Refuse("a comma must follow the closing quote");
        rest.remove_prefix(1);
    }
}

int Whole(const Setting& setting, std::string_view text, int least, int most) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > most)
        Refuse(setting.key + " must be " + std::to_string(least) + " to " + std::to_string(most));
    return number;
}

const std::string& OneLineOnly(const Setting& setting) {
    if (OneLine(setting.value) != setting.value)
        Refuse(setting.key + " must be one line");
    return setting.value;
}

template <std::size_t count> void Tick(std::array<bool, count>& ticked, const Setting& setting) {
    ticked = {};
    for (const std::string_view name : Split(setting.value, '+'))
        ticked[static_cast<std::size_t>(Whole(setting, name, 1, static_cast<int>(count))) - 1] = true;
}

using Reader = std::function<void(FieldChoice&, const Setting&)>;
using ReaderTable = std::map<std::string, Reader>;

const ReaderTable& ReadersOf(ValueKind kind) {
    static const Reader repeat = [](FieldChoice& c, const Setting& s) {
        c.repeat = Whole(s, s.value, 1, kMostRepeats);
    };
    static const ReaderTable numbers = {
        {"first", [](FieldChoice& c, const Setting& s) { c.numbers.first = Whole(s, s.value, INT32_MIN, INT32_MAX); }},
        {"width", [](FieldChoice& c, const Setting& s) { c.numbers.width = Whole(s, s.value, 0, kWidestFormat); }},
        {"before", [](FieldChoice& c, const Setting& s) { c.numbers.before = OneLineOnly(s); }},
        {"after", [](FieldChoice& c, const Setting& s) { c.numbers.after = OneLineOnly(s); }},
        {"repeat", repeat}};
    static const ReaderTable names = {
        {"style", [](FieldChoice& c, const Setting& s) { c.style = Whole(s, s.value, 1, kNameStyles); }},
        {"names",
         [](FieldChoice& c, const Setting& s) { c.kind == ValueKind::Month ? Tick(c.months, s) : Tick(c.days, s); }},
        {"upper",
         [](FieldChoice& c, const Setting& s) {
             if (!s.value.empty())
                 Refuse("upper takes no value");
             c.upper = true;
         }},
        {"repeat", repeat}};
    static const ReaderTable text = {{"value", [](FieldChoice& c, const Setting& s) { c.text = OneLineOnly(s); }}};
    return kind == ValueKind::Numeric ? numbers : kind == ValueKind::Text ? text : names;
}

constexpr std::array<const char*, 4> kKindWords = {"number", "month", "day", "text"}; // in the order of ValueKind

FieldSetting ReadKind(const Setting& setting) {
    if (setting.key.size() != 1 || setting.key[0] < 'A' || setting.key[0] > 'C')
        Refuse("starts with no field A, B or C");
    const auto kind = std::find(kKindWords.begin(), kKindWords.end(), setting.value);
    if (kind == kKindWords.end())
        Refuse("\"" + setting.value + "\" is none of number, month, day and text");
    FieldSetting read{setting.key[0] - 'A' + 1, {}};
    read.choice.kind = static_cast<ValueKind>(kind - kKindWords.begin());
    read.choice.months.fill(true);
    read.choice.days.fill(true);
    read.choice.text.clear();
    return read;
}

std::string Quoted(const std::string& value) {
    std::string quoted = "\"";
    for (const char c : value)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

/// ",key=value", quoted where the value would not come back otherwise; nothing for an empty one.
std::string Part(const std::string& key, const std::string& value) {
    if (value.empty())
        return "";
    const bool plain = value.find_first_of("\",") == std::string::npos && Trim(value) == value;
    return "," + key + "=" + (plain ? value : Quoted(value));
}

std::string NumberWords(const NumberSeries& numbers) {
    std::string first = Part("first", std::to_string(numbers.first));
    if (numbers.width == 0)
        return first;
    return first + Part("width", std::to_string(numbers.width)) + Part("before", numbers.before) +
           Part("after", numbers.after);
}

template <std::size_t count> std::string TickWords(const std::array<bool, count>& ticked) {
    std::string numbers;
    for (std::size_t i = 0; i < count; ++i)
        if (ticked[i])
            numbers += (numbers.empty() ? "" : "+") + std::to_string(i + 1);
    return std::find(ticked.begin(), ticked.end(), false) == ticked.end() ? "" : Part("names", numbers);
}

std::string NameWords(const FieldChoice& choice) {
    return Part("style", std::to_string(choice.style)) +
           (choice.kind == ValueKind::Month ? TickWords(choice.months) : TickWords(choice.days)) +
           (choice.upper ? ",upper" : "");
}

} // namespace

FieldSetting ParseFieldWords(const std::string& words) {
    const std::vector<Setting> settings = TakeApart(words);
    FieldSetting read = ReadKind(settings.front());
    const ReaderTable& readers = ReadersOf(read.choice.kind);
    for (std::size_t i = 1; i < settings.size(); ++i) {
        const auto reader = readers.find(settings[i].key);
        if (reader == readers.end())
            Refuse("\"" + settings[i].key + "\" is no setting of " + settings.front().value);
        reader->second(read.choice, settings[i]);
    }
    const NumberSeries& numbers = read.choice.numbers;
    if (numbers.width == 0 && !(numbers.before + numbers.after).empty())
        Refuse("before and after need a width");
    return read;
}

std::string FieldWords(const FieldSetting& setting) {
    const FieldChoice& choice = setting.choice;
    const std::string words = std::string(1, static_cast<char>('A' + setting.fieldNo - 1)) + "=" +
                              kKindWords.at(static_cast<std::size_t>(choice.kind));
    if (choice.kind == ValueKind::Text)
        return words + Part("value", choice.text);
    return words + (choice.kind == ValueKind::Numeric ? NumberWords(choice.numbers) : NameWords(choice)) +
           (choice.repeat > 1 ? Part("repeat", std::to_string(choice.repeat)) : "");
}

} // namespace velmora
