// A field's choice in words, as scripts and the settings have it: "A=number,first=7,width=3,before=No.".
#pragma once

#include "wizard/FieldChoice.h"

#include <string>

namespace velmora {

struct FieldSetting {
    int fieldNo = 1; ///< 1 to 3
    FieldChoice choice;
};

/// Settings are parted by commas; a value that starts with a double quote reaches to the next single one. Raises Error
/// with the cause.
FieldSetting ParseFieldWords(const std::string& words);
/// The shortest words that ParseFieldWords reads as this setting, but for what its kind does not use.
std::string FieldWords(const FieldSetting& setting);

} // namespace velmora
