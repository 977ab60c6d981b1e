#include "widgets/FormPlace.h"

#include "settings/FormPosition.h"

#include <QScreen>
#include <QShowEvent>

#include <limits>

namespace velmora {
namespace {

constexpr int kRoomBeside = 12; ///< pixels between a window and what it makes room for

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

QPoint PlaceBeside(const QRect& frame, const QRect& spot, const QRect& screen) {
    const QRect kept = spot.adjusted(-kRoomBeside, -kRoomBeside, kRoomBeside, kRoomBeside);
    QPoint best = frame.topLeft();
    int nearest = std::numeric_limits<int>::max();
    for (const QPoint corner :
         {frame.topLeft(), QPoint(frame.x(), kept.bottom() + 1), QPoint(frame.x(), kept.top() - frame.height()),
          QPoint(kept.right() + 1, frame.y()), QPoint(kept.left() - frame.width(), frame.y())}) {
        const int distance = (corner - frame.topLeft()).manhattanLength();
        const QRect there(corner, frame.size());
        if (distance >= nearest || there.intersects(spot) || (distance > 0 && !screen.contains(there)))
            continue;
        best = corner;
        nearest = distance;
    }
    return best;
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
