// Asks for a folder or a picture that the program needs and cannot find, and searches the machine's drives for it.
#pragma once

#include "workspace/mdlMain.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

struct FolderWanted {
    std::string markerFile;  ///< a file that the folder holds
    std::string captionWord; ///< what the questions call it
    std::string key;         ///< in section "Paths"; a found folder is stored under it
    bool offerToCreate = false;
};

/// The folder made, found or chosen, which is stored; nullopt when the person gave up. The search goes for a folder
/// with the file; the person may choose any.
std::optional<std::filesystem::path> SearchFolder(MainModule& main, const std::filesystem::path& current,
                                                  const FolderWanted& wanted);

struct FileWanted {
    std::string name;
    std::string captionWord; ///< what the question calls it
    std::string key;         ///< in section "Paths", of its folder
    std::string filter;      ///< of the chooser, as in FileRequest
    std::string markerFile;  ///< a file that its folder holds too
};

/// The file in `folder`, whatever its letter case, or where the person lets it be searched or shows it; then `folder`
/// may become that file's, which is stored. nullopt when it is not found; having given up once, the person is not
/// asked again in this run.
std::optional<std::filesystem::path> SearchFile(MainModule& main, std::filesystem::path& folder,
                                                const FileWanted& wanted);

enum class SearchEnd { Found, NotFound, Cancelled };

/// The nearest folder below the roots of the machine's disks that holds all of these files, whatever their letter case;
/// shows progress and can be cancelled. Links are not followed, and folders that may not be read are skipped. Network
/// drives are searched only where `network` is set, virtual file systems never.
SearchEnd SearchDrives(MainModule& main, const std::vector<std::string>& names, bool network,
                       std::filesystem::path& found);

} // namespace velmora
