// When a recovery copy is made: before what can lose text, and of what is replaced.
#pragma once

#include "workspace/mdlMain.h"

#include <filesystem>
#include <optional>

namespace velmora {

/// Takes the page on screen back and brings the recovery copy up to date; a failure is reported once, until a copy
/// succeeds again. No effect within a Transaction, whose document may be half changed.
void KeepRecoveryCopy(MainModule& main);
/// The same when the program is being ended: a failure is nobody's to read any more, and stays silent.
void KeepLastRecoveryCopy(MainModule& main);
/// Takes the page on screen back and puts a changed document that is about to be replaced among the recoverable ones;
/// gives its copy, nullopt where there is nothing new to keep. A failure is reported, and the replacing goes on.
std::optional<std::filesystem::path> ArchiveDocument(MainModule& main);

} // namespace velmora
