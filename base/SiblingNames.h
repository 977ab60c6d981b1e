// How the hidden twins are named in which files are written before they take their places.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

inline constexpr std::string_view kSiblingStart = ".velmora-";
inline constexpr std::string_view kUnfinished = ".tmp";
inline constexpr std::string_view kWhole = ".whole";

/// Stands for a path in a file name: FNV-1a, in hexadecimal digits.
std::string PathSum(const std::filesystem::path& canonical);

/// The files of the folder whose names begin and end so; an empty folder is the working one.
std::vector<std::filesystem::path> FilesNamed(const std::filesystem::path& folder, std::string_view start,
                                              std::string_view ending);

} // namespace velmora
