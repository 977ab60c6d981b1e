#include "base/Paths.h"

#include "base/windows/Api.h"

#include <algorithm>

namespace velmora {

std::filesystem::path PathOf(std::string_view utf8) {
    return std::filesystem::path(Wide(utf8)).make_preferred();
}

/// A disk may have names with half a pair of surrogates, which become replacement characters.
std::string PathText(const std::filesystem::path& path) {
    return Narrow(path.native());
}

std::string StemText(const std::filesystem::path& path) {
    return PathText(path.stem());
}

std::string SlashedPathText(const std::filesystem::path& path) {
    std::string text = PathText(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

} // namespace velmora
