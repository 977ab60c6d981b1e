// Lists of other programs as text: columns separated by commas, semicolons or tabs, texts perhaps in quotation marks.
// Tab files are not read this way: they know no quotes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

enum class ListEncoding { Utf8, Windows1252, Utf16 };

/// The columns of a list or a worksheet that are looked at: all that an .xls sheet has.
inline constexpr int kMostColumns = 256;
/// No list is larger that fits a document: the most tabs, each in a line of 1,280 bytes.
inline constexpr std::uintmax_t kMostListBytes = 40U << 20;

/// The encodings that the bytes may be in, likeliest first; none for bytes that are no text.
std::vector<ListEncoding> FittingEncodings(std::string_view bytes);
/// UTF-8 without a byte order mark; bytes that do not fit the encoding give an empty text.
std::string DecodeList(std::string_view bytes, ListEncoding encoding);

/// The separator, among comma, semicolon and tab, that cuts the first lines into the most columns; comma when none
/// does.
char GuessDelimiter(std::string_view text);

/// One entry per line, blank lines too. A column in quotation marks may hold separators, line breaks and doubled
/// quotation marks; a mark that nothing closes is a character like any other. Stops after `most` entries; of each come
/// kMostColumns at most.
std::vector<std::vector<std::string>> ParseTextList(std::string_view text, char delimiter,
                                                    std::size_t most = std::numeric_limits<std::size_t>::max());

/// Takes the columns of one entry; false ends the reading.
using ListRowSink = std::function<bool(std::vector<std::string> columns)>;
/// The same, entry by entry, so that no more than one is held.
void ReadTextList(std::string_view text, char delimiter, std::size_t mostColumns, const ListRowSink& sink);

} // namespace velmora
