// Commands of the main window that are more than one call of the core.
#pragma once

#include "platform/Desktop.h"
#include "workspace/OpenDocument.h"
#include "workspace/RecoveryStore.h"
#include "workspace/mdlMain.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace velmora {

/// New: asks about a document that has a name; a cancelled question leaves the document and makes it untitled.
void NewCommand(MainModule& main);

/// Open and Import, with the window's own word on a failure.
OpenOutcome OpenCommand(MainModule& main, OpenKind kind = OpenKind::Open);

/// Before the window closes: asks about unsaved changes. Deliberate: every answer ends the program, Cancel too. Only a
/// wanted save that did not happen gives false, and the window stays.
bool CloseCommand(MainModule& main);

/// Makes a recovered copy the document. False when it could not be read, which is shown.
bool RestoreCommand(MainModule& main, const RecoveredDocument& document);
/// That one command opens.
inline constexpr std::size_t kMostWindows = 10;
/// Opens each file in a window of its own, and says which could not be opened so.
void OpenBeside(UserInterface& ui, Desktop& desktop, const std::vector<std::filesystem::path>& files);
/// "2026-01-31 23:59" in the desktop's time zone.
std::string LocalTime(std::chrono::system_clock::time_point time);

} // namespace velmora
