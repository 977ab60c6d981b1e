// The marked tabs, or the one in use, to and from the clipboard as text that a spreadsheet takes and gives.
#pragma once

#include "workspace/mdlMain.h"

#include <string>

namespace velmora {

/// Fields in use with tabs between them, a line end behind each tab; a text that holds one of these, or a quotation
/// mark, in quotation marks. The text of a single tab with one field comes as it stands, without a line end. Empty
/// without a marked tab.
std::string CopyTabs(MainModule& main);
/// Empties the texts in the fields in use; the tabs stay. The step is "Delete"; no effect where all are empty.
void DeleteTabs(MainModule& main);
/// CopyTabs and DeleteTabs, as the step "Cut".
std::string CutTabs(MainModule& main);

} // namespace velmora
