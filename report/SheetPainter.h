// The one painter: preview, paper, PDF and test page all come from here.
#pragma once

#include "report/Canvas.h"

#include <string>

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

/// What of a text does not reach the paper.
struct TextLoss {
    bool cut = false;     ///< it does not fit its box
    bool unknown = false; ///< no installed font has one of its characters: an empty box is printed

    bool operator==(const TextLoss&) const = default;
};

/// For a person; empty when nothing is lost.
std::string LossText(const TextLoss& loss);

/// Puts the texts of a sheet into their boxes in the fonts of their fields.
class SheetPainter {
public:
    /// The catalogue must outlive the painter; the fonts are copied.
    SheetPainter(const FontCatalogue& catalogue, const FontSettings& fonts);

    /// Raises Error on a machine without fonts.
    void Paint(const Sheet& sheet, Canvas& canvas, Outlines outlines = Outlines::Hidden);
    /// One text of a sheet that the canvas has begun. Raises Error on a machine without fonts.
    TextLoss PaintText(const PlacedText& placed, Canvas& canvas);
    /// What PaintText would lose.
    TextLoss LossOf(const PlacedText& placed);

private:
    static void PaintUnderline(const PlacedText& placed, const ShapedText& text, const LinePlace& place,
                               Canvas& canvas);

    FontSettings fonts_;
    TextShaper shaper_;
};

} // namespace velmora
