// A block copied from a spreadsheet, lines of columns separated by tabs, fills tabs from one on. A cell of several
// lines comes in quotation marks.
#pragma once

#include "workspace/mdlMain.h"

#include <string_view>

namespace velmora {

/// The text without the one line end that a spreadsheet puts behind a cell.
std::string_view CellText(std::string_view text);
/// True for more than one line or column; anything else is a text for one box.
bool IsBlock(std::string_view text);

/// Each line goes into a tab, from the first marked one on, its columns into the fields from `field` on; a block of
/// all fields in use begins in the first. A single line goes into every marked tab. As one step, after a question
/// where pages are to be added, or where fields not in use and texts over a field's limit do not fit; a document that
/// would become too long is told, and nothing changes. No effect without a marked tab.
void PasteBlock(MainModule& main, int field, std::string_view text);

} // namespace velmora
