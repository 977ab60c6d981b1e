// A print job that is a picture: what a system without PDFs is asked to draw.
#pragma once

#include "platform/PrintSurface.h"

#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>

namespace velmora::ink {

class PictureSurface : public PrintSurface {
public:
    /// The painter's transform maps twips to the picture. `hasFonts` false: it draws no glyphs.
    PictureSurface(QPainter& painter, bool hasFonts) : painter_(painter), hasFonts_(hasFonts) {}

    bool Start() override { return true; }
    void BeginPage() override { painter_.setRenderHint(QPainter::Antialiasing); }
    void Clip(const std::optional<PrintArea>& area) override {
        painter_.setClipping(area.has_value());
        if (area)
            painter_.setClipRect(ToRect(*area));
    }
    bool DrawLine(const PrintLine& line) override {
        if (!hasFonts_ || line.face != 0)
            return false;
        QList<quint32> ids;
        QList<QPointF> places;
        for (const PrintLine::Glyph& glyph : line.glyphs) {
            ids.append(glyph.id);
            places.append({glyph.along, -glyph.above});
        }
        QGlyphRun glyphs;
        glyphs.setRawFont(QRawFont(QString::fromStdString(line.font), line.size, QFont::PreferNoHinting));
        glyphs.setGlyphIndexes(ids);
        glyphs.setPositions(places);
        painter_.save();
        painter_.translate(line.start.x, line.start.y);
        painter_.rotate(line.upwards ? -90 : 0);
        painter_.drawGlyphRun({}, glyphs);
        painter_.restore();
        return true;
    }
    void FillShape(const PrintShape& shape) override {
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        const auto at = [&](std::size_t i) { return QPointF(shape.points[i].x, shape.points[i].y); };
        for (std::size_t i = 0; i < shape.points.size(); ++i)
            if (shape.points[i].kind == OutlinePoint::Kind::Curve) {
                path.cubicTo(at(i), at(i + 1), at(i + 2));
                i += 2;
            } else if (shape.points[i].kind == OutlinePoint::Kind::Line) {
                path.lineTo(at(i));
            } else {
                path.closeSubpath();
                path.moveTo(at(i));
            }
        path.closeSubpath();
        painter_.fillPath(path, Qt::black);
        if (shape.thickness > 0)
            painter_.strokePath(path, QPen(Qt::black, shape.thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    void FillArea(const PrintArea& area, double grey) override {
        const auto level = static_cast<float>(grey);
        painter_.fillRect(ToRect(area), QColor::fromRgbF(level, level, level));
    }
    void EndPage() override {}
    void Finish() override {}

private:
    static QRectF ToRect(const PrintArea& area) { return {area.left, area.top, area.width, area.height}; }

    QPainter& painter_;
    bool hasFonts_;
};

} // namespace velmora::ink
