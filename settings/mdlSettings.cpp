#include "settings/mdlSettings.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "settings/RegistrySettings.h"

#include <exception>
#include <utility>

namespace velmora {
namespace {

/// A read-only installation would otherwise greet its user with a box for every window that it closes.
void ReportWriteFailure(SettingsStore& store, const Error& error) {
    if (!std::exchange(store.WriteFailureShown, true))
        store.Interface.Show({std::string(error.what()) + "\r\nUntil it can be written, settings are not kept.",
                              store.SettingsAppName, Icon::Exclamation});
}

bool HasOwn(const SettingsStore& store, std::string_view section, std::string_view key) {
    return store.SaveMode == 1 && IsDocumentKey(section, key);
}

std::string ReadText(SettingsStore& store, std::string_view section, std::string_view key, std::string_view fallback) {
    if (!HasOwn(store, section, key))
        return store.Object.GetSettingStr(section, key, fallback);
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

std::string GetSetting(SettingsStore& store, std::string_view section, std::string_view key, std::string_view fallback,
                       bool numeric) {
    store.Object.SaveMode(store.SaveMode);
    if (!numeric)
        return ReadText(store, section, key, fallback);
    if (IsNumeric(fallback))
        return std::to_string(store.Object.GetSettingInt(section, key, ToInt16(ToDouble(fallback))));
    store.Interface.Beep();
    store.Interface.Show(
        {"You must enter a numeric value in the Default value field.", store.SettingsAppName, Icon::Critical});
    return "Error!";
}

bool SaveSetting(SettingsStore& store, std::string_view section, std::string_view key, std::string_view value,
                 bool numeric) {
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

bool SaveSettings(SettingsStore& store, IniFile::Edit edit) {
    return Trapped(store, [&] {
        store.Object.File().Write(std::move(edit));
        return true;
    });
}

bool DeleteSetting(SettingsStore& store, std::string_view section, std::string_view key) {
    store.Object.SaveMode(store.SaveMode);
    if (store.SaveMode != 1)
        return DeleteRegistry(store, section, key);
    store.Own.erase({std::string(section), std::string(key)});
    return store.Object.DeleteKey(section, key);
}

bool EnumerateSettings(SettingsStore& store, std::string_view section) {
    store.Object.SaveMode(store.SaveMode);
    if (store.SaveMode == 0)
        return section.empty() ? EnumerateRegistry(store, store.SectionNames)
                               : EnumerateRegistry(store, section, store.KeyValues);
    if (section.empty())
        store.SectionNames = store.Object.GetSectionNames();
    else
        store.KeyValues = store.Object.GetSettingAll(section);
    return true;
}

std::string Read(SettingsStore& store, const SettingKey& setting) {
    return GetSetting(store, setting.section, setting.key, setting.fallback);
}

std::optional<std::string> Probe(SettingsStore& store, const SettingKey& setting) {
    std::string value = Read(store, setting.WithFallback(kProbe));
    return value == kProbe ? std::nullopt : std::optional(std::move(value));
}

std::string ReadAccepted(SettingsStore& store, const SettingKey& setting) {
    std::string value = Read(store, setting);
    const bool accepted = setting.accepts == nullptr || setting.accepts(value);
    return accepted ? value : std::string(setting.fallback);
}

bool Write(SettingsStore& store, const SettingKey& setting, std::string_view value) {
    return SaveSetting(store, setting.section, setting.key, value);
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
