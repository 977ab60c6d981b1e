#include "settings/RegistryMove.h"

#include "base/Error.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "settings/FormPosition.h"
#include "settings/RegistrySettings.h"

#include <utility>

namespace velmora {
namespace {

/// The places of windows: an older installation's have another unit.
bool IsLeftOut(const std::string& section) {
    return EqualsNoCase(section, kFormPositions);
}

class Move {
public:
    explicit Move(SettingsStore& store) : store_(store) {}

    MoveResult Run() {
        for (const std::string& section : List("", store_.SectionNames))
            for (const auto& [key, value] : List(section, store_.KeyValues))
                MoveValue(section, key, value);
        store_.SaveMode = 1;
        return failed_ ? MoveResult::PartlyFailed : MoveResult::Moved;
    }

private:
    /// Enumerates the registry and takes the result out of the store.
    template <typename Result> Result List(const std::string& section, Result& result) {
        store_.SaveMode = 0;
        failed_ = !EnumerateSettings(store_, section) || failed_;
        store_.SaveMode = 1;
        return std::exchange(result, {});
    }

    void MoveValue(const std::string& section, const std::string& key, const std::string& value) {
        if (IsLeftOut(section))
            return;
        if (!SaveSettingNow(store_, section, key, value) || !Remove(section, key))
            failed_ = true;
    }

    /// A protected registry is reported once, not for each of its values.
    bool Remove(const std::string& section, const std::string& key) {
        const std::string path = RegistryPath(store_, section);
        if (removalFailed_)
            return store_.Keys.DeleteValue(path, key) == RegistryCode::Success;
        removalFailed_ = !DeleteRegistry(store_, section, key);
        return !removalFailed_;
    }

    SettingsStore& store_;
    bool failed_ = false;
    bool removalFailed_ = false;
};

/// Raises Error unless the key could be read, or is not there.
void Require(RegistryCode code, const std::filesystem::path& file) {
    if (code == RegistryCode::Unreadable)
        throw Error("The file '" + PathText(file) + "' cannot be read.");
    if (code != RegistryCode::Success && code != RegistryCode::FileNotFound)
        throw Error("The file '" + PathText(file) + "' is damaged, or no export of a registry.");
}

KeyTable SectionOf(const Registry& registry, const std::string& path, const std::filesystem::path& file) {
    std::vector<std::pair<std::string, RegistryValue>> values;
    Require(registry.EnumerateValues(path, values), file);
    KeyTable table;
    for (const auto& [key, value] : values)
        table.emplace_back(key, RegistryText(value));
    return table;
}

} // namespace

/// An older installation always stored where it lies.
bool HasOldSettings(const SettingsStore& store) {
    RegistryValue value;
    const RegistryCode code = store.Keys.Query(RegistryPath(store, "Paths"), "Application", value);
    if (code != RegistryCode::Success)
        return code != RegistryCode::FileNotFound;
    const std::string text = RegistryText(value);
    return !text.empty() && text != kProbe;
}

int ImportRegistryExport(SettingsStore& store, const std::filesystem::path& file) {
    if (!FileExists(file))
        throw Error("The file '" + PathText(file) + "' cannot be read.");
    const auto registry = store.Keys.OpenExport(file);
    std::vector<std::string> sections;
    Require(registry->EnumerateKeys(RegistryPath(store, ""), sections), file);
    store.Object.SaveMode(1);
    SettingsBatch batch(store);
    int imported = 0;
    for (const std::string& section : sections)
        for (const auto& [key, value] : SectionOf(*registry, RegistryPath(store, section), file)) {
            if (IsLeftOut(section) || (section == "Paths" && !FolderExists(PathOf(value))))
                continue;
            store.Object.SaveSettingStr(section, key, value);
            ++imported;
        }
    batch.Commit();
    return imported;
}

MoveResult MoveRegistrySettings(SettingsStore& store) {
    store.SaveMode = 1;
    return HasOldSettings(store) ? Move(store).Run() : MoveResult::NothingThere;
}

} // namespace velmora
