// The stationery pictures and the sample document travel inside the program and are laid out at its first start.
#pragma once

#include <filesystem>

namespace velmora {

/// Writes every bundled file that is not there yet below `folder`, which is made where it is missing. A file that
/// cannot be written is left out: the start-up asks for what it misses.
void UnpackBundledFiles(const std::filesystem::path& folder);

} // namespace velmora
