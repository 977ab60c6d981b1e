// Loading a tab file or a worksheet into the document that is open.
#pragma once

#include "document/TabFile.h"
#include "document/Worksheet.h"
#include "workspace/Globals.h"

namespace velmora {

/// What errors while loading name as their place.
inline constexpr const char* kLoadPlace = "Called form Sub:LoadData";

/// The load procedure: header into the settings, tab lines into the arrays, whole pages; an announcement when there
/// are none. Raises OverflowError and what the settings raise; the caller puts back what was changed by then.
LoadOutcome LoadDocument(MainModule& main, const TabFile& file);
/// The same with a worksheet's cells: a comma in one stays in its field. The document is one for a file of the sheet's
/// encoding.
LoadOutcome LoadDocument(MainModule& main, const Worksheet& sheet);

} // namespace velmora
