// The values that the wizard gives to new tabs: running numbers, names of months and days in turn, or one text for all.
#pragma once

#include "document/TabDocument.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmora {

inline constexpr int kNameStyles = 4;
inline constexpr int kMonths = 12;
inline constexpr int kDays = 7;

/// Indexed by style - 1 and month - 1. The irregular abbreviations are as they have always been printed.
extern const std::array<std::array<std::string_view, kMonths>, kNameStyles> MonthNameTable;
/// The week starts on Monday.
extern const std::array<std::array<std::string_view, kDays>, kNameStyles> DayNameTable;
/// The captions of the styles 1 to 4.
extern const std::array<std::string_view, kNameStyles> kStyleCaptions;
/// The choices of a number's format, as the list shows them.
extern const std::array<std::string_view, 15> kNumberFormats;
inline constexpr int kWidestFormat = 15;

/// Digits that the example in a format's text has; 0 for a text without an example.
int FormatWidth(std::string_view format);
/// The place in kNumberFormats of the narrowest format with at least `width` digits; the last one for more than it has,
/// the first one, without digits, for kTextsAlone.
std::size_t FormatOfWidth(int width);

/// The width that goes on as `digits` began: all of them where zeros fill them up, else 0, or
/// kTextsAlone.
int WidthOf(std::string_view digits, bool withTexts);

/// The capital form of a caption that is one of the names; any other caption as it is.
std::string UpperCaption(std::string_view caption);
/// The way back: capital first letter, the rest small.
std::string LowerCaption(std::string_view caption);

inline constexpr int kMostRepeats = 32766;

/// Of a series, or of a first number, that leaves the range.
inline constexpr const char* kOutOfRange = "The numbers would not all lie between -2147483648 and 2147483647.";

/// The width of numbers that have texts around them without being filled up.
inline constexpr int kTextsAlone = 1;

/// first, first + 1 and so on. With a width of 0 the texts before and after are not used; kTextsAlone fills nothing up.
struct NumberSeries {
    std::int32_t first = 1;
    int width = 0; ///< least number of digits, filled up with zeros
    std::string before = {};
    std::string after = {};
    int repeat = 1; ///< tabs in a row with the same number
    bool operator==(const NumberSeries&) const = default;
};

/// The names in turn, again and again. Never without a name.
struct NameSeries {
    std::vector<std::string> names;
    int repeat = 1; ///< tabs in a row with the same name
};

struct TextSeries {
    std::string text;
};

using ValueSeries = std::variant<NumberSeries, NameSeries, TextSeries>;

/// The input without blanks at its ends, its first `most` characters.
TextSeries MakeTextSeries(std::string_view input, std::int16_t most);

/// Writes one value into every entry. Raises OverflowError, with nothing written, when a number leaves the 32-bit
/// range.
void FillBuffer(const ValueSeries& series, FieldTexts& buffer);

/// What FillBuffer writes into entry `tab`, from 1, of `count`. Raises OverflowError when a number of theirs leaves the
/// 32-bit range.
std::string ValueAt(const ValueSeries& series, std::int32_t tab, std::int32_t count);

/// What FillBuffer will write into `count` entries (at least 1), in one line: "No.007, No.008, No.009 ... No.056",
/// "Meyer on every tab". Raises OverflowError.
std::string PreviewText(const ValueSeries& series, std::int32_t count);
/// The same in fewer words: "No.007 ... No.056", "March, June ...". Raises OverflowError.
std::string OverviewText(const ValueSeries& series, std::int32_t count);

} // namespace velmora
