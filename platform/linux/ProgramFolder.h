// Where the program keeps its INI file, its pictures and the sample document.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace velmora {

/// Value of an environment variable, or nothing when it is not set or empty.
using Environment = std::function<std::optional<std::string>(const char* name)>;
Environment SystemEnvironment();

/// VELMORA_HOME where it is set; else the executable's own folder when this is a portable copy or a build tree (a
/// person may write there, and it is no installation: no ../share/velmora); else $XDG_CONFIG_HOME/velmora, by default
/// ~/.config/velmora. The folder need not exist yet.
std::filesystem::path FindProgramFolder(const std::filesystem::path& executableFolder, const Environment& environment);

} // namespace velmora
