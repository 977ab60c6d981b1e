// A simple line drawing of 24 by 24 units, read from the little of SVG that the bundled icons use.
#pragma once

#include <QColor>
#include <QList>
#include <QPainterPath>

class QIODevice;
class QPainter;
class QRectF;

namespace velmora {

class LineDrawing {
public:
    /// Paths of the commands M, L, H, V, A and Z, with arcs of circles alone, and circles; one width and one colour.
    explicit LineDrawing(QIODevice& svg);

    /// `text`: the colour of what is drawn in "currentColor".
    void Paint(QPainter& painter, const QRectF& rect, const QColor& text) const;

private:
    struct Stroke {
        QPainterPath path;
        QList<double> dashes; ///< in units of the width; empty: solid
    };

    QList<Stroke> strokes_;
    double width_ = 1;
    QColor ownColour_; ///< not valid: as the text
};

} // namespace velmora
