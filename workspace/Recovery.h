// When a recovery copy is made: before what can lose text, and of what is replaced.
#pragma once

#include "workspace/mdlMain.h"

#include <filesystem>
#include <optional>

namespace velmora {

/// Takes the page on screen back and brings the recovery copy up to date; a failure is reported once, until a copy
/// succeeds again. No effect within a Transaction, whose document may be half changed. True when the copy is up to
/// date.
bool KeepRecoveryCopy(MainModule& main);
/// The same beside the caller's work: it costs the time to copy the texts. What went wrong is told by the next call, or
/// by FinishRecoveryCopy.
void KeepRecoveryCopyBeside(MainModule& main);
/// Waits for such a copy, and reports its failure as above.
void FinishRecoveryCopy(MainModule& main);
/// As KeepRecoveryCopy when the program is being ended: a failure is nobody's to read any more, and stays silent. A
/// copy on its way is waited for, also within a Transaction.
void KeepLastRecoveryCopy(MainModule& main);
/// Takes the page on screen back and puts a changed document that is about to be replaced among the recoverable ones;
/// gives its copy, nullopt where there is nothing new to keep. A failure is reported, and the replacing goes on.
std::optional<std::filesystem::path> ArchiveDocument(MainModule& main);

} // namespace velmora
