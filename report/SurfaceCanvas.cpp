#include "report/SurfaceCanvas.h"

#include "report/GlyphOutline.h"
#include "report/Twips.h"

namespace velmora {
namespace {

/// Where the glyphs of a run stand on a line that begins at 0.
PrintLine LineOf(const GlyphRun& run, double fontSize) {
    const FontFace& face = *run.typeface.face;
    const double unit = fontSize / face.UnitsPerEm();
    PrintLine line{face.Path(), face.Index(), fontSize, {}, false, {}};
    double pen = 0;
    for (const ShapedGlyph& glyph : run.glyphs) {
        line.glyphs.push_back({glyph.id, pen + glyph.xOffset * unit, glyph.yOffset * unit});
        pen += glyph.advance * unit;
    }
    return line;
}

bool IsPlain(const Typeface& typeface) {
    return !typeface.embolden && !typeface.slant && !typeface.face->VariedWeight();
}

} // namespace

void SurfaceCanvas::BeginSheet(const Paper& paper) {
    turned_ = paper.turned;
    paperHeight_ = PaperTwips(paper.heightMm);
    surface_.BeginPage();
}

void SurfaceCanvas::EndSheet() {
    surface_.EndPage();
}

PrintPoint SurfaceCanvas::OnPaper(double x, double y) const {
    return turned_ ? PrintPoint{y, paperHeight_ - x} : PrintPoint{x, y};
}

PrintArea SurfaceCanvas::OnPaper(const Box& box) const {
    if (!turned_)
        return {box.left, box.top, box.width, box.height};
    return {box.top, paperHeight_ - box.Right(), box.height, box.width};
}

void SurfaceCanvas::DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) {
    if (clip)
        surface_.Clip(OnPaper(*clip));
    for (const GlyphRun& run : text.runs) {
        DrawRun(run, text.fontSize, left, baseline);
        left += RunWidth(run, text.fontSize);
    }
    if (clip)
        surface_.Clip(std::nullopt);
}

void SurfaceCanvas::DrawRun(const GlyphRun& run, double fontSize, double left, double baseline) {
    PrintLine line = LineOf(run, fontSize);
    line.start = OnPaper(left, baseline);
    line.upwards = turned_;
    if (IsPlain(run.typeface) && surface_.DrawLine(line))
        return;
    const PrintShape shape = ShapeOf(run, line);
    if (!shape.points.empty())
        surface_.FillShape(shape);
}

PrintShape SurfaceCanvas::ShapeOf(const GlyphRun& run, const PrintLine& line) const {
    const FontFace& face = *run.typeface.face;
    const double unit = line.size / face.UnitsPerEm(), lean = run.typeface.slant ? kSlantShear : 0;
    PrintShape shape{{}, run.typeface.embolden ? line.size * kEmboldenStroke : 0};
    for (const PrintLine::Glyph& glyph : line.glyphs)
        for (const OutlinePoint& point : GlyphOutline(face, glyph.id)) {
            const double along = glyph.along + (point.x + point.y * lean) * unit, above = glyph.above + point.y * unit;
            shape.points.push_back({point.kind, line.start.x + (line.upwards ? -above : along),
                                    line.start.y - (line.upwards ? along : above)});
        }
    return shape;
}

void SurfaceCanvas::FillBox(const Box& box) {
    surface_.FillArea(OnPaper(box), 0);
}

/// A frame of four bars, whose corners are square.
void SurfaceCanvas::DrawOutline(const Box& box, OutlineStyle style) {
    const auto [width, grey] = PenOf(style);
    const double half = width / 2;
    const Box outer = {box.left - half, box.top - half, box.width + width, box.height + width};
    for (const Box& bar :
         {Box{outer.left, outer.top, outer.width, width}, Box{outer.left, box.Bottom() - half, outer.width, width},
          Box{outer.left, outer.top, width, outer.height}, Box{box.Right() - half, outer.top, width, outer.height}})
        surface_.FillArea(OnPaper(bar), grey);
}

} // namespace velmora
