// What a page of the wizard says of its entries while they are typed: what they will make, and what of it will be lost.
#pragma once

#include "wizard/TabSample.h"
#include "wizard/WizardState.h"

#include <cstdint>
#include <string>

namespace velmora {

struct ValueNotes {
    std::string preview;      ///< one line
    std::string letters = {}; ///< "22 of 10": the characters of the longest value, of those that the field takes
    bool isLong = false;      ///< they are more
    std::string warning = {}; ///< sentences on what will be lost; empty: nothing
};

/// Of the entries of field 1 to 3 in `count` tabs, at least 1.
ValueNotes NotesOn(const FieldChoice& choice, int fieldNo, std::int16_t most, std::int32_t count, TabSample& sample);

/// Beside a field's button on the chooser: what the new tabs will hold.
std::string FieldOverview(const WizardState& wizard, int fieldNo);
/// What its values will lose; empty for nothing, and without values.
std::string FieldWarning(const WizardState& wizard, int fieldNo, TabSample& sample);

} // namespace velmora
