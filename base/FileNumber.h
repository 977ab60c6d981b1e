// What tells a file from another that took its place.
#pragma once

#include <cstdint>
#include <filesystem>

namespace velmora {

/// The system's own number of a file; 0 where there is none.
std::uint64_t FileNumber(const std::filesystem::path& path);

} // namespace velmora
