// The one painter: preview, paper, PDF and test page all come from here.
#pragma once

#include "report/Canvas.h"

namespace velmora {

/// The boxes of tabs and fields around the texts.
enum class Outlines { Hidden, Shown };

/// Where a shaped line stands, in twips from the top left corner of the sheet.
struct LinePlace {
    double left;
    double baseline;
    bool fits; ///< else what lies outside the box is cut off
};
LinePlace PlaceLine(const PlacedText& placed, const ShapedText& text, const FontSettings& fonts);

/// Puts the texts of a sheet into their boxes in the fonts of their fields.
class SheetPainter {
public:
    /// The catalogue must outlive the painter; the fonts are copied.
    SheetPainter(const FontCatalogue& catalogue, const FontSettings& fonts);

    /// Raises Error on a machine without fonts.
    void Paint(const Sheet& sheet, Canvas& canvas, Outlines outlines = Outlines::Hidden);

private:
    void PaintText(const PlacedText& placed, Canvas& canvas);

    FontSettings fonts_;
    TextShaper shaper_;
};

} // namespace velmora
