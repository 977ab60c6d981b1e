// The one store of settings, in the INI file beside the program or, to read what older installations left, in
// the registry.
#pragma once

#include "settings/IniFile.h"
#include "settings/SettingsGlobals.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Characters of a value that is read from the INI file, and of a list of its keys or sections with one
/// terminator for each name. A name that does not fit the list is left out whole.
inline constexpr std::size_t kIniValueCharacters = 128;
inline constexpr std::size_t kIniListCharacters = 2048;

/// In INI mode the first access chooses the file where none is chosen yet. The first NUL ends every text.
class CSetting {
public:
    explicit CSetting(SettingsGlobals& globals) : globals_(globals) {}
    CSetting(const CSetting&) = delete;
    CSetting& operator=(const CSetting&) = delete;

    /// Names the application (nullopt: by the program's own name), chooses the INI file in the program folder
    /// unless one is chosen already, and takes over the global save mode.
    void Init(std::optional<std::string_view> application = std::nullopt);

    /// Reading a missing key, or one that equals the fallback, writes the fallback, unless that is kProbe. When that
    /// write fails the value is returned all the same.
    std::string GetSettingStr(std::string_view section, std::string_view key, std::string_view fallback);
    /// Reads without writing; nullopt: there is no such key.
    std::optional<std::string> Probe(std::string_view section, std::string_view key);
    /// The same of any length.
    std::optional<std::string> ProbeWhole(std::string_view section, std::string_view key);
    /// Raises OverflowError for a stored number outside 16 bits.
    std::int16_t GetSettingInt(std::string_view section, std::string_view key, std::int16_t fallback);
    /// The section's keys and values. In registry mode those of the per-user area, not of the machine's key.
    KeyTable GetSettingAll(std::string_view section);
    std::vector<std::string> GetSectionNames();

    /// In INI mode these raise Error when the file can't be written; in registry mode they report the failure
    /// and are false.
    bool SaveSettingStr(std::string_view section, std::string_view key, std::string_view value);
    bool SaveSettingInt(std::string_view section, std::string_view key, std::int32_t value);
    /// Reports a failure and is false then. Deleting what is not there succeeds in the INI file and fails in
    /// the registry.
    bool DeleteKey(std::string_view section, std::string_view key);

    /// Non-zero: INI file; 0: registry.
    std::int32_t SaveMode() const { return saveMode_; }
    void SaveMode(std::int32_t mode) { saveMode_ = mode; }

    /// The INI file behind the settings, for batches of changes.
    velmora::IniFile& File();

private:
    void EnsureReady();
    std::string ReadIni(std::string_view section, std::string_view key, std::string_view fallback);
    std::string UserPath(std::string_view section) const;

    SettingsGlobals& globals_;
    velmora::IniFile file_;
    std::int32_t saveMode_ = 1;
};

} // namespace velmora
