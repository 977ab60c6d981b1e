// The wizard's end: its values go into the document, which grows by whole pages as far as they need.
#pragma once

#include "wizard/WizardState.h"

#include <string>

namespace velmora {

/// Writes the values of the fields used into the tabs from `CurrentTab` on (from tab 1 while that is 0), also empty
/// ones over what stands there; fields not used keep their texts, and the document never shrinks. Stores the document's
/// properties and shows the page of the first tab. False, with the limit told and nothing but `CurrentTab` changed,
/// when the document would hold too many pages. Raises OverflowError, with nothing changed, when the last tab has no
/// 16-bit number.
bool AppendWizardTabs(MainModule& main, const WizardState& wizard);

/// Says which tabs `count` new ones will be, and how many of them hold texts that may be replaced.
std::string PlaceOfNewTabs(const TabDocument& document, int count);

} // namespace velmora
