#include "widgets/AltKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace velmora {
namespace {

/// A level of the keyboard that people type on comes without Alt, or with Ctrl beside it.
bool IsAltLetter(const QKeyEvent& key) {
    return key.modifiers().testFlag(Qt::AltModifier) && !key.modifiers().testFlag(Qt::ControlModifier) &&
           !key.text().isEmpty() && key.text().front().isPrint();
}

} // namespace

AltKeys::AltKeys() {
    qApp->installEventFilter(this);
}

/// Menus and buttons have been asked by the time that an entry gets the key.
bool AltKeys::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::KeyPress && watched->isWidgetType() &&
           static_cast<QWidget*>(watched)->testAttribute(Qt::WA_InputMethodEnabled) &&
           IsAltLetter(*static_cast<QKeyEvent*>(event));
}

} // namespace velmora
