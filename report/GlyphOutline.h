// The outlines of glyphs, for canvases that draw them as shapes.
#pragma once

#include "platform/PrintSurface.h"
#include "report/FontFace.h"

#include <vector>

namespace velmora {

/// In font units from the start of its baseline, y upwards. Empty for a glyph without ink.
std::vector<OutlinePoint> GlyphOutline(const FontFace& face, std::uint32_t glyph);

} // namespace velmora
