// What every way to the settings shares.
#pragma once

#include "base/Paths.h"
#include "platform/Registry.h"
#include "platform/UserInterface.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// Rows of key name and value text, in the order of the store.
using KeyTable = std::vector<std::pair<std::string, std::string>>;

/// As the default of a reading: only probe, never create.
inline constexpr std::string_view kProbe = "~~~";

/// What the program says about its settings, and the machine that they are kept on.
struct SettingsGlobals {
    SettingsGlobals(Registry& registry, UserInterface& ui) : Keys(registry), Interface(ui) {}

    /// The INI file that is used unless another one is chosen.
    std::filesystem::path OwnIniFile() const { return ProgramFolder / PathOf(SettingsAppName + ".ini"); }

    Registry& Keys;
    UserInterface& Interface;
    std::string ProgramName = "Velmora"; ///< the application's name where none is set
    std::string SettingsAppName;         ///< title of every message box, base name of the INI file
    std::filesystem::path ProgramFolder; ///< where the INI file lies
    std::filesystem::path IniFile;       ///< full path; empty: none is chosen yet
    bool InMemory = false;               ///< INI settings are kept in memory only, and IniFile is not used
    std::int32_t SaveMode = 1;           ///< 1 = INI file, 0 = registry
};

} // namespace velmora
