// In which form a tab file comes: as this program writes it, or as a spreadsheet saved it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace velmora {

/// The separator of a tab file that a spreadsheet saved: with semicolons or tabs, quotation marks round cells, or a
/// blank before "Version". A tab file's own reader would take it apart wrongly, a list's reader does not. nullopt for a
/// file in the program's own form and for a text without a header.
std::optional<char> SpreadsheetSeparator(std::string_view text);

/// Whether the file is larger than kMostListBytes, to be asked before it is read whole. Raises Error for such a file
/// without a header: a tab file's texts may have any length, another program's list does not fit. Raises
/// FileAccessError.
bool IsLargeTabFile(const std::filesystem::path& path);
/// The same for a text that comes bit by bit: what has come of it, and how much that is.
void RefuseLargeList(std::string_view beginning, std::uintmax_t size);

} // namespace velmora
