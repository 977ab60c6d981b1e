// The one store of settings, in the INI file beside the program or, to read what older installations left, in the
// registry.
#pragma once

#include "app/settings/IniFile.h"
#include "platform/Registry.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// Rows of key name and value text, in the order of the store.
using KeyTable = std::vector<std::pair<std::string, std::string>>;

} // namespace velmora
