// In which form a tab file comes: as this program writes it, or as a spreadsheet saved it.
#pragma once

#include <optional>
#include <string_view>

namespace velmora {

/// The separator of a tab file that a spreadsheet saved: with semicolons or tabs, quotation marks round cells, or a
/// blank before "Version". A tab file's own reader would take it apart wrongly, a list's reader does not. nullopt for a
/// file in the program's own form and for a text without a header.
std::optional<char> SpreadsheetSeparator(std::string_view text);

} // namespace velmora
