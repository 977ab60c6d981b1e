#include "workspace/RecentFiles.h"

#include "base/Encoding.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"

#include <algorithm>
#include <string>

namespace velmora {
namespace {

constexpr std::string_view kSection = "Recent Files";

std::string KeyName(std::size_t place) {
    return "File " + std::to_string(place + 1);
}

/// True for a path that comes back from the INI file as it is.
bool ComesBack(const std::filesystem::path& path) {
    constexpr std::string_view blanks = " \t\v\f";
    const std::string text = PathText(path);
    return IsValidUtf8(text) && text.find_first_of(kLineEnd) == std::string::npos &&
           text.find_first_not_of(blanks) == 0 && text.find_last_not_of(blanks) == text.size() - 1;
}

/// All that are stored, also what is gone for now: a drive may come back.
std::vector<std::filesystem::path> Stored(SettingsStore& store) {
    std::vector<std::filesystem::path> files;
    for (std::size_t place = 0; place < kRecentFiles; ++place) {
        const std::string path = store.Object.ProbeWhole(kSection, KeyName(place)).value_or("");
        if (!path.empty())
            files.push_back(PathOf(path));
    }
    return files;
}

/// In the newest text: other running programs put theirs there too.
bool PutFirst(IniText& text, const std::filesystem::path& path) {
    std::vector<std::string> files{PathText(path)};
    for (std::size_t place = 0; place < kRecentFiles; ++place) {
        const std::string file = text.ReadString(kSection, KeyName(place), "");
        if (!file.empty() && PathOf(file) != path)
            files.push_back(file);
    }
    bool changed = false;
    for (std::size_t place = 0; place < std::min(files.size(), kRecentFiles); ++place)
        changed = text.Write(kSection, KeyName(place), files[place]) || changed;
    return changed;
}

} // namespace

std::vector<std::filesystem::path> RecentFiles(SettingsStore& store) {
    std::vector<std::filesystem::path> files = Stored(store);
    std::erase_if(files, [](const std::filesystem::path& path) { return !FileExists(path); });
    return files;
}

bool FitsSetting(const std::filesystem::path& path) {
    return ComesBack(path) && CharacterCount(PathText(path)) <= kIniValueCharacters;
}

void RememberFile(SettingsStore& store, const std::filesystem::path& path) {
    if (!ComesBack(path))
        return;
    SaveSettings(store, [path](IniText& text) { return PutFirst(text, path); });
}

} // namespace velmora
