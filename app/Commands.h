// Commands of the main window that are more than one call of the core.
#pragma once

#include "document/OpenDocument.h"
#include "document/mdlMain.h"

namespace velmora {

/// New: asks about a document that has a name; a cancelled question leaves the document and makes it untitled.
void NewCommand(MainModule& main);

/// Open, with the window's own word on a failure.
OpenOutcome OpenCommand(MainModule& main);

/// Before the window closes: asks about unsaved changes. Deliberate: every answer ends the program, Cancel too. Only a
/// wanted save that did not happen gives false, and the window stays.
bool CloseCommand(MainModule& main);

} // namespace velmora
