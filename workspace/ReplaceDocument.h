// The one way in which another document takes the place of the open one: opened, imported, restored or new.
#pragma once

#include "workspace/Globals.h"

#include <functional>

namespace velmora {

/// Takes the page on screen back, keeps a changed document among the recoverable ones, and lets `load` make the new
/// one, all or nothing: after an error, which is raised again, and without a printer document and settings are as they
/// were, and what was kept is taken back. Once loaded, nothing of before can be undone. Caption, status and editor show
/// what is there in the end; margins that are not the printer's are told.
LoadOutcome ReplaceDocument(MainModule& main, const std::function<LoadOutcome()>& load);

/// For ReplaceDocument: one empty page of the current tab type, with the margins in use.
LoadOutcome LoadEmptyPage(MainModule& main);
/// Replaces the document by one empty page of the current tab type, with the margins that printer and layout begin
/// with.
void NewDocument(MainModule& main);

} // namespace velmora
