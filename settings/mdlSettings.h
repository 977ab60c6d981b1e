// Chief header of the settings: the functions through which every part of the program reads and writes them.
#pragma once

#include "settings/CSetting.h"
#include "settings/SettingKey.h"

#include <map>
#include <optional>
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

/// The setting's text; `fallback` where it is missing, which is then written unless it is kProbe. With `numeric` the
/// stored integer in decimal; a fallback that is no number is reported and gives "Error!". Raises OverflowError for a
/// number outside 16 bits.
std::string GetSetting(SettingsStore& store, std::string_view section, std::string_view key, std::string_view fallback,
                       bool numeric = false);
/// False when it was not saved; the person has been told, once for a row of failures. With `numeric` a value that is
/// no number is not saved, and one outside 32 bits raises OverflowError.
bool SaveSetting(SettingsStore& store, std::string_view section, std::string_view key, std::string_view value,
                 bool numeric = false);
/// SaveSetting in the INI file that does not wait for the end of a batch: when it is true, the value is on
/// disk.
bool SaveSettingNow(SettingsStore& store, std::string_view section, std::string_view key, std::string_view value);
/// SaveSetting of several keys in the INI file that depend on what stands there when they are written.
bool SaveSettings(SettingsStore& store, IniFile::Edit edit);
/// False when the deletion failed, which has been reported. In registry mode an empty key name deletes the
/// section.
bool DeleteSetting(SettingsStore& store, std::string_view section, std::string_view key);
/// Fills SectionNames, or with a section KeyValues, with at most 2000 entries.
/// False when the registry key can't be opened, which has been reported; the list is empty then.
bool EnumerateSettings(SettingsStore& store, std::string_view section);

/// The value of a table's row, or its fallback, as GetSetting.
std::string Read(SettingsStore& store, const SettingKey& setting);
/// Reads without writing; nullopt: there is no such key.
std::optional<std::string> Probe(SettingsStore& store, const SettingKey& setting);
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
