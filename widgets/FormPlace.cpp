#include "widgets/FormPlace.h"

#include "settings/FormPosition.h"

#include <QApplication>
#include <QHideEvent>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <limits>

namespace velmora {
namespace {

constexpr int kFrame = 4;       ///< pixels, about what window managers put at the sides of a window
constexpr int kRoomBeside = 12; ///< pixels between a window and what it makes room for

/// Of the window as it is without filling the screen; its frame's corner, and its size within the frame. While it is
/// shown or hidden, widget and window learn at different times that there is a frame: one of both knows.
FormPosition PlaceOf(const QWidget& window) {
    const QMargins known = window.windowHandle() ? window.windowHandle()->frameMargins() : QMargins();
    const QPoint strut = window.geometry().topLeft() - window.frameGeometry().topLeft();
    const QRect inner = window.isMaximized() ? window.normalGeometry() : window.geometry();
    return {inner.x() - std::max(known.left(), strut.x()), inner.y() - std::max(known.top(), strut.y()), inner.width(),
            inner.height()};
}

/// What the window manager will put around a window, as far as it shows on another one or the style knows it.
QMargins FrameOf(const QWidget& window) {
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        const QRect inner = other->geometry(), outer = other->frameGeometry();
        if (other->isVisible() && inner != outer && !other->isMaximized())
            return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
                    outer.bottom() - inner.bottom()};
    }
    return {kFrame, window.style()->pixelMetric(QStyle::PM_TitleBarHeight), kFrame, kFrame};
}

/// `place` made as large as the screen at most, and moved onto it, its frame included.
QRect OnScreen(const QRect& place, const QMargins& frame, const QRect& screen) {
    QRect whole = place.translated(frame.left(), frame.top()).marginsAdded(frame);
    whole.setSize(whole.size().boundedTo(screen.size()));
    whole.moveRight(std::min(whole.right(), screen.right()));
    whole.moveBottom(std::min(whole.bottom(), screen.bottom()));
    whole.moveLeft(std::max(whole.left(), screen.left()));
    whole.moveTop(std::max(whole.top(), screen.top()));
    return {whole.topLeft(), whole.marginsRemoved(frame).size()};
}

/// The place of a window of that size, so many pixels further along a side of the screen, or on from its other end.
int Further(int place, int pixels, int from, int room) {
    return room <= 0 ? place : from + (place - from + pixels) % (room + 1);
}

QScreen* ScreenAt(const QWidget& window, const QPoint& place) {
    QScreen* screen = QGuiApplication::screenAt(place);
    return screen ? screen : window.screen();
}

std::string MaximizedKey(const char* key) {
    return key + std::string(kMaximizedKey);
}

} // namespace

void RestorePlace(QWidget& window, SettingsStore& settings, const char* key, int beside) {
    const QSize all = window.screen()->virtualSize();
    const FormPosition place = RestoreFormPosition(settings, key, PlaceOf(window), all.width(), all.height());
    const QSize size = QSize(place.width, place.height).expandedTo(window.minimumSizeHint());
    const QRect wanted({place.left, place.top}, size);
    const QRect screen = ScreenAt(window, wanted.center())->availableGeometry();
    const QMargins frame = FrameOf(window);
    const QRect shown = OnScreen(wanted, frame, screen);
    const QSize room = screen.size() - shown.marginsAdded(frame).size();
    const int pixels = beside * frame.top();
    window.move(Further(shown.x(), pixels, screen.x(), room.width()),
                Further(shown.y(), pixels, screen.y(), room.height()));
    window.resize(shown.size());
    if (Probe(settings, {kFormPositions, MaximizedKey(key)}))
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void SavePlace(const QWidget& window, SettingsStore& settings, const char* key) {
    SaveFormPosition(settings, key, PlaceOf(window));
    const std::string maximized = MaximizedKey(key);
    if (window.isMaximized())
        SaveSetting(settings, kFormPositions, maximized, "True");
    else if (Probe(settings, {kFormPositions, maximized}))
        DeleteSetting(settings, kFormPositions, maximized);
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

/// Before it is shown: a window that is moved while it gets its frame ends where the frame should begin, or above it.
void PlacedDialog::setVisible(bool visible) {
    if (visible && !isVisible())
        Place();
    QDialog::setVisible(visible);
}

void PlacedDialog::Place() {
    adjustSize(); // the layout's own size, where none is stored
    RestorePlace(*this, settings_, key_);
}

void PlacedDialog::hideEvent(QHideEvent* event) {
    if (!event->spontaneous())
        SavePlace(*this, settings_, key_);
    QDialog::hideEvent(event);
}

} // namespace velmora
