// What the options dialog does: two habits, the defaults, and the settings of an older installation.
#pragma once

#include "workspace/Globals.h"
#include "workspace/mdlMain.h"

#include <array>
#include <string_view>

namespace velmora {

/// Keys of section "Form Position" in the order in which a reset deletes them. "PrtWiz" has no digit and "Font
/// Settings" is no window's key: both have always been there.
extern const std::array<std::string_view, 24> kResetPositions;

void SaveOptions(MainModule& main, bool askBeforeDelete, bool startWithSetup);

/// Sets both habits, which are not saved, loads the configuration again, makes the default margins the active ones and
/// forgets where the windows were: first the keys above, then those of all others. NoPrinter: as LoadGlobals says.
/// Raises OverflowError for default margins beyond 16 bits.
LoadOutcome ResetOptions(MainModule& main);

/// Lets the person choose a registry export and copies its settings into the INI file, which is said. The habits hold
/// at once; the rest of the configuration does so while the document is untitled and empty, and otherwise from the next
/// start on. A file that cannot be read has no effect.
void ImportOldSettings(MainModule& main);

} // namespace velmora
