// The marked tabs, or the one in use, among the others: inserted before, removed, moved, filled from the first. Each
// command is one step of undo and leaves its tabs marked; without a marked tab it has no effect.
#pragma once

#include "workspace/mdlMain.h"

namespace velmora {

/// As many empty tabs as are marked, before the first of them; the rest moves on. Tabs at the document's end without
/// a text give way; where texts would, pages are added. A document that would become too long is told, and nothing
/// changes.
void InsertTabs(MainModule& main);
/// Closes up behind the marked tabs; the number of pages stays.
void RemoveTabs(MainModule& main);
/// Each marked tab changes places with the one before it, so that all move together; no effect at the first tab.
void MoveTabsUp(MainModule& main);
/// The same with the one behind it; no effect at the last tab.
void MoveTabsDown(MainModule& main);
/// The texts of the first marked tab, in the fields in use, go into the others; into a single one those of the tab
/// before it.
void FillDown(MainModule& main);

} // namespace velmora
