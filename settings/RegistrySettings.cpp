#include "settings/RegistrySettings.h"

#include "base/Encoding.h"
#include "base/Text.h"

#include <variant>

namespace velmora {
namespace {

constexpr std::string_view kMachineArea = "SOFTWARE\\Corvane Series\\";
constexpr std::size_t kValueCharacters = 255;
constexpr std::size_t kEntries = 2000;

/// Shows `heading`, the key and what the registry answered, in the one form of all registry errors.
void Report(SettingsGlobals& globals, std::string_view heading, std::string_view place, const std::string& path,
            const std::string& answer) {
    std::string text(kLineEnd);
    text.append(heading).append(kLineEnd).append(place).append(path).append(answer);
    globals.Interface.Show({text, globals.SettingsAppName, Icon::Exclamation});
}

std::string Returned(RegistryCode code) {
    return "DLL Returned=" + std::to_string(static_cast<int>(code));
}

/// True for a key that could be opened; else tells why not.
bool Opened(SettingsGlobals& globals, const std::string& path, RegistryCode code) {
    if (code != RegistryCode::Success)
        Report(globals, "Error Opening Registry Key Entry:", "Key/Path=", path, Returned(code));
    return code == RegistryCode::Success;
}

/// What a call gave; tells if its key did not close again. What was done with the key holds all the same.
RegistryCode Closed(SettingsGlobals& globals, const std::string& path, RegistryCode code) {
    if (const RegistryCode closing = globals.Keys.LastClosing(); closing != RegistryCode::Success)
        Report(globals, "Error closing Registry Key Entry:", "Key/Path=", path, Returned(closing));
    return code;
}

RegistryCode Open(SettingsGlobals& globals, const std::string& path) {
    std::vector<std::string> names;
    return Closed(globals, path, globals.Keys.EnumerateKeys(path, names));
}

} // namespace

std::string RegistryPath(const SettingsGlobals& globals, std::string_view section) {
    std::string path = std::string(kMachineArea) + std::string(Trim(globals.SettingsAppName));
    return section.empty() ? path : path + "\\" + std::string(Trim(section));
}

std::string RegistryText(const RegistryValue& value) {
    if (const auto* number = std::get_if<std::uint32_t>(&value))
        return std::to_string(static_cast<std::int32_t>(*number));
    const auto& text = std::get<std::string>(value);
    return text.substr(0, text.find('\0'));
}

std::string ReadRegistry(SettingsGlobals& globals, std::string_view section, std::string_view key,
                         std::string_view fallback) {
    RegistryValue value;
    const std::string path = RegistryPath(globals, section);
    const RegistryCode code = Closed(globals, path, globals.Keys.Query(path, std::string(key), value));
    const std::string text = code == RegistryCode::Success ? RegistryText(value) : std::string();
    if (!text.empty())
        return std::string(LeftCharacters(text, kValueCharacters));
    // What can't be read is there all the same, and is not replaced.
    const bool missing = code == RegistryCode::Success || code == RegistryCode::FileNotFound;
    if (missing && fallback != kProbe)
        WriteRegistry(globals, section, key, std::string(fallback));
    return std::string(fallback);
}

bool WriteRegistry(SettingsGlobals& globals, std::string_view section, std::string_view key,
                   const RegistryValue& value) {
    const std::string path = RegistryPath(globals, section);
    const RegistryCode code = Closed(globals, path, globals.Keys.Set(path, std::string(key), value));
    if (code == RegistryCode::Success)
        return true;
    const std::string heading = Open(globals, path) == RegistryCode::Success
                                    ? "Cannot set Registry value: RegSetValueEx"
                                    : "Cannot Create Registry path: RegCreateKeyEx" + globals.SettingsAppName;
    Report(globals, heading, "Key=", path, Returned(code));
    return false;
}

bool DeleteRegistry(SettingsGlobals& globals, std::string_view section, std::string_view key) {
    const std::string path = RegistryPath(globals, section);
    if (!Opened(globals, path, Open(globals, path)))
        return false;
    const RegistryCode code = Closed(
        globals, path, key.empty() ? globals.Keys.DeleteKey(path) : globals.Keys.DeleteValue(path, std::string(key)));
    if (code == RegistryCode::Success)
        return true;
    const bool hasSubKeys = key.empty() && code == RegistryCode::AccessDenied;
    Report(globals, "Error Deleting Registry Key Entry:", "Key/Path=", path,
           hasSubKeys ? "Delete sub sections. [" + std::to_string(static_cast<int>(code)) + "]" : Returned(code));
    return false;
}

bool EnumerateRegistry(SettingsGlobals& globals, std::vector<std::string>& sections) {
    sections.clear();
    const std::string path = RegistryPath(globals, "");
    const bool opened = Opened(globals, path, Closed(globals, path, globals.Keys.EnumerateKeys(path, sections)));
    if (!opened)
        sections.clear();
    if (sections.size() > kEntries)
        sections.resize(kEntries);
    return opened;
}

bool EnumerateRegistry(SettingsGlobals& globals, std::string_view section, KeyTable& values) {
    values.clear();
    const std::string path = RegistryPath(globals, section);
    std::vector<std::pair<std::string, RegistryValue>> found;
    if (!Opened(globals, path, Closed(globals, path, globals.Keys.EnumerateValues(path, found))))
        return false;
    if (found.size() > kEntries)
        found.resize(kEntries);
    for (const auto& [name, value] : found)
        values.emplace_back(name, RegistryText(value));
    return true;
}

} // namespace velmora
