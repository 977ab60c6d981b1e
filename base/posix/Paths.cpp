#include "base/Paths.h"

namespace velmora {

std::filesystem::path PathOf(std::string_view utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

std::string PathText(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

std::string StemText(const std::filesystem::path& path) {
    return PathText(path.stem());
}

std::string SlashedPathText(const std::filesystem::path& path) {
    const std::u8string utf8 = path.generic_u8string();
    return {utf8.begin(), utf8.end()};
}

} // namespace velmora
