// Chief header of the settings: the functions through which every part of the program reads and writes them.
#pragma once

#include "app/settings/CSetting.h"
#include "platform/Registry.h"
#include "platform/UserInterface.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The settings of one running program.
struct SettingsStore {
    std::string SettingsAppName;          ///< title of every message box, base name of the INI file
    std::filesystem::path ProgramFolder;  ///< where the INI file lies
    std::filesystem::path IniFile;        ///< full path; empty: none is chosen yet, or settings kept in memory only
    std::int32_t SaveMode = 1;            ///< 1 = INI file, 0 = registry
    std::vector<std::string> SectionNames; ///< filled by EnumerateSettings without a section
    KeyTable KeyValues;                    ///< filled by EnumerateSettings with one
    // ... CSetting, Registry&, UserInterface&
};

std::string GetSetting(SettingsStore& store, std::string_view application, std::string_view section,
                       std::string_view key, std::string_view fallback, bool numeric = false);
bool SaveSetting(SettingsStore& store, std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value, bool numeric = false);
bool DeleteSetting(SettingsStore& store, std::string_view application, std::string_view section,
                   std::string_view key);

/// While one lives, settings written to the INI file are collected; the outermost one writes the file, once, when it
/// ends. Nests.
class SettingsBatch {
public:
    explicit SettingsBatch(SettingsStore& store);
    ~SettingsBatch();
};

} // namespace velmora
