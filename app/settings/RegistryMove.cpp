#include "app/settings/RegistryMove.h"

#include <utility>

namespace velmora {
namespace {

/// An older installation always stored where it lies. A registry that can't be read is no proof that there
/// was none.
bool HasOldSettings(const SettingsStore& store) {
    RegistryValue value;
    const RegistryCode code = store.Keys.Query(RegistryPath(store.SettingsAppName, "Paths"), "Application", value);
    if (code != RegistryCode::Success)
        return code != RegistryCode::FileNotFound;
    const std::string text = RegistryText(value);
    return !text.empty() && text != kProbe;
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
        failed_ = !EnumerateSettings(store_, store_.SettingsAppName, section) || failed_;
        store_.SaveMode = 1;
        return std::exchange(result, {});
    }

    void MoveValue(const std::string& section, const std::string& key, const std::string& value) {
        if (!SaveSettingNow(store_, section, key, value) || !Remove(section, key))
            failed_ = true;
    }

    /// A protected registry is reported once, not for each of its values.
    bool Remove(const std::string& section, const std::string& key) {
        const std::string path = RegistryPath(store_.SettingsAppName, section);
        if (removalFailed_)
            return store_.Keys.DeleteValue(path, key) == RegistryCode::Success;
        removalFailed_ = !DeleteRegistry(store_, store_.SettingsAppName, section, key);
        return !removalFailed_;
    }

    SettingsStore& store_;
    bool failed_ = false;
    bool removalFailed_ = false;
};

} // namespace

MoveResult MoveRegistrySettings(SettingsStore& store) {
    store.SaveMode = 1;
    return HasOldSettings(store) ? Move(store).Run() : MoveResult::NothingThere;
}

} // namespace velmora
