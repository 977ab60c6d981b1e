// Families whose letters are as wide as another's: texts stand in either as they were meant to.
#pragma once

#include <string>

namespace velmora {

/// The family that gave this one its widths, "arial" for "Liberation Sans"; itself in small letters for any other.
std::string WidthsOf(const std::string& family);

} // namespace velmora
