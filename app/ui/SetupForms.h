// The set-up dialogs over the main window: the menu, the toolbar and the start-up open them here.
#pragma once

#include "app/Program.h"
#include "workspace/Globals.h"

class QWidget;

namespace velmora {

// Modal; each returns when its dialog is closed. No error leaves them.

void ShowPrinterSetup(Program& program, QWidget* parent);
void ShowMarginSetup(Program& program, QWidget* parent);
/// NoPrinter: as LoadGlobals says.
LoadOutcome ShowPageSetup(Program& program, QWidget* parent);

} // namespace velmora
