// Asks for a folder that the program needs and cannot find.
#pragma once

#include "document/mdlMain.h"

#include <filesystem>
#include <string>

namespace velmora {

struct FolderWanted {
    std::string markerFile; ///< a file that the folder holds; empty: any folder will do
    std::string key;        ///< in section "Paths"; a found folder is stored under it
    bool offerToCreate = false;
};

/// The folder made or chosen, which is stored, or `current` when the person gave up.
std::filesystem::path SearchFolder(MainModule& main, const std::filesystem::path& current, const FolderWanted& wanted);

} // namespace velmora
