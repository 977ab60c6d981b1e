#include "settings/CSetting.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "settings/RegistrySettings.h"

namespace velmora {
namespace {

/// The per-user area lies beside the machine's settings, under a key of its own.
constexpr std::string_view kUserArea = "SOFTWARE\\Corvane Series User\\";

std::string_view CutAtNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// The names of a NUL separated list, as many as fit its size.
std::vector<std::string> Names(const std::string& list) {
    std::vector<std::string> names;
    std::size_t characters = 0;
    for (const std::string_view name : Split(list, '\0')) {
        characters += CharacterCount(name) + 1;
        if (name.empty() || characters > kIniListCharacters)
            break;
        names.emplace_back(name);
    }
    return names;
}

/// As a value is read.
std::string Shortened(const std::string& value) {
    return std::string(CutAtNul(LeftCharacters(value, kIniValueCharacters)));
}

} // namespace

void CSetting::Init(std::optional<std::string_view> application) {
    globals_.SettingsAppName = application ? *application : Trim(globals_.ProgramName);
    if (globals_.IniFile.empty() && !globals_.InMemory)
        globals_.IniFile = globals_.OwnIniFile();
    saveMode_ = globals_.SaveMode;
}

void CSetting::EnsureReady() {
    const std::string name = globals_.SettingsAppName;
    if (name.empty())
        Init();
    else if (globals_.IniFile.empty() && !globals_.InMemory)
        Init(name);
}

IniFile& CSetting::File() {
    EnsureReady();
    file_.Open(globals_.InMemory ? std::filesystem::path() : globals_.IniFile);
    return file_;
}

std::string CSetting::ReadIni(std::string_view section, std::string_view key, std::string_view fallback) {
    return Shortened(File().Text().ReadString(section, key, fallback));
}

std::string CSetting::GetSettingStr(std::string_view section, std::string_view key, std::string_view fallback) {
    if (saveMode_ == 0)
        return ReadRegistry(globals_, section, key, fallback);
    std::string value = ReadIni(section, key, fallback);
    if (value == fallback && fallback != kProbe)
        File().WriteDefault(section, key, value);
    return value;
}

std::optional<std::string> CSetting::Probe(std::string_view section, std::string_view key) {
    std::string value = GetSettingStr(section, key, kProbe);
    return value == kProbe ? std::nullopt : std::optional(std::move(value));
}

std::optional<std::string> CSetting::ProbeWhole(std::string_view section, std::string_view key) {
    if (saveMode_ == 0)
        return Probe(section, key);
    const std::string value = File().Text().ReadString(section, key, kProbe);
    return value == kProbe ? std::nullopt : std::optional(std::string(CutAtNul(value)));
}

std::int16_t CSetting::GetSettingInt(std::string_view section, std::string_view key, std::int16_t fallback) {
    if (saveMode_ == 0)
        return ToInt16(ProfileInteger(ReadRegistry(globals_, section, key, std::to_string(fallback))));
    return ToInt16(File().Text().ReadInt(section, key, fallback));
}

std::string CSetting::UserPath(std::string_view section) const {
    std::string path = std::string(kUserArea) + std::string(Trim(globals_.SettingsAppName));
    return section.empty() ? path : path + "\\" + std::string(Trim(section));
}

KeyTable CSetting::GetSettingAll(std::string_view section) {
    KeyTable table;
    if (saveMode_ == 0) {
        std::vector<std::pair<std::string, RegistryValue>> values;
        if (globals_.Keys.EnumerateValues(UserPath(section), values) == RegistryCode::Success)
            for (const auto& [name, value] : values)
                table.emplace_back(name, RegistryText(value));
        return table;
    }
    // All from one text, and nothing is written: a key that another program deletes meanwhile must not come back empty.
    const IniText& text = File().Text();
    for (const std::string& key : Names(text.ListKeys(section)))
        table.emplace_back(key, Shortened(text.ReadString(section, key, "")));
    return table;
}

std::vector<std::string> CSetting::GetSectionNames() {
    if (saveMode_ != 0)
        return Names(File().Text().ListSections());
    std::vector<std::string> names;
    globals_.Keys.EnumerateKeys(UserPath(""), names);
    return names;
}

bool CSetting::SaveSettingStr(std::string_view section, std::string_view key, std::string_view value) {
    if (saveMode_ == 0)
        return WriteRegistry(globals_, section, key, std::string(CutAtNul(value)));
    File().Write(section, key, CutAtNul(value));
    return true;
}

bool CSetting::SaveSettingInt(std::string_view section, std::string_view key, std::int32_t value) {
    if (saveMode_ == 0)
        return WriteRegistry(globals_, section, key, static_cast<std::uint32_t>(value));
    return SaveSettingStr(section, key, std::to_string(value));
}

bool CSetting::DeleteKey(std::string_view section, std::string_view key) {
    if (saveMode_ == 0)
        return DeleteRegistry(globals_, section, key);
    try {
        File().Write(section, key, std::nullopt);
        return true;
    } catch (const Error&) {
        globals_.Interface.Show({"Error Deleting Key (check if file is protected)", "CSetting.DeleteKey"});
        return false;
    }
}

} // namespace velmora
