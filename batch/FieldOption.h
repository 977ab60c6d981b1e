// The option that tells the values of one field: "A=number,first=7,before=No.".
#pragma once

#include "wizard/WizardState.h"

#include <string>

namespace velmora {

struct FieldOption {
    std::string source; ///< the option, in one line
    int fieldNo = 1;    ///< 1 to 3
    ValueKind kind = ValueKind::Numeric;
    NumberSeries numbers;     ///< for Numeric
    int style = 1;            ///< for Month and Day
    std::vector<bool> ticked; ///< one per name of the year or week
    bool upper = false;
    std::string text; ///< for Text
};

/// Settings are parted by commas; a value that starts with a double quote reaches to the next single one. Raises
/// UsageError, which repeats the option.
FieldOption ParseFieldOption(const std::string& option);

} // namespace velmora
