// Opening what is no tab file: worksheets and the lists of other programs.
#pragma once

#include "document/TabFile.h"
#include "document/Worksheet.h"
#include "workspace/mdlMain.h"

#include <filesystem>
#include <string>
#include <variant>

namespace velmora {

enum class OpenOutcome { Opened, Failed, Cancelled, NoPrinter };

/// What is to be loaded, or how the import ended without it; a failure was shown then.
using Imported = std::variant<OpenOutcome, TabFile, Worksheet>;

/// Reads a tab file.
Imported ReadOwnFile(MainModule& main, const std::filesystem::path& path);
/// Opens the workbook and lets the person choose a worksheet and, where it has no header, its columns.
Imported ImportWorkbook(MainModule& main, const std::filesystem::path& path);
/// Reads a tab file, also one that a spreadsheet saved, and lets the person choose how a list is taken apart. A tab
/// file for a list that its reader takes apart the same way, and for what is no list at all.
Imported ImportText(MainModule& main, const std::filesystem::path& path);

} // namespace velmora
