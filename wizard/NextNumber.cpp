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
    const bool bare = digits.size() == text.size() && (digits.size() == 1 || digits[0] != '0');
    return NumberSeries{number + 1, bare ? 0 : static_cast<int>(digits.size()), std::string(text.substr(0, first)),
                        std::string(text.substr(end))};
}

} // namespace

std::optional<NumberSeries> NextNumberInDocument(const TabDocument& document, int field) {
    const FieldTexts& texts = document.Field(field);
    for (std::int32_t tab = texts.Count(); tab >= 1; --tab)
        if (auto series = SeriesAfter(Trim(texts(tab))))
            return series;
    return std::nullopt;
}

} // namespace velmora
