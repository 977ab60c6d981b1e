// Loading a tab file or a worksheet into the document that is open.
#pragma once

#include "document/TabFile.h"
#include "document/Worksheet.h"
#include "workspace/mdlMain.h"

#include <filesystem>

namespace velmora {

/// The load procedure: header into the settings, tab lines into the arrays, whole pages; an announcement when there
/// are none. Raises OverflowError and what the settings raise; the caller puts back what was changed by then.
LoadOutcome LoadDocument(MainModule& main, const TabFile& file);
/// The same with a worksheet's cells; the document is one for a UTF-8 file.
LoadOutcome LoadDocument(MainModule& main, const Worksheet& sheet);

enum class OpenOutcome { Opened, Failed, Cancelled, NoPrinter };

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
