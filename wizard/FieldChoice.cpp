#include "wizard/FieldChoice.h"

#include "base/Text.h"

#include <charconv>

namespace velmora {
namespace {

template <std::size_t count>
std::vector<std::string> Captions(const std::array<std::string_view, count>& names, bool upper) {
    std::vector<std::string> captions;
    for (const std::string_view name : names)
        captions.push_back(upper ? UpperCaption(name) : std::string(name));
    return captions;
}

template <std::size_t count>
NameSeries Ticked(const std::vector<std::string>& captions, const std::array<bool, count>& ticked, int repeat) {
    NameSeries series{{}, repeat};
    for (std::size_t i = 0; i < count; ++i)
        if (ticked[i])
            series.names.push_back(captions[i]);
    return series;
}

} // namespace

std::vector<std::string> NamesOf(const FieldChoice& choice) {
    const auto style = static_cast<std::size_t>(choice.style - 1);
    if (choice.kind == ValueKind::Month)
        return Captions(MonthNameTable.at(style), choice.upper);
    return Captions(DayNameTable.at(style), choice.upper);
}

std::optional<ValueSeries> SeriesOf(const FieldChoice& choice, std::int16_t most) {
    if (choice.kind == ValueKind::Text)
        return MakeTextSeries(choice.text, most);
    if (choice.kind == ValueKind::Numeric) {
        NumberSeries numbers = choice.numbers;
        numbers.repeat = choice.repeat;
        return numbers;
    }
    const NameSeries names = choice.kind == ValueKind::Month ? Ticked(NamesOf(choice), choice.months, choice.repeat)
                                                             : Ticked(NamesOf(choice), choice.days, choice.repeat);
    return names.names.empty() ? std::nullopt : std::optional<ValueSeries>(names);
}

FieldChoice ChoiceOfFirstText(const std::string& text) {
    FieldChoice choice;
    const std::string line(Trim(OneLine(text)));
    const std::size_t digits = line.find_last_not_of("0123456789") + 1; // 0 for nothing but digits
    const auto [end, error] = std::from_chars(line.data() + digits, line.data() + line.size(), choice.numbers.first);
    if (error == std::errc() && line.size() - digits <= kWidestFormat) {
        choice.numbers.before = line.substr(0, digits);
        choice.numbers.width = WidthOf(line.substr(digits), digits > 0);
    } else {
        choice.kind = ValueKind::Text;
        choice.text = line;
    }
    return choice;
}

std::string FirstTextOf(const FieldChoice& choice) {
    if (choice.kind == ValueKind::Text)
        return choice.text;
    return choice.kind == ValueKind::Numeric ? ValueAt(choice.numbers, 1, 1) : "";
}

} // namespace velmora
