// Sheets drawn into a print job, with the very glyphs and places of the PDF.
#pragma once

#include "platform/PrintSurface.h"
#include "report/Canvas.h"

namespace velmora {

/// Plain faces go as glyphs, which printers keep and files embed once; thickened, slanted and varied ones, and those
/// that the surface cannot draw, as outlines. The job is the caller's to finish.
class SurfaceCanvas : public Canvas {
public:
    explicit SurfaceCanvas(PrintSurface& surface) : surface_(surface) {}

    void BeginSheet(const Paper& paper) override;
    void DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) override;
    void FillBox(const Box& box) override;
    void DrawOutline(const Box& box, OutlineStyle style) override;
    void EndSheet() override;

private:
    PrintPoint OnPaper(double x, double y) const;
    PrintArea OnPaper(const Box& box) const;
    void DrawRun(const GlyphRun& run, double fontSize, double left, double baseline);
    PrintShape ShapeOf(const GlyphRun& run, const PrintLine& line) const;

    PrintSurface& surface_;
    bool turned_ = false;
    double paperHeight_ = 0; ///< twips
};

} // namespace velmora
