#include "settings/mdlSettings.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "settings/GlobalConfiguration.h"

#include <exception>
#include <utility>
#include <variant>

namespace velmora {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kMachineArea = "SOFTWARE\\Corvane Series\\";

/// Shows `heading`, the key and what the registry answered, in the one form of all registry errors.
void ReportRegistry(SettingsGlobals& globals, std::string_view heading, std::string_view place, const std::string& path,
                    const std::string& answer) {
    std::string text(kLineEnd);
    text.append(heading).append(kLineEnd).append(place).append(path).append(answer);
    globals.Interface.Show({text, globals.SettingsAppName, Icon::Exclamation});
}

std::string Returned(RegistryCode code) {
    return "DLL Returned=" + std::to_string(static_cast<int>(code));
}

void ReportOpening(SettingsGlobals& globals, const std::string& path, RegistryCode code) {
    ReportRegistry(globals, "Error Opening Registry Key Entry:", "Key/Path=", path, Returned(code));
}

RegistryCode Open(const SettingsGlobals& globals, const std::string& path) {
    std::vector<std::string> names;
    return globals.Keys.EnumerateKeys(path, names);
}

bool EnumerateRegistrySections(SettingsStore& store, const std::string& path) {
    store.SectionNames.clear();
    const RegistryCode code = store.Keys.EnumerateKeys(path, store.SectionNames);
    if (code != RegistryCode::Success) {
        store.SectionNames.clear();
        ReportOpening(store, path, code);
    }
    if (store.SectionNames.size() > kRegistryEntries)
        store.SectionNames.resize(kRegistryEntries);
    return code == RegistryCode::Success;
}

bool EnumerateRegistryValues(SettingsStore& store, const std::string& path) {
    store.KeyValues.clear();
    std::vector<std::pair<std::string, RegistryValue>> values;
    const RegistryCode code = store.Keys.EnumerateValues(path, values);
    if (code != RegistryCode::Success) {
        ReportOpening(store, path, code);
        return false;
    }
    if (values.size() > kRegistryEntries)
        values.resize(kRegistryEntries);
    for (const auto& [name, value] : values)
        store.KeyValues.emplace_back(name, RegistryText(value));
    return true;
}

/// A read-only installation would otherwise greet its user with a box for every window that it closes.
void ReportWriteFailure(SettingsStore& store, const Error& error) {
    if (!std::exchange(store.WriteFailureShown, true))
        store.Interface.Show({error.what(), store.SettingsAppName, Icon::Exclamation});
}

bool HasOwn(const SettingsStore& store, std::string_view section, std::string_view key) {
    return store.SaveMode == 1 && IsDocumentKey(section, key);
}

std::string ReadOwn(SettingsStore& store, std::string_view section, std::string_view key, std::string_view fallback) {
    const std::pair<std::string, std::string> name{section, key};
    if (const auto found = store.Own.find(name); found != store.Own.end())
        return found->second;
    std::string value = store.Object.GetSettingStr(section, key, fallback);
    if (value != kProbe)
        store.Own[name] = value;
    return value;
}

/// What `save` returns, or false for an error of the INI file, which is reported.
template <typename Save> bool Trapped(SettingsStore& store, Save save) {
    try {
        const bool saved = save();
        if (saved && !store.Object.File().InBatch())
            store.WriteFailureShown = false;
        return saved;
    } catch (const Error& error) {
        ReportWriteFailure(store, error);
        return false;
    }
}

} // namespace

std::string GetSetting(SettingsStore& store, std::string_view, std::string_view section, std::string_view key,
                       std::string_view fallback, bool numeric) {
    store.Object.SaveMode(store.SaveMode);
    if (!numeric)
        return HasOwn(store, section, key) ? ReadOwn(store, section, key, fallback)
                                           : store.Object.GetSettingStr(section, key, fallback);
    if (IsNumeric(fallback))
        return std::to_string(store.Object.GetSettingInt(section, key, ToInt16(ToDouble(fallback))));
    store.Interface.Beep();
    store.Interface.Show(
        {"You must enter a numeric value in the Default value field.", store.SettingsAppName, Icon::Critical});
    return "Error!";
}

bool SaveSetting(SettingsStore& store, std::string_view, std::string_view section, std::string_view key,
                 std::string_view value, bool numeric) {
    store.Object.SaveMode(store.SaveMode);
    if (!numeric) {
        if (HasOwn(store, section, key))
            store.Own[{std::string(section), std::string(key)}] = value;
        return Trapped(store, [&] { return store.Object.SaveSettingStr(section, key, value); });
    }
    if (!IsNumeric(value)) {
        store.Interface.Show({"You must enter a numeric value to save as Integer", store.SettingsAppName});
        return false;
    }
    const std::int32_t number = ToInt32(ToDouble(value));
    return Trapped(store, [&] { return store.Object.SaveSettingInt(section, key, number); });
}

bool SaveSettingNow(SettingsStore& store, std::string_view section, std::string_view key, std::string_view value) {
    store.Object.SaveMode(1);
    return Trapped(store, [&] {
        store.Object.SaveSettingStr(section, key, value);
        store.Object.File().Flush();
        return true;
    });
}

