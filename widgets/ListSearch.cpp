#include "widgets/ListSearch.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

namespace velmora {
namespace {

bool IsSearchLetter(const QKeyEvent& key) {
    constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !key.text().isEmpty() && key.text().front().isPrint() && !(key.modifiers() & kCommands);
}

} // namespace

ListSearch::ListSearch() {
    qApp->installEventFilter(this);
}

bool ListSearch::eventFilter(QObject* watched, QEvent* event) {
    auto* list = event->type() == QEvent::KeyPress ? qobject_cast<QComboBox*>(watched) : nullptr;
    if (!list || list->isEditable())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool within = sinceLetter_.isValid() && !sinceLetter_.hasExpired(QApplication::keyboardInputInterval());
    sinceLetter_.invalidate();
    const bool blank = key.key() == Qt::Key_Space;
    if (!IsSearchLetter(key) || (blank && !within))
        return false;
    sinceLetter_.start();
    if (!blank)
        return false;
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_unknown, key.modifiers(), key.text()); // which the list searches for
    QCoreApplication::sendEvent(list, &letter);
    return true;
}

} // namespace velmora
