// What a test asks of the system itself.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace velmora {

inline constexpr bool kNamesAreBytes = true;         ///< also line breaks, and what is no UTF-8
inline constexpr bool kOpenFilesCanBeRemoved = true; ///< with the folder that they are in

/// From now on; empty: where they belong.
inline void PutTemporaryFilesInto(const std::filesystem::path& folder) {
    folder.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", folder.c_str(), 1);
}

} // namespace velmora
