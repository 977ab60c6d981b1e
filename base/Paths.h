// Where paths become text, and text becomes a path.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmora {

/// Texts of paths are UTF-8. Where the system's names are bytes (Linux) they stay as they are, also what is no UTF-8.
std::filesystem::path PathOf(std::string_view utf8);
std::string PathText(const std::filesystem::path& path);
/// The last part without its ending.
std::string StemText(const std::filesystem::path& path);
/// With "/" between the parts on every system, as archives write them.
std::string SlashedPathText(const std::filesystem::path& path);

} // namespace velmora
