// What a person chose for one field: the entries of the page that gives it its values, kept while the wizard is open
// and from one run to the next.
#pragma once

#include "wizard/ValueSeries.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

enum class ValueKind { Numeric, Month, Day, Text };

struct FieldChoice {
    ValueKind kind = ValueKind::Numeric;
    NumberSeries numbers = {}; ///< whose `repeat` is not used
    int style = 1;             ///< of the names, 1 to 4
    std::array<bool, kMonths> months = {};
    std::array<bool, kDays> days = {};
    bool upper = false;                        ///< names in capitals
    std::string text = "12345678901234567890"; ///< what the text page's box holds at first
    int repeat = 1;                            ///< tabs in a row with the same number or name
    bool operator==(const FieldChoice&) const = default;
};

/// The values; a text keeps its first `most` characters. nullopt when no name is ticked.
std::optional<ValueSeries> SeriesOf(const FieldChoice& choice, std::int16_t most);
/// The 12 months, or for any other kind than months the 7 days, in the style chosen, in capitals where they are.
std::vector<std::string> NamesOf(const FieldChoice& choice);

/// What a first text stands for: one that ends in a number counts on from it ("2026/0001"), any other stands on every
/// tab.
FieldChoice ChoiceOfFirstText(const std::string& text);
/// What would have to be typed for it; empty for names.
std::string FirstTextOf(const FieldChoice& choice);

} // namespace velmora
