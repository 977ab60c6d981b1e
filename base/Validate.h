// Tests of drives, folders and files, and the parts of a path.
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

// The parts of a path. Its separator is "/"; a path without one may come from an old machine, so that there
// "\" and the
// ":" of a drive separate.

/// Up to and with the first ":", or "NO DRIVE".
std::string DriveOf(std::string_view path);
/// What follows the last separator, or "NO FILE" when that is empty.
std::string FileNameOf(std::string_view path);
/// What stands before the last separator; empty without one.
std::string FolderOf(std::string_view path);
/// The same without the drive; "NO PATH" without a separator.
std::string FolderWithoutDriveOf(std::string_view path);

} // namespace velmora
