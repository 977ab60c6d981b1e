// What the tests of the settings share.
#pragma once

#include "base/AtomicFile.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace velmora {

/// What a file holds; "(none)" where there is none.
inline std::string Content(const std::filesystem::path& path) {
    return std::filesystem::exists(path) ? ReadFile(path) : "(none)";
}

} // namespace velmora
