// Getting a document back from its recovery copy.
#pragma once

#include "workspace/Globals.h"
#include "workspace/RecoveryCopy.h"
#include "workspace/RecoveryStore.h"

namespace velmora {

/// Makes the copy the document, changed and under its old name. Raises Error; the caller puts back what was changed by
/// then. NoPrinter: as LoadGlobals says.
LoadOutcome LoadCopy(MainModule& main, const RecoveryCopy& copy);

/// Replaces the document by one that can be had back, which is settled as soon as this program has a copy of its own.
/// Raises Error with everything as it was.
/// NoPrinter: as LoadGlobals says.
LoadOutcome RestoreDocument(MainModule& main, const RecoveredDocument& recovered);

} // namespace velmora
