#include "base/NaturalOrder.h"

#include "base/Text.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kMostLeadingZeros = 254; // that are told apart

/// The digits of a number without leading zeros, behind their count, so that numbers stand by their value when they are
/// compared digit by digit. The count is as many nines as go into it, and the rest.
std::string Countable(std::string_view significant) {
    constexpr std::size_t kNine = 9;
    const char rest = static_cast<char>('0' + significant.size() % kNine);
    return (std::string(significant.size() / kNine, '9') + rest).append(significant);
}

struct Numbered {
    std::string text;
    std::string leadingZeros; ///< a character for each number
};

Numbered WithCountableNumbers(std::string_view text) {
    Numbered numbered;
    while (!text.empty()) {
        const std::size_t letters = std::min(text.find_first_of(kDigits), text.size());
        numbered.text.append(text.substr(0, letters));
        text.remove_prefix(letters);
        if (text.empty())
            break;
        const std::size_t digits = std::min(text.find_first_not_of(kDigits), text.size());
        const std::size_t zeros = std::min(text.find_first_not_of('0'), digits);
        numbered.text += Countable(text.substr(zeros, digits - zeros));
        numbered.leadingZeros += static_cast<char>(std::min(zeros, kMostLeadingZeros) + 1);
        text.remove_prefix(digits);
    }
    return numbered;
}

std::string Transformed(const std::locale& locale, const std::string& text) {
    return std::use_facet<std::collate<char>>(locale).transform(text.data(), text.data() + text.size());
}

} // namespace

std::locale PersonsLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic();
    }
}

NaturalOrder::NaturalOrder(const std::locale& locale)
    : locale_(locale), foldsCase_(Transformed(locale_, "B") < Transformed(locale_, "a")) {}

std::string NaturalOrder::Key(std::string_view text) const {
    const Numbered numbered = WithCountableNumbers(text);
    std::string key = foldsCase_ ? FoldCase(numbered.text) : Transformed(locale_, numbered.text);
    key += '\0'; // lower than all that a longer text has here
    return key += numbered.leadingZeros;
}

} // namespace velmora
