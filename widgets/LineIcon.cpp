#include "widgets/LineIcon.h"

#include "widgets/LineDrawing.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace velmora {
namespace {

/// Paints the drawing in the palette's text colour, at whatever size and scale is asked for.
class LineIconEngine : public QIconEngine {
public:
    explicit LineIconEngine(LineDrawing drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        drawing_.Paint(*painter, rect, QGuiApplication::palette().color(group, QPalette::ButtonText));
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
    LineDrawing drawing_;
};

} // namespace

QIcon LineIcon(const char* name) {
    QFile file(QString(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? QIcon(new LineIconEngine(LineDrawing(file))) : QIcon();
}

} // namespace velmora
