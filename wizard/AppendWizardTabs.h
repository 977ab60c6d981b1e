// The wizard's end: its values go into the document, which grows by whole pages as far as they need.
#pragma once

#include "wizard/WizardState.h"

#include <cstdint>

namespace velmora {

/// Writes the values of the fields used into the tabs from the tab in use on (from tab 1 while there is none), or from
/// behind the last text on, also empty ones over what stands there; fields not used keep their texts, and the document
/// never shrinks. Stores the document's properties and shows the first of the tabs. Fonts that the wizard stored
/// belong to its one step of undo. False, with the limit told and nothing but a `CurrentTab` of 0 changed, when the
/// document would hold too many pages. Raises OverflowError, with nothing changed, when the last tab has no 16-bit
/// number.
bool AppendWizardTabs(MainModule& main, const WizardState& wizard);

/// Says why that many tabs cannot be filled; false where they can.
bool TellRefusal(MainModule& main, bool behindLast, std::int32_t count);

} // namespace velmora
