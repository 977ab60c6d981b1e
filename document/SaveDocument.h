// Writing the document to a file: the Save and Save as flow, and one file with its retries. A file is replaced in one
// step, so that a failure leaves the old one.
#pragma once

#include "document/mdlMain.h"

#include <filesystem>

namespace velmora {

enum class SaveOutcome { Saved, Failed, Cancelled };

/// Saves under the document's own name, or under one that is asked for (`saveAs`, and always for an untitled document).
/// Once saved, `DocFileName` is the path written and the caption shows it. The page on screen is taken back first.
SaveOutcome SaveLabels(MainModule& main, bool saveAs);

/// Writes one file, with its questions after a failure. `FileError` tells the outcome.
void SaveFile(MainModule& main, const std::filesystem::path& path);

} // namespace velmora
