// Files of other programs: which are the program's own after all, and what a save would make of the others.
#pragma once

#include "workspace/ImportDocument.h"

#include <filesystem>
#include <string>

namespace velmora {

/// True for a workbook that the document was read from and that holds nothing but what a save would write. One that
/// cannot be read, or that another number of pages was written to, is another program's.
bool IsOwnWorkbook(const MainModule& main, const std::filesystem::path& path, const LeftOut& leftOut);

/// What a save over the file would lose, in a sentence or two for the person, as far as the reading showed.
std::string ForeignFindings(const Imported& imported, const std::filesystem::path& path);

} // namespace velmora
