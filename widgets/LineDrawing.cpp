#include "widgets/LineDrawing.h"

#include <QLineF>
#include <QPainter>
#include <QXmlStreamReader>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace velmora {
namespace {

constexpr double kSide = 24;
constexpr double kFullTurn = 360;

/// Draws the commands of a path one after the other.
class PathReader {
public:
    explicit PathReader(std::string_view commands) : rest_(commands) {}

    QPainterPath Read() {
        while (SkipToNext()) {
            if (std::isalpha(static_cast<unsigned char>(rest_.front()))) {
                command_ = rest_.front();
                rest_.remove_prefix(1);
            }
            Draw();
        }
        return path_;
    }

private:
    bool SkipToNext() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" ,"), rest_.size()));
        return !rest_.empty();
    }

    double Number() {
        double number = 0;
        SkipToNext();
        const auto end = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number).ptr;
        rest_.remove_prefix(std::max<std::size_t>(1, static_cast<std::size_t>(end - rest_.data())));
        return number;
    }

    /// Small letters count from where the pen is.
    QPointF Origin() const {
        return std::islower(static_cast<unsigned char>(command_)) ? path_.currentPosition() : QPointF();
    }

    QPointF Point() {
        const double x = Number();
        return Origin() + QPointF(x, Number());
    }

    void Draw() {
        const QPointF pen = path_.currentPosition();
        switch (std::toupper(static_cast<unsigned char>(command_))) {
        case 'M': path_.moveTo(Point()); break;
        case 'H': path_.lineTo(Origin().x() + Number(), pen.y()); break;
        case 'V': path_.lineTo(pen.x(), Origin().y() + Number()); break;
        case 'A': DrawArc(); break;
        case 'Z': path_.closeSubpath(); break;
        default: path_.lineTo(Point());
        }
    }

    void DrawArc() {
        const double radius = Number();
        Number(); // the other radius, which is the same
        Number(); // the turn of the axes, which a circle does not show
        const bool isLarge = Number() != 0, isClockwise = Number() != 0;
        const QPointF start = path_.currentPosition(), end = Point();
        const QLineF chord(start, end);
        const double half = chord.length() / 2;
        const double away = std::sqrt(std::max(0.0, radius * radius - half * half)) / (2 * half);
        const QPointF across(-chord.dy(), chord.dx());
        const QPointF centre = chord.center() + across * (isLarge == isClockwise ? -away : away);
        const double from = QLineF(centre, start).angle();
        const double turn = std::fmod(QLineF(centre, end).angle() - from + 2 * kFullTurn, kFullTurn);
        path_.arcTo({centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)}, from,
                    isClockwise ? turn - kFullTurn : turn);
    }

    std::string_view rest_;
    char command_ = 'M';
    QPainterPath path_;
};

QPainterPath CircleOf(const QXmlStreamAttributes& circle) {
    QPainterPath path;
    const double radius = circle.value("r").toDouble();
    path.addEllipse({circle.value("cx").toDouble(), circle.value("cy").toDouble()}, radius, radius);
    return path;
}

} // namespace

LineDrawing::LineDrawing(QIODevice& svg) {
    QXmlStreamReader reader(&svg);
    while (reader.readNextStartElement() || !reader.atEnd()) {
        if (!reader.isStartElement())
            continue;
        const QXmlStreamAttributes given = reader.attributes();
        if (reader.name() == u"svg") {
            width_ = given.value("stroke-width").toDouble();
            if (const QString colour = given.value("stroke").toString(); colour != "currentColor")
                ownColour_ = QColor(colour);
        } else {
            Stroke stroke{reader.name() == u"circle" ? CircleOf(given)
                                                     : PathReader(given.value("d").toString().toStdString()).Read(),
                          {}};
            for (const QStringView length : given.value("stroke-dasharray").split(u' ', Qt::SkipEmptyParts))
                stroke.dashes.append(length.toDouble() / width_);
            strokes_.append(stroke);
        }
    }
}

void LineDrawing::Paint(QPainter& painter, const QRectF& rect, const QColor& text) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.topLeft());
    painter.scale(rect.width() / kSide, rect.height() / kSide);
    QPen pen(ownColour_.isValid() ? ownColour_ : text, width_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    for (const Stroke& stroke : strokes_) {
        if (stroke.dashes.empty())
            pen.setStyle(Qt::SolidLine);
        else
            pen.setDashPattern(stroke.dashes);
        painter.strokePath(stroke.path, pen);
    }
    painter.restore();
}

} // namespace velmora
