#include "workbook/CellFraction.h"

#include <cmath>
#include <cstdint>

namespace velmora {
namespace {

/// Where the parts of a fraction stand among the tokens of its section.
struct FractionPlaces {
    std::size_t numerator = 0;
    std::size_t slash = 0;
    std::size_t end = 0; ///< behind the denominator
    bool whole = false;  ///< whole numbers stand before it

    char Place(const FormatSection& section) const { return section.tokens[numerator].text[0]; }
};

/// Also the digits of a denominator that the code gives.
bool IsDenominator(const FormatToken& token) {
    return token.kind == FormatKind::Digit || (token.text.size() == 1 && token.text[0] >= '1' && token.text[0] <= '9');
}

std::optional<FractionPlaces> PlacesOf(const FormatSection& section) {
    const auto& tokens = section.tokens;
    const auto isDigit = [](const FormatToken& token) { return token.kind == FormatKind::Digit; };
    FractionPlaces places;
    while (places.slash < tokens.size() && tokens[places.slash].kind != FormatKind::Fraction)
        ++places.slash;
    for (places.numerator = places.slash; places.numerator > 0 && isDigit(tokens[places.numerator - 1]);)
        --places.numerator;
    for (places.end = places.slash + 1; places.end < tokens.size() && IsDenominator(tokens[places.end]);)
        ++places.end;
    const auto numerator = tokens.begin() + static_cast<std::ptrdiff_t>(places.numerator);
    places.whole = std::any_of(tokens.begin(), numerator, isDigit);
    const bool found = places.numerator < places.slash && places.end > places.slash + 1;
    return found ? std::optional(places) : std::nullopt;
}

struct Fraction {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;
};

Fraction Nearest(double value, std::int64_t denominator) {
    return {std::llround(value * static_cast<double>(denominator)), denominator};
}

/// Of those that are as near, the one of the smallest denominator.
Fraction Closest(double value, std::int64_t mostDenominator) {
    constexpr double kNearer = 1e-12;
    Fraction best = Nearest(value, 1);
    double error = std::abs(value - static_cast<double>(best.numerator));
    for (std::int64_t denominator = 2; denominator <= mostDenominator; ++denominator) {
        const Fraction next = Nearest(value, denominator);
        const double off = std::abs(value - static_cast<double>(next.numerator) / static_cast<double>(denominator));
        if (off < error - kNearer) {
            best = next;
            error = off;
        }
    }
    return best;
}

Fraction FractionOf(double value, const FormatSection& section, const FractionPlaces& places) {
    constexpr std::size_t kMostPlaces = 3;
    std::string denominator;
    for (std::size_t i = places.slash + 1; i < places.end; ++i)
        denominator += section.tokens[i].text;
    if (denominator.find_first_not_of("0123456789") == std::string::npos && denominator[0] != '0')
        return Nearest(value, std::stoll(denominator.substr(0, 2 * kMostPlaces)));
    return Closest(value, std::llround(std::pow(10, std::min(denominator.size(), kMostPlaces))) - 1);
}

std::string FractionText(const Fraction& fraction, const FormatSection& section, const FractionPlaces& places) {
    std::string above = std::to_string(fraction.numerator);
    std::string below = std::to_string(fraction.denominator);
    if (places.Place(section) == '?')
        above.insert(0, places.slash - places.numerator - std::min(above.size(), places.slash - places.numerator), ' ');
    if (section.tokens[places.slash + 1].text == "?")
        below.append(places.end - places.slash - 1 - std::min(below.size(), places.end - places.slash - 1), ' ');
    return above + "/" + below;
}

} // namespace

std::optional<std::string> LayOutFraction(double value, const FormatSection& section) {
    const auto places = PlacesOf(section);
    if (!places || value >= 1e15)
        return std::nullopt;
    double whole = places->whole ? std::floor(value) : 0;
    Fraction fraction = FractionOf(value - whole, section, *places);
    if (places->whole && fraction.numerator == fraction.denominator) {
        whole += 1;
        fraction.numerator = 0;
    }
    const bool shown = !places->whole || fraction.numerator > 0;
    std::string text;
    bool wholeShown = false;
    for (std::size_t i = 0; i < section.tokens.size(); ++i) {
        const FormatToken& token = section.tokens[i];
        if (i == places->numerator) {
            text += shown ? FractionText(fraction, section, *places) : "";
            i = places->end - 1;
        } else if (token.kind == FormatKind::Digit && i < places->numerator && !wholeShown) {
            wholeShown = true;
            if (whole > 0 || !shown || token.text == "0")
                text += std::to_string(static_cast<std::int64_t>(whole));
        } else if (token.kind == FormatKind::Literal && (shown || !wholeShown || i > places->end))
            text += token.text;
    }
    return text;
}

} // namespace velmora
