#include "widgets/LineIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace velmora {
namespace {

/// Renders the drawing with "currentColor" replaced by the palette's text colour, at whatever size and scale is asked
/// for.
class LineIconEngine : public QIconEngine {
public:
    explicit LineIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QByteArray drawing = drawing_;
        drawing.replace("currentColor", QGuiApplication::palette().color(group, QPalette::ButtonText).name().toUtf8());
        QSvgRenderer(drawing).render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new LineIconEngine(drawing_); }

private:
    QByteArray drawing_;
};

} // namespace

QIcon LineIcon(const char* name) {
    QFile file(QString(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? QIcon(new LineIconEngine(file.readAll())) : QIcon();
}

} // namespace velmora
