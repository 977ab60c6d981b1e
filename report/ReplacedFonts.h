// Which family takes the place of one that is not installed.
#pragma once

#include "document/FontSettings.h"
#include "platform/FontCatalogue.h"

#include <optional>
#include <string>

namespace velmora {

/// nullopt for a family that is installed, and where one takes its place whose letters are as wide: texts then stand
/// as they were meant to, as those in Arial do in Liberation Sans.
std::optional<std::string> ReplacementOf(const FieldFont& font, const FontCatalogue& catalogue);

} // namespace velmora
