// Tests of drives, folders and files.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// With `create` the missing levels are made first. A path of an old machine ("C:\...") names no folder
/// elsewhere, and none is made for it.
bool FolderExists(const std::filesystem::path& path, bool create = false);
/// True for a file that can be opened; a folder is no file.
bool FileExists(const std::filesystem::path& path);
/// The file of that name in the folder, of that very name first, else in any letter case.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& folder, const std::string& name);

/// Up to and with the first ":", or "NO DRIVE". A ":" behind a "/" is part of a name.
std::string DriveOf(std::string_view path);

} // namespace velmora
