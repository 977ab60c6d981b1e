// Whole pages among the others, each command one step of undo. A document that would become too long is told, and
// nothing changes.
#pragma once

#include "workspace/mdlMain.h"

namespace velmora {

/// An empty page before the one in view, and shows it.
void InsertPage(MainModule& main);
/// A copy of the page in view behind it, and shows that.
void DuplicatePage(MainModule& main);
/// The page in view becomes page `to`, from 1 to the last, and stays in view.
void MovePage(MainModule& main, std::int16_t to);

} // namespace velmora
