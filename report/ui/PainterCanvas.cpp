#include "report/ui/PainterCanvas.h"

#include "base/Paths.h"
#include "report/GlyphOutline.h"
#include "report/Twips.h"

#include <QGlyphRun>

namespace velmora {
namespace {

QPainterPath PainterPathOf(const std::vector<OutlinePoint>& outline) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill); // parts of a glyph may overlap
    const auto at = [&](std::size_t i) { return QPointF(outline[i].x, -outline[i].y); };
    for (std::size_t i = 0; i < outline.size(); ++i)
        switch (outline[i].kind) {
        case OutlinePoint::Kind::Move:
            path.closeSubpath();
            path.moveTo(at(i));
            break;
        case OutlinePoint::Kind::Line: path.lineTo(at(i)); break;
        case OutlinePoint::Kind::Curve:
            path.cubicTo(at(i), at(i + 1), at(i + 2));
            i += 2;
            break;
        }
    path.closeSubpath();
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
    return known != outlines_.constEnd() ? *known
                                         : *outlines_.insert(glyph, PainterPathOf(GlyphOutline(*face_, glyph)));
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