bool DeleteSetting(SettingsStore& store, std::string_view application, std::string_view section, std::string_view key) {
    store.Object.SaveMode(store.SaveMode);
    if (store.SaveMode != 1)
        return DeleteRegistry(store, application, section, key);
    store.Own.erase({std::string(section), std::string(key)});
    return store.Object.DeleteKey(section, key);
}

bool EnumerateSettings(SettingsStore& store, std::string_view application, std::string_view section, std::string_view) {
    store.Object.SaveMode(store.SaveMode);
    if (store.SaveMode == 0) {
        const std::string path = RegistryPath(application, section);
        return section.empty() ? EnumerateRegistrySections(store, path) : EnumerateRegistryValues(store, path);
    }
    if (section.empty())
        store.SectionNames = store.Object.GetSectionNames();
    else
        store.KeyValues = store.Object.GetSettingAll(section);
    return true;
}

std::string RegistryPath(std::string_view application, std::string_view section) {
    std::string path = std::string(kMachineArea) + std::string(Trim(application));
    return section.empty() ? path : path + "\\" + std::string(Trim(section));
}

std::string RegistryText(const RegistryValue& value) {
    if (const auto* number = std::get_if<std::uint32_t>(&value))
        return std::to_string(static_cast<std::int32_t>(*number));
    const auto& text = std::get<std::string>(value);
    return text.substr(0, text.find('\0'));
}

std::string ReadRegistry(SettingsGlobals& globals, std::string_view application, std::string_view section,
                         std::string_view key, std::string_view fallback) {
    RegistryValue value;
    const RegistryCode code = globals.Keys.Query(RegistryPath(application, section), std::string(key), value);
    const std::string text = code == RegistryCode::Success ? RegistryText(value) : std::string();
    if (!text.empty())
        return std::string(LeftCharacters(text, kRegistryValueCharacters));
    // What can't be read is there all the same, and is not replaced.
    const bool missing = code == RegistryCode::Success || code == RegistryCode::FileNotFound;
    if (missing && fallback != kProbe)
        WriteRegistry(globals, application, section, key, std::string(fallback));
    return std::string(fallback);
}

bool WriteRegistry(SettingsGlobals& globals, std::string_view application, std::string_view section,
                   std::string_view key, const RegistryValue& value) {
    const std::string path = RegistryPath(application, section);
    const RegistryCode code = globals.Keys.Set(path, std::string(key), value);
    if (code == RegistryCode::Success)
        return true;
    const std::string heading = Open(globals, path) == RegistryCode::Success
                                    ? "Cannot set Registry value: RegSetValueEx"
                                    : "Cannot Create Registry path: RegCreateKeyEx" + std::string(application);
    ReportRegistry(globals, heading, "Key=", path, Returned(code));
    return false;
}

bool DeleteRegistry(SettingsGlobals& globals, std::string_view application, std::string_view section,
                    std::string_view key) {
    const std::string path = RegistryPath(application, section);
    if (const RegistryCode code = Open(globals, path); code != RegistryCode::Success) {
        ReportOpening(globals, path, code);
        return false;
    }
    const RegistryCode code =
        key.empty() ? globals.Keys.DeleteKey(path) : globals.Keys.DeleteValue(path, std::string(key));
    if (code == RegistryCode::Success)
        return true;
    const bool hasSubKeys = key.empty() && code == RegistryCode::AccessDenied;
    ReportRegistry(globals, "Error Deleting Registry Key Entry:", "Key/Path=", path,
                   hasSubKeys ? "Delete sub sections. [" + std::to_string(static_cast<int>(code)) + "]"
                              : Returned(code));
    return false;
}

std::string ReadAccepted(SettingsStore& store, const SettingKey& setting) {
    std::string value = GetSetting(store, store.SettingsAppName, setting.section, setting.key, setting.fallback);
    const bool accepted = setting.accepts == nullptr || setting.accepts(value);
    return accepted ? value : std::string(setting.fallback);
}

bool Write(SettingsStore& store, const SettingKey& setting, std::string_view value) {
    return SaveSetting(store, store.SettingsAppName, setting.section, setting.key, value);
}

SettingsBatch::SettingsBatch(SettingsStore& store)
    : store_(store), own_(store.Own), mark_(store.Object.File().BeginBatch()), exceptions_(std::uncaught_exceptions()) {
}

SettingsBatch::~SettingsBatch() {
    if (!open_)
        return;
    try {
        if (std::uncaught_exceptions() > exceptions_)
            Discard();
        else
            Commit();
    } catch (const Error& error) {
        try {
            ReportWriteFailure(store_, error);
        } catch (...) { // the box could not be shown; there is nobody left to tell
        }
    }
}

void SettingsBatch::Commit() {
    if (!std::exchange(open_, false))
        return;
    store_.Object.File().EndBatch();
    if (!store_.Object.File().InBatch())
        store_.WriteFailureShown = false;
}

void SettingsBatch::Discard() {
    if (!std::exchange(open_, false))
        return;
    store_.Own = std::move(own_);
    store_.Object.File().AbandonBatch(mark_);
}

} // namespace velmora
