// Whether a workbook is the program's own, so that a save loses nothing.
#pragma once

#include "workspace/mdlMain.h"

#include <filesystem>

namespace velmora {

/// True for a workbook that the document was read from and that holds nothing but what a save would write. One that
/// cannot be read, or that another number of pages was written to, is another program's.
bool IsOwnWorkbook(const MainModule& main, const std::filesystem::path& path);

} // namespace velmora
