#include "platform/qt/TypedAhead.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace velmora {
namespace {

constexpr qint64 kPauseMs = 400;

/// Alt is held on purpose; Return types a line end, Tab leads to the next box.
bool IsTyped(const QKeyEvent& key) {
    const QString text = key.text();
    return !(key.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) && !text.isEmpty() &&
           (text.front().isPrint() || text.front().isSpace());
}

} // namespace

TypedAhead::TypedAhead(QWidget& window) : window_(window) {
    sinceKey_.start();
    qApp->installEventFilter(this);
}

bool TypedAhead::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !IsTyped(*static_cast<QKeyEvent*>(event)) || !watched->isWidgetType() ||
        static_cast<QWidget*>(watched)->window() != &window_)
        return false;
    return sinceKey_.restart() < kPauseMs;
}

} // namespace velmora
