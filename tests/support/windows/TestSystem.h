// What a test asks of the system itself.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace velmora {

inline constexpr bool kNamesAreBytes = false;         ///< also line breaks, and what is no UTF-8
inline constexpr bool kOpenFilesCanBeRemoved = false; ///< with the folder that they are in

/// From now on; empty: where they belong.
inline void PutTemporaryFilesInto(const std::filesystem::path& folder) {
    static const std::wstring usual = ::_wgetenv(L"TMP");
    ::_wputenv_s(L"TMP", folder.empty() ? usual.c_str() : folder.c_str());
}

} // namespace velmora
