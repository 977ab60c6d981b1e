// The Open command, and opening a file by its path.
#pragma once

#include "workspace/ImportDocument.h"

#include <filesystem>

namespace velmora {

/// Replaces the document by the file's, from its first page on. A failure is shown, sets `FileError` and leaves
/// document, settings and file as they were. NoPrinter: as LoadGlobals says.
OpenOutcome OpenFile(MainModule& main, const std::filesystem::path& path);

/// Opens a tab file, a worksheet of a workbook or another program's list, after an announcement of what is no version 8
/// document and the questions that go with it. A document that was imported counts as changed.
OpenOutcome OpenPath(MainModule& main, const std::filesystem::path& path);

/// OpenPath after the question about the open document, as for the Open command.
OpenOutcome OpenInstead(MainModule& main, const std::filesystem::path& path);

enum class OpenKind {
    Open,
    Import ///< the same, with workbooks chosen first
};

/// The Open command: offers to save the open document, asks for a file, announces what is no version 8 file and loads
/// it. Cancelled leaves everything as it was.
OpenOutcome OpenNewFile(MainModule& main, OpenKind kind);

} // namespace velmora
