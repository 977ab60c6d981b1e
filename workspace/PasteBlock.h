// A block copied from a spreadsheet, lines of columns separated by tabs, fills tabs from one on. A cell of several
// lines comes in quotation marks.
#pragma once

#include "workspace/Undo.h"
#include "workspace/mdlMain.h"

#include <string_view>

namespace velmora {

/// The text without the one line end that a spreadsheet puts behind a cell.
std::string_view CellText(std::string_view text);
/// True for more than one line or column; anything else is a text for one box.
bool IsBlock(std::string_view text);

/// Line i goes into tab `from.tab` + i, its columns into the fields from `from.field` on. Tabs behind the last one,
/// fields not in use and texts over a field's limit do not fit: that is said, with a question, before anything changes.
void PasteBlock(MainModule& main, TabBox from, std::string_view text);

} // namespace velmora
