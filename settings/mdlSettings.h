// Chief header of the settings: the functions through which every part of the program reads and writes them.
#pragma once

#include "platform/Registry.h"
#include "platform/UserInterface.h"
#include "settings/CSetting.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// The settings of one running program.
struct SettingsStore : SettingsGlobals {
    SettingsStore(Registry& registry, UserInterface& ui) : SettingsGlobals(registry, ui) {}

    CSetting Object{*this};
    std::vector<std::string> SectionNames; ///< filled by EnumerateSettings without a section
    KeyTable KeyValues;                    ///< filled by EnumerateSettings with one
    /// By section and key: what this program holds of the settings that a document carries too. Another running copy,
    /// with another document, writes the same keys of the INI file.
    std::map<std::pair<std::string, std::string>, std::string> Own;
    bool WriteFailureShown = false; ///< a file that can't be written is reported once, until a write succeeds again
};

/// The setting's text; `fallback` where it is missing, which is then written. With `numeric` the stored
/// integer in decimal; a fallback that is no number is reported and gives "Error!". Raises OverflowError for
/// a number outside 16 bits. The application's name is the store's own, as for all of these functions in INI
/// mode.
std::string GetSetting(SettingsStore& store, std::string_view application, std::string_view section,
                       std::string_view key, std::string_view fallback, bool numeric = false);
/// False when nothing was saved; the person has been told, once for a row of failures. With `numeric` a value
/// that is no number saves nothing, and one outside 32 bits raises OverflowError.
bool SaveSetting(SettingsStore& store, std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value, bool numeric = false);
/// SaveSetting in the INI file that does not wait for the end of a batch: when it is true, the value is on
/// disk.
bool SaveSettingNow(SettingsStore& store, std::string_view section, std::string_view key, std::string_view value);
/// False when the deletion failed, which has been reported. In registry mode an empty key name deletes the
/// section.
bool DeleteSetting(SettingsStore& store, std::string_view application, std::string_view section, std::string_view key);
/// Fills SectionNames, or with a section KeyValues, with at most 2000 entries; the third text is not used.
/// False when the registry key can't be opened, which has been reported; the list is empty then.
bool EnumerateSettings(SettingsStore& store, std::string_view application, std::string_view section,
                       std::string_view unused = {});

/// As the default of a reading: only probe, never create.
inline constexpr std::string_view kProbe = "~~~";
inline constexpr std::size_t kRegistryValueCharacters = 255;
inline constexpr std::size_t kRegistryEntries = 2000;

/// The machine's key of a section, or with an empty section that of the application.
std::string RegistryPath(std::string_view application, std::string_view section);
/// A text as it stands, up to its first NUL; a number in decimal, signed.
std::string RegistryText(const RegistryValue& value);
/// Cut to 255 characters. A missing or empty value is created with the fallback, unless that is kProbe.
std::string ReadRegistry(SettingsGlobals& globals, std::string_view application, std::string_view section,
                         std::string_view key, std::string_view fallback);
/// These report a failure and are false then.
bool WriteRegistry(SettingsGlobals& globals, std::string_view application, std::string_view section,
                   std::string_view key, const RegistryValue& value);
/// With an empty key name the section's key itself is deleted.
bool DeleteRegistry(SettingsGlobals& globals, std::string_view application, std::string_view section,
                    std::string_view key);

/// One row of a table of settings: where it stands, its default, and what values are accepted (nothing: all).
struct SettingKey {
    std::string_view section;
    std::string_view key;
    std::string_view fallback;
    bool (*accepts)(std::string_view value) = nullptr;
};

/// The stored value, or the fallback where it is not accepted; such a value stays in the store.
std::string ReadAccepted(SettingsStore& store, const SettingKey& setting);
/// SaveSetting for a row of a table.
bool Write(SettingsStore& store, const SettingKey& setting, std::string_view value);

/// While one lives, settings written to the INI file are collected, and readings see them; the outermost one
/// writes the file, once, in its Commit or its end. Nests.
class SettingsBatch {
public:
    explicit SettingsBatch(SettingsStore& store);
    /// Without Commit before: commits, and reports a failure as SaveSetting does; where an exception ended
    /// the batch, its own changes are dropped instead. Never throws.
    ~SettingsBatch();
    SettingsBatch(const SettingsBatch&) = delete;
    SettingsBatch& operator=(const SettingsBatch&) = delete;

    /// Ends the batch. The outermost one raises Error when the file can't be written; none of the changes is
    /// made then.
    void Commit();
    /// Ends the batch and drops its changes.
    void Discard();

private:
    SettingsStore& store_;
    std::map<std::pair<std::string, std::string>, std::string> own_; ///< as it was before
    std::size_t mark_;
    int exceptions_;
    bool open_ = true;
};

} // namespace velmora
