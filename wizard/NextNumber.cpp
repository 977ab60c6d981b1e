#include "wizard/NextNumber.h"

#include "base/Text.h"

#include <charconv>
#include <limits>

namespace velmora {
namespace {

constexpr std::string_view kDigits = "0123456789";

std::optional<NumberSeries> SeriesAfter(std::string_view text) {
    const std::size_t first = text.find_first_of(kDigits);
    if (first == std::string_view::npos)
        return std::nullopt;
    const std::size_t end = text.find_last_of(kDigits) + 1;
    const std::string_view digits = text.substr(first, end - first);
    std::int32_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || stop != digits.data() + digits.size() ||
        number == std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return NumberSeries{number + 1, WidthOf(digits, digits.size() < text.size()), std::string(text.substr(0, first)),
                        std::string(text.substr(end))};
}

/// The number of a value of the series; nullopt for a text that is none.
std::optional<std::int32_t> NumberIn(std::string_view text, const NumberSeries& series) {
    const bool bare = series.width == 0;
    const std::string_view before = bare ? "" : std::string_view(series.before);
    const std::string_view after = bare ? "" : std::string_view(series.after);
    if (text.size() < before.size() + after.size() || !text.starts_with(before) || !text.ends_with(after))
        return std::nullopt;
    const std::string_view digits = text.substr(before.size(), text.size() - before.size() - after.size());
    std::int32_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && stop == digits.data() + digits.size() ? std::optional(number) : std::nullopt;
}

} // namespace

std::int32_t FirstNumberAfter(const TabDocument& document, int field, const NumberSeries& series) {
    const FieldTexts& texts = document.Field(field);
    for (std::int32_t tab = texts.Count(); tab >= 1; --tab)
        if (const auto number = NumberIn(texts(tab), series);
            number && *number < std::numeric_limits<std::int32_t>::max())
            return *number + 1;
    return series.first;
}

std::optional<NumberSeries> NextNumberInDocument(const TabDocument& document, int field) {
    const FieldTexts& texts = document.Field(field);
    for (std::int32_t tab = texts.Count(); tab >= 1; --tab)
        if (auto series = SeriesAfter(Trim(texts(tab))))
            return series;
    return std::nullopt;
}

} // namespace velmora
