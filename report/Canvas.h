// What a sheet is painted on: paper, the screen or a PDF. The painter decides what stands where; a canvas
// only knows how to put ink there.
#pragma once

#include "report/Sheet.h"
#include "report/TextShaper.h"

#include <optional>

namespace velmora {

enum class OutlineStyle { Tab, Field };

/// A line of the given width in grey (0 black to 1 white), the same on every canvas.
struct OutlinePen {
    double width; ///< twips
    double grey;
};
constexpr OutlinePen PenOf(OutlineStyle style) {
    return style == OutlineStyle::Tab ? OutlinePen{10, 0.45} : OutlinePen{5, 0.75};
}

/// All lengths are twips from the top left corner of the sheet as it is read, turned paper or not.
class Canvas {
public:
    virtual ~Canvas() = default;
    virtual void BeginSheet(const Paper& paper) = 0;
    /// Black text; ink outside `clip` is not drawn.
    virtual void DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) = 0;
    virtual void FillBox(const Box& box) = 0; ///< black
    virtual void DrawOutline(const Box& box, OutlineStyle style) = 0;
    virtual void EndSheet() = 0;
};

} // namespace velmora
