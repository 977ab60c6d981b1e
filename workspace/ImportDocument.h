// Opening what is no tab file: worksheets and the lists of other programs.
#pragma once

#include "workspace/OpenDocument.h"

#include <filesystem>
#include <functional>
#include <string>

namespace velmora {

using LoadProcedure = std::function<LoadOutcome()>;
/// Puts what the procedure loads in the place of the document, all or nothing.
using ReplaceWith = std::function<OpenOutcome(const LoadProcedure& load)>;

/// Says what the file is unless it is of version 8. False for what has no header either.
bool AnnounceVersion(MainModule& main, const std::filesystem::path& path, const std::string& firstText);

/// Opens the workbook, lets the person choose a worksheet and, where it has no header, its columns, and replaces the
/// document. Failures are shown.
OpenOutcome ImportWorkbook(MainModule& main, const std::filesystem::path& path, const ReplaceWith& replace);

/// Lets the person choose how a list is taken apart. `openTabFile` opens what a tab file's reader takes apart the same
/// way, and what is no list at all.
OpenOutcome ImportList(MainModule& main, const std::filesystem::path& path, const ReplaceWith& replace,
                       const std::function<OpenOutcome()>& openTabFile);

} // namespace velmora
