// The global configuration and the document's properties, between the settings and the program.
#pragma once

#include "workspace/mdlMain.h"

namespace velmora {

enum class LoadOutcome { Loaded, NoPrinter };

/// Fills globals, the document's properties and the fonts from the settings. Chooses the store first: without an INI
/// file, settings of an older installation are moved into it. NoPrinter: the machine has none, the person was told,
/// and the program must end.
LoadOutcome LoadGlobals(MainModule& main);
/// A stored printer that this machine does not have becomes none, so that its default printer is taken: after settings
/// came from another machine.
void ForgetMissingPrinter(SettingsStore& settings, const PrintSystem& printers);
/// Writes globals and the document's properties.
void SaveGlobals(MainModule& main);

/// Makes the document whole pages of its tab type, and saves the page count and the global configuration. Raises
/// OverflowError, with everything as it was, when the document grows beyond 32767 tabs.
void ApplyTabType(MainModule& main);

} // namespace velmora
