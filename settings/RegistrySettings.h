// The settings in the machine's registry: one key for each section, below that of the application.
#pragma once

#include "settings/SettingsGlobals.h"

namespace velmora {

/// The machine's key of a section, or with an empty section that of the application.
std::string RegistryPath(const SettingsGlobals& globals, std::string_view section);
/// A text as it stands, up to its first NUL; a number in decimal, signed.
std::string RegistryText(const RegistryValue& value);
/// Cut to 255 characters. A missing or empty value is created with the fallback, unless that is kProbe.
std::string ReadRegistry(SettingsGlobals& globals, std::string_view section, std::string_view key,
                         std::string_view fallback);

// These report a failure and are false then.

bool WriteRegistry(SettingsGlobals& globals, std::string_view section, std::string_view key,
                   const RegistryValue& value);
/// With an empty key name the section's key itself is deleted.
bool DeleteRegistry(SettingsGlobals& globals, std::string_view section, std::string_view key);
/// At most 2000 names; empty after a failure.
bool EnumerateRegistry(SettingsGlobals& globals, std::vector<std::string>& sections);
/// At most 2000 rows; empty after a failure.
bool EnumerateRegistry(SettingsGlobals& globals, std::string_view section, KeyTable& values);

} // namespace velmora
