// The Open command, and opening a file by its path.
#pragma once

#include "workspace/ImportDocument.h"

#include <filesystem>
#include <optional>
#include <string>

namespace velmora {

/// The copy that an interrupted save left of what the file was to hold, and does not; nullopt where there is none.
std::optional<std::filesystem::path> UnfinishedSave(const std::filesystem::path& path);

/// What is to be said about lines of tabs with more fields than a tab has; empty where there are none.
std::string OverfullFindings(const TabFile& file);

/// Replaces the document by the file's, from its first page on. A failure is shown, sets `FileError` and leaves
/// document, settings and file as they were. NoPrinter: as LoadGlobals says.
OpenOutcome OpenFile(MainModule& main, const std::filesystem::path& path);

/// Opens a tab file, a worksheet of a workbook or another program's list, after an announcement of what is no version 8
/// document and the questions that go with it. What is not the program's own (a tab file of version 7 or 8, a workbook
/// of saved tabs) counts as changed and as another program's. Lines with fields that were not read are named.
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
