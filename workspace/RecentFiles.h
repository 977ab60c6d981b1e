// The documents opened or saved last, newest first, as the File menu lists them.
#pragma once

#include "settings/mdlSettings.h"

#include <filesystem>
#include <vector>

namespace velmora {

inline constexpr std::size_t kRecentFiles = 8;

/// From section "Recent Files"; files that are gone are left out.
std::vector<std::filesystem::path> RecentFiles(SettingsStore& store);
/// True for a path that comes back from the settings as it is: short enough, UTF-8, without line breaks and without
/// blanks at its ends.
bool FitsSetting(const std::filesystem::path& path);
/// Puts a file first. A path of any length is remembered, unless it would fit no setting for another reason.
void RememberFile(SettingsStore& store, const std::filesystem::path& path);

} // namespace velmora
