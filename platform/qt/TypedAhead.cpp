#include "platform/qt/TypedAhead.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

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

/// A key comes to the window once; behind that it goes from control to control.
bool TypedAhead::eventFilter(QObject* watched, QEvent* event) {
    return watched == window_.windowHandle() && event->type() == QEvent::KeyPress &&
           IsTyped(*static_cast<QKeyEvent*>(event)) && sinceKey_.restart() < kPauseMs;
}

} // namespace velmora
