// Writing the document to a file: the Save and Save as flow, and one file with its retries. A file is replaced in one
// step, so that a failure leaves the old one.
#pragma once

#include "document/TabFile.h"
#include "workspace/mdlMain.h"

#include <filesystem>

namespace velmora {

enum class SaveKind {
    Save, ///< under the document's own name; an untitled document is asked for one, and so is one of another program's
          ///< file that is not to be overwritten
    SaveAs, ///< under a name that is asked for
    Export  ///< a copy of the tabs alone, without header lines, under a name that is asked for
};

enum class SaveOutcome { Saved, Failed, Cancelled };

/// Saves the document, the page on screen taken back first. Commas in tabs, which the file cannot keep, are asked about
/// before anything is written. Once saved, `DocFileName` is the path written and the caption shows it; an export leaves
/// name, caption, texts and unsaved changes as they are.
SaveOutcome SaveLabels(MainModule& main, SaveKind kind);

/// Tells which tabs hold commas, and what the next reading loses by them; no effect when none does.
void WarnOfCommas(MainModule& main);

/// Writes one file, a workbook where its name ends in .xls or .xlsx, with its questions after a failure. `FileError`
/// tells the outcome.
void SaveFile(MainModule& main, const std::filesystem::path& path, FileHeader header = FileHeader::Written);

} // namespace velmora
