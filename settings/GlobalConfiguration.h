// The program's own configuration: folders and habits. What a document carries too (printer apart) lies in the tab
// document, once.
#pragma once

#include "settings/mdlSettings.h"

#include <filesystem>
#include <string>

namespace velmora {

struct GlobalConfiguration {
    std::filesystem::path AppPath;
    std::filesystem::path ImagesPath;
    std::filesystem::path TabsPath;
    bool AskBeforeDelete = true;
    bool StartWithSetup = true;
    std::string PrinterName; ///< device name
};

/// Stores a folder in section "Paths", with one separator at its end; not one so long that reading would cut it.
void SaveFolder(SettingsStore& store, std::string_view key, const std::filesystem::path& folder);
/// With one separator at the end; an empty path stays empty.
std::filesystem::path WithSeparator(const std::filesystem::path& folder);

} // namespace velmora
