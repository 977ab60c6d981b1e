#include "report/ui/PainterCanvas.h"

#include "base/Paths.h"
#include "report/Twips.h"

#include <QGlyphRun>

#include <type_traits>

namespace velmora {
namespace {

QPainterPath& PathOf(void* drawData) {
    return *static_cast<QPainterPath*>(drawData);
}

// Outlines come with y upwards.
void MoveTo(hb_draw_funcs_t*, void* path, hb_draw_state_t*, float x, float y, void*) {
    PathOf(path).moveTo(x, -y);
}
void LineTo(hb_draw_funcs_t*, void* path, hb_draw_state_t*, float x, float y, void*) {
    PathOf(path).lineTo(x, -y);
}
void QuadraticTo(hb_draw_funcs_t*, void* path, hb_draw_state_t*, float controlX, float controlY, float x, float y,
                 void*) {
    PathOf(path).quadTo(controlX, -controlY, x, -y);
}
void CubicTo(hb_draw_funcs_t*, void* path, hb_draw_state_t*, float control1X, float control1Y, float control2X,
             float control2Y, float x, float y, void*) {
    PathOf(path).cubicTo(control1X, -control1Y, control2X, -control2Y, x, -y);
}
void ClosePath(hb_draw_funcs_t*, void* path, hb_draw_state_t*, void*) {
    PathOf(path).closeSubpath();
}

QPainterPath GlyphOutline(const FontFace& face, std::uint32_t glyph) {
    const std::unique_ptr<hb_draw_funcs_t, HbRelease<hb_draw_funcs_destroy>> functions(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(functions.get(), MoveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions.get(), LineTo, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(functions.get(), QuadraticTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions.get(), CubicTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions.get(), ClosePath, nullptr, nullptr);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill); // parts of a glyph may overlap
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(face.Font(), glyph, functions.get(), &path);
#else
    hb_font_get_glyph_shape(face.Font(), glyph, functions.get(), &path);
#endif
    return path;
}

} // namespace

PainterFont::PainterFont(std::shared_ptr<const FontFace> face) : face_(std::move(face)) {}

const QRawFont& PainterFont::RawFont(double sizeTwips) {
    const auto [entry, isNew] = rawFonts_.try_emplace(sizeTwips);
    if (isNew && face_->Index() == 0 && !face_->VariedWeight())
        entry->second = QRawFont(QString::fromStdString(PathText(face_->Path())), sizeTwips, QFont::PreferNoHinting);
    return entry->second;
}

const QPainterPath& PainterFont::Outline(std::uint32_t glyph) {
    const auto known = outlines_.constFind(glyph);
    return known != outlines_.constEnd() ? *known : *outlines_.insert(glyph, GlyphOutline(*face_, glyph));
}

PainterFont& PainterFonts::operator[](const std::shared_ptr<const FontFace>& face) {
    auto& font = fonts_[face.get()];
    if (!font)
        font = std::make_unique<PainterFont>(face);
    return *font;
}

PainterCanvas::PainterCanvas(QPainter& painter, PainterFonts& fonts, SheetView view)
    : painter_(painter), fonts_(fonts), view_(view) {}

void PainterCanvas::BeginSheet(const Paper& paper) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::black);
    painter_.setBrush(Qt::NoBrush);
    if (!paper.turned || view_ == SheetView::AsRead)
        return;
    // What reads to the right runs up the paper; the sheet's top lies along the left edge.
    const double paperHeight = PaperTwips(paper.heightMm);
    painter_.setTransform(QTransform(0, -1, 1, 0, 0, paperHeight), true);
}

void PainterCanvas::EndSheet() {
    painter_.restore();
}

void PainterCanvas::DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) {
    if (clip) {
        painter_.save();
        painter_.setClipRect(ToRect(*clip), Qt::IntersectClip);
    }
    for (const GlyphRun& run : text.runs) {
        DrawRun(run, text.fontSize, {left, baseline});
        left += RunWidth(run, text.fontSize);
    }
    if (clip)
        painter_.restore();
}

void PainterCanvas::DrawRun(const GlyphRun& run, double fontSize, QPointF start) {
    const QRawFont& font = fonts_[run.typeface.face].RawFont(fontSize);
    if (!font.isValid() || run.typeface.embolden || run.typeface.slant)
        return DrawRunAsOutlines(run, fontSize, start);
    const double unit = fontSize / run.typeface.face->UnitsPerEm();
    QList<quint32> glyphs;
    QList<QPointF> positions;
    double pen = 0;
    for (const ShapedGlyph& glyph : run.glyphs) {
        glyphs.append(glyph.id);
        positions.append({pen + glyph.xOffset * unit, -glyph.yOffset * unit});
        pen += glyph.advance * unit;
    }
    QGlyphRun shaped;
    shaped.setRawFont(font);
    shaped.setGlyphIndexes(glyphs);
    shaped.setPositions(positions);
    painter_.drawGlyphRun(start, shaped);
}

void PainterCanvas::DrawRunAsOutlines(const GlyphRun& run, double fontSize, QPointF start) {
    PainterFont& font = fonts_[run.typeface.face];
    const double unitsPerEm = run.typeface.face->UnitsPerEm();
    painter_.save();
    painter_.translate(start);
    painter_.scale(fontSize / unitsPerEm, fontSize / unitsPerEm);
    painter_.setBrush(Qt::black);
    painter_.setPen(run.typeface.embolden
                        ? QPen(Qt::black, unitsPerEm * kEmboldenStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                        : QPen(Qt::NoPen));
    double pen = 0;
    for (const ShapedGlyph& glyph : run.glyphs) {
        QTransform place(1, 0, run.typeface.slant ? -kSlantShear : 0, 1, pen + glyph.xOffset, -glyph.yOffset);
        painter_.drawPath(place.map(font.Outline(glyph.id)));
        pen += glyph.advance;
    }
    painter_.restore();
}

void PainterCanvas::FillBox(const Box& box) {
    painter_.fillRect(ToRect(box), Qt::black);
}

void PainterCanvas::DrawOutline(const Box& box, OutlineStyle style) {
    const OutlinePen pen = PenOf(style);
    painter_.save();
    painter_.setPen(
        QPen(QColor::fromRgbF(static_cast<float>(pen.grey), static_cast<float>(pen.grey), static_cast<float>(pen.grey)),
             pen.width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.drawRect(ToRect(box));
    painter_.restore();
}

} // namespace velmora
