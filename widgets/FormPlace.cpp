#include "widgets/FormPlace.h"

#include "settings/FormPosition.h"

#include <QScreen>
#include <QShowEvent>

namespace velmora {
namespace {

FormPosition PlaceOf(const QWidget& window) {
    return {window.x(), window.y(), window.width(), window.height()};
}

} // namespace

void RestorePlace(QWidget& window, SettingsStore& settings, const char* key) {
    const QSize room = window.screen()->virtualSize();
    const FormPosition place = RestoreFormPosition(settings, key, PlaceOf(window), room.width(), room.height());
    window.move(place.left, place.top);
    window.resize(QSize(place.width, place.height).boundedTo(window.screen()->availableSize()));
}

void SavePlace(const QWidget& window, SettingsStore& settings, const char* key) {
    SaveFormPosition(settings, key, PlaceOf(window));
}

PlacedDialog::PlacedDialog(SettingsStore& settings, const char* key, QWidget* parent)
    : QDialog(parent), settings_(settings), key_(key) {}

void PlacedDialog::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        adjustSize(); // the layout's own size, where none is stored
        RestorePlace(*this, settings_, key_);
    }
    QDialog::showEvent(event);
}

void PlacedDialog::hideEvent(QHideEvent* event) {
    if (!event->spontaneous())
        SavePlace(*this, settings_, key_);
    QDialog::hideEvent(event);
}

} // namespace velmora
