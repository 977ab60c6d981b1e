#include "batch/FieldOption.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "batch/BatchProgram.h"

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
    throw UsageError(cause);
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

void Tick(FieldOption& option, const Setting& setting) {
    option.ticked.assign(option.ticked.size(), false);
    for (const std::string_view name : Split(setting.value, '+'))
        option.ticked[static_cast<std::size_t>(Whole(setting, name, 1, static_cast<int>(option.ticked.size()))) - 1] =
            true;
}

using Reader = std::function<void(FieldOption&, const Setting&)>;
using Readers = std::map<std::string, Reader>;

const Readers& ReadersOf(ValueKind kind) {
    static const Readers numbers = {
        {"first", [](FieldOption& o, const Setting& s) { o.numbers.first = Whole(s, s.value, INT32_MIN, INT32_MAX); }},
        {"width", [](FieldOption& o, const Setting& s) { o.numbers.width = Whole(s, s.value, 0, kWidestFormat); }},
        {"before", [](FieldOption& o, const Setting& s) { o.numbers.before = OneLineOnly(s); }},
        {"after", [](FieldOption& o, const Setting& s) { o.numbers.after = OneLineOnly(s); }}};
    static const Readers names = {
        {"style", [](FieldOption& o, const Setting& s) { o.style = Whole(s, s.value, 1, kNameStyles); }},
        {"names", Tick},
        {"upper", [](FieldOption& o, const Setting& s) {
             if (!s.value.empty())
                 Refuse("upper takes no value");
             o.upper = true;
         }}};
    static const Readers text = {{"value", [](FieldOption& o, const Setting& s) { o.text = OneLineOnly(s); }}};
    return kind == ValueKind::Numeric ? numbers : kind == ValueKind::Text ? text : names;
}

void ReadKind(FieldOption& option, const Setting& setting) {
    static const std::map<std::string, ValueKind> kinds = {{"number", ValueKind::Numeric},
                                                           {"month", ValueKind::Month},
                                                           {"day", ValueKind::Day},
                                                           {"text", ValueKind::Text}};
    if (setting.key.size() != 1 || setting.key[0] < 'A' || setting.key[0] > 'C')
        Refuse("starts with no field A, B or C");
    option.fieldNo = setting.key[0] - 'A' + 1;
    const auto kind = kinds.find(setting.value);
    if (kind == kinds.end())
        Refuse("\"" + setting.value + "\" is none of number, month, day and text");
    option.kind = kind->second;
    option.ticked.assign(option.kind == ValueKind::Month ? kMonths : kDays, true);
}

FieldOption Parse(const std::string& text) {
    FieldOption option;
    option.source = OneLine(text);
    const std::vector<Setting> settings = TakeApart(text);
    ReadKind(option, settings.front());
    const Readers& readers = ReadersOf(option.kind);
    for (std::size_t i = 1; i < settings.size(); ++i) {
        const auto reader = readers.find(settings[i].key);
        if (reader == readers.end())
            Refuse("\"" + settings[i].key + "\" is no setting of " + settings.front().value);
        reader->second(option, settings[i]);
    }
    if (option.numbers.width == 0 && !(option.numbers.before + option.numbers.after).empty())
        Refuse("before and after need a width");
    return option;
}

} // namespace

FieldOption ParseFieldOption(const std::string& option) {
    try {
        return Parse(option);
    } catch (const UsageError& error) {
        throw UsageError("--field " + OneLine(option) + ": " + error.what());
    }
}

} // namespace velmora
