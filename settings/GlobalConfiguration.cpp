#include "settings/GlobalConfiguration.h"

#include "base/Paths.h"
#include "base/Text.h"

namespace velmora {

std::filesystem::path WithSeparator(const std::filesystem::path& folder) {
    return folder.empty() || !folder.has_filename() ? folder : folder / "";
}

void SaveFolder(SettingsStore& store, std::string_view key, const std::filesystem::path& folder) {
    const std::string text = PathText(WithSeparator(folder));
    if (CharacterCount(text) <= kIniValueCharacters)
        SaveSetting(store, "Paths", key, text);
}

} // namespace velmora
