// The stationery pictures and the sample document travel inside the program and are laid out at its first start.
#pragma once

#include <filesystem>

namespace velmora {

/// Writes the bundled files of one folder, "Images" or "Tabs", that are not there yet into `target`, which is made
/// where it is missing. A file that cannot be written is left out: the start-up asks for what it misses.
void UnpackBundledFiles(const char* folder, const std::filesystem::path& target);

} // namespace velmora
