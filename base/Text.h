// Helpers on UTF-8 text. Lengths count characters (code points), not bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Without the blanks and tabs at both ends.
std::string_view Trim(std::string_view text);
/// a to z in capitals; every other character as it is.
std::string ToUpper(std::string_view text);
/// The Latin, Greek and Cyrillic capitals as small letters, to compare texts whatever their case. Every character keeps
/// its place and its number of bytes; a capital whose small form has another number stays.
std::string FoldCase(std::string_view utf8);
/// Every control character, and a line break of two, as one blank.
std::string OneLine(std::string_view text);
/// Equal but for the case of a to z.
bool EqualsNoCase(std::string_view a, std::string_view b);
/// True when `text` ends in `ending`, but for the case of a to z.
bool EndsWithNoCase(std::string_view text, std::string_view ending);

/// The parts between the separators; an empty text has one empty part.
std::vector<std::string_view> Split(std::string_view text, char separator);

/// "1 sheet", "3 sheets".
std::string Counted(std::size_t count, std::string_view one);
std::size_t CharacterCount(std::string_view utf8);
/// The first `count` characters, or all when there are fewer.
std::string_view LeftCharacters(std::string_view utf8, std::size_t count);

} // namespace velmora
