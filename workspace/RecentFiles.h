// The documents opened or saved last, newest first, as the File menu lists them.
#pragma once

#include "settings/mdlSettings.h"

#include <filesystem>
#include <vector>

namespace velmora {

inline constexpr std::size_t kRecentFiles = 8;

/// From section "Recent Files"; files that are gone are left out.
std::vector<std::filesystem::path> RecentFiles(SettingsStore& store);
/// Puts a file first. A path too long for a setting is not remembered.
void RememberFile(SettingsStore& store, const std::filesystem::path& path);

} // namespace velmora
