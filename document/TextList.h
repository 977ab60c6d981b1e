// Lists of other programs as text: columns separated by commas, semicolons or tabs, texts perhaps in quotation marks.
// Tab files are not read this way: they know no quotes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The separator, among comma, semicolon and tab, that cuts the first lines into the most columns; comma when none
/// does.
char GuessDelimiter(std::string_view text);

/// One entry per line, blank lines too. A column in quotation marks may hold separators, line breaks and doubled
/// quotation marks; a mark that nothing closes is a character like any other.
std::vector<std::vector<std::string>> ParseTextList(std::string_view text, char delimiter);

} // namespace velmora
