#include "print/ui/SheetDisplay.h"

#include "report/Twips.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr int kGround = 16; // pixels around the paper
constexpr int kScrollStep = 40;
constexpr double kMarkGap = 2;

// On white paper, whatever the palette.
constexpr QColor kOutline(0x8c, 0xa6, 0xc0);
constexpr QColor kUsed(0x60, 0x60, 0x60, 0x50);
constexpr QColor kStrike(0x40, 0x40, 0x40);
constexpr QColor kEdge(0x90, 0x90, 0x90);

/// So that the edges of neighbours fall on the same pixels.
QRect OnPixels(const QRectF& rect) {
    const auto pixel = [](double at) { return static_cast<int>(std::floor(at)); };
    const int left = pixel(rect.left()), top = pixel(rect.top());
    return {left, top, pixel(rect.right()) - left, pixel(rect.bottom()) - top};
}

/// A screen reader, of what befell the item of `slot`.
void TellReader(SheetDisplay& display, QAccessible::Event what, int slot) {
    QAccessibleEvent event(&display, what);
    event.setChild(slot - 1);
    QAccessible::updateAccessibility(&event);
}

} // namespace

SheetDisplay::SheetDisplay(const FontCatalogue& catalogue, const FontSettings& fonts, QWidget* parent)
    : QAbstractScrollArea(parent), sheetPainter_(catalogue, fonts) {
    setObjectName("SheetDisplay");
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    horizontalScrollBar()->setSingleStep(kScrollStep);
    verticalScrollBar()->setSingleStep(kScrollStep);
}

void SheetDisplay::SetSheet(Sheet sheet) {
    sheet_ = std::move(sheet);
    marked_ = 0;
    PlaceSheet();
    viewport()->update();
}

void SheetDisplay::ShowOutlines(bool shown) {
    outlines_ = shown;
    viewport()->update();
}

void SheetDisplay::SetZoom(Zoom zoom, int percent) {
    zoom_ = zoom;
    const QPointF fixed = anchor_.value_or(QRectF(viewport()->rect()).center());
    const QPointF twips = scale_ > 0 ? (fixed - PaperRect().topLeft()) / scale_ : QPointF();
    scale_ = std::clamp(percent, kLeastPercent, kMostPercent) / 100.0 * logicalDpiX() / kTwipsPerInch;
    PlaceSheet();
    const QPointF moved = PaperRect().topLeft() + twips * scale_ - fixed;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + static_cast<int>(std::lround(moved.x())));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(std::lround(moved.y())));
    anchor_.reset();
    viewport()->update();
}

double SheetDisplay::Percent() const {
    return scale_ * kTwipsPerInch / logicalDpiX() * 100;
}

void SheetDisplay::SetUsedSlots(std::optional<std::set<int>> used) {
    if (!used_)
        cursor_ = 1;
    used_ = std::move(used);
    viewport()->update();
}

void SheetDisplay::MarkSlot(int slot) {
    marked_ = slot;
    if (slot > 0)
        ShowSlot(slot);
    viewport()->update();
}

/// As the sheet is read.
QSizeF SheetDisplay::SheetTwips() const {
    return ToRect(sheet_.paper.AsRead()).size();
}

double SheetDisplay::ScaleThatFits() const {
    const QSizeF sheet = SheetTwips();
    const QSizeF room = maximumViewportSize() - QSize(2 * kGround, 2 * kGround);
    const double width = room.width() / sheet.width(), height = room.height() / sheet.height();
    if (zoom_ == Zoom::FitPage)
        return std::max(0.0, std::min(width, height));
    const bool scrolls = width * sheet.height() > room.height();
    return (room.width() - (scrolls ? verticalScrollBar()->sizeHint().width() : 0)) / sheet.width();
}

/// Scale and scroll bars for the sheet in the window as they are now.
void SheetDisplay::PlaceSheet() {
    if (sheet_.paper.widthMm <= 0)
        return;
    const double most = kMostPercent / 100.0 * logicalDpiX() / kTwipsPerInch;
    if (zoom_ != Zoom::Scale)
        scale_ = std::min(ScaleThatFits(), most);
    const QSize paper = (SheetTwips() * scale_).toSize() + QSize(2 * kGround, 2 * kGround);
    const QSize whole = maximumViewportSize(); // without scroll bars, which may be there still
    const bool fits = zoom_ == Zoom::FitPage || (paper.width() <= whole.width() && paper.height() <= whole.height());
    const QSize room = fits ? whole : viewport()->size();
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setPageStep(room.height());
    horizontalScrollBar()->setRange(0, zoom_ == Zoom::Scale ? std::max(0, paper.width() - room.width()) : 0);
    verticalScrollBar()->setRange(0, fits ? 0 : std::max(0, paper.height() - room.height()));
}

/// In the viewport, on whole pixels.
QRectF SheetDisplay::PaperRect() const {
    const QSizeF paper = SheetTwips() * scale_;
    const double left = std::max<double>(kGround, std::floor((viewport()->width() - paper.width()) / 2));
    const double top = std::max<double>(kGround, std::floor((viewport()->height() - paper.height()) / 2));
    return {QPointF(left - horizontalScrollBar()->value(), top - verticalScrollBar()->value()), paper};
}

QRectF SheetDisplay::SlotRect(int slot) const {
    const QRectF box = ToRect(sheet_.tabs.at(static_cast<std::size_t>(slot - 1)));
    return {PaperRect().topLeft() + box.topLeft() * scale_, box.size() * scale_};
}

/// A tab's place reaches up to the tab above; 0: none.
int SheetDisplay::SlotAt(QPointF position) const {
    for (int slot = 1; slot <= static_cast<int>(sheet_.tabs.size()); ++slot) {
        const QRectF rect = SlotRect(slot);
        if (position.x() >= rect.left() && position.x() < rect.right() && position.y() < rect.bottom())
            return slot;
    }
    return 0;
}

int SheetDisplay::Columns() const {
    const auto below = std::find_if(sheet_.tabs.begin(), sheet_.tabs.end(),
                                    [&](const velmora::Box& box) { return box.top > sheet_.tabs.front().top; });
    return static_cast<int>(below - sheet_.tabs.begin());
}

void SheetDisplay::ShowSlot(int slot) {
    const QRectF rect = SlotRect(slot).adjusted(-kGround, -kGround, kGround, kGround);
    const auto bring = [](QScrollBar& bar, double first, double last, int room) {
        if (first < 0 || last - first > room)
            bar.setValue(bar.value() + static_cast<int>(std::floor(first)));
        else if (last > room)
            bar.setValue(bar.value() + static_cast<int>(std::ceil(last - room)));
    };
    bring(*horizontalScrollBar(), rect.left(), rect.right(), viewport()->width());
    bring(*verticalScrollBar(), rect.top(), rect.bottom(), viewport()->height());
}

void SheetDisplay::resizeEvent(QResizeEvent*) {
    PlaceSheet();
}

void SheetDisplay::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    turned_ += event->angleDelta().y(); // a touch pad turns in small parts
    const int steps = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ %= QWheelEvent::DefaultDeltasPerStep;
    anchor_ = event->position();
    if (steps != 0)
        emit ZoomAsked(steps);
    anchor_.reset();
    event->accept();
}

void SheetDisplay::mousePressEvent(QMouseEvent* event) {
    const int slot = used_ && event->button() == Qt::LeftButton ? SlotAt(event->position()) : 0;
    if (slot == 0)
        return QAbstractScrollArea::mousePressEvent(event);
    cursor_ = slot;
    event->modifiers().testFlag(Qt::ShiftModifier) ? ReachSlot(slot) : ToggleSlot(slot);
}

void SheetDisplay::mouseMoveEvent(QMouseEvent* event) {
    const int slot = used_ && event->buttons() == Qt::LeftButton ? SlotAt(event->position()) : 0;
    if (slot > 0 && slot != cursor_)
        ReachSlot(cursor_ = slot);
}

void SheetDisplay::ToggleSlot(int slot) {
    emit SlotToggled(slot);
    TellReader(*this, QAccessible::NameChanged, slot);
}

void SheetDisplay::ReachSlot(int slot) {
    emit SlotReached(slot);
    TellReader(*this, QAccessible::NameChanged, slot);
}

/// False for a key that does not move it.
bool SheetDisplay::MoveCursor(int key) {
    const int step = key == Qt::Key_Left    ? -1
                     : key == Qt::Key_Right ? 1
                     : key == Qt::Key_Up    ? -Columns()
                     : key == Qt::Key_Down  ? Columns()
                                            : 0;
    if (step == 0)
        return false;
    const int slot = cursor_ + step;
    if (slot >= 1 && slot <= static_cast<int>(sheet_.tabs.size()))
        cursor_ = slot;
    ShowSlot(cursor_);
    viewport()->update();
    TellReader(*this, QAccessible::Focus, cursor_);
    return true;
}

void SheetDisplay::keyPressEvent(QKeyEvent* event) {
    if (used_ && event->key() == Qt::Key_Space)
        event->modifiers().testFlag(Qt::ShiftModifier) ? ReachSlot(cursor_) : ToggleSlot(cursor_);
    else if (!used_ || !MoveCursor(event->key()))
        QAbstractScrollArea::keyPressEvent(event);
}

void SheetDisplay::focusInEvent(QFocusEvent* event) {
    viewport()->update();
    QAbstractScrollArea::focusInEvent(event);
    QTimer::singleShot(0, this, [this] { // after the list itself is told to have it
        if (used_ && hasFocus())
            TellReader(*this, QAccessible::Focus, cursor_);
    });
}

void SheetDisplay::focusOutEvent(QFocusEvent* event) {
    viewport()->update();
    QAbstractScrollArea::focusOutEvent(event);
}

void SheetDisplay::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Window).darker(112));
    if (scale_ <= 0)
        return;
    const QRectF paper = PaperRect();
    painter.fillRect(paper, Qt::white);
    painter.setPen(QPen(kEdge, 0));
    painter.drawRect(paper.adjusted(-0.5, -0.5, 0.5, 0.5));
    painter.setClipRect(paper);
    PaintSheet(painter, QRectF(event->rect()) & paper);
    PaintOverlay(painter);
    if (!std::exchange(painted_, true))
        emit Painted();
}

/// Texts outside the part to be drawn cost nothing. No error may leave: it is drawn in place of the sheet.
void SheetDisplay::PaintSheet(QPainter& painter, const QRectF& visible) {
    const QRectF paper = PaperRect();
    const QRectF twips((visible.topLeft() - paper.topLeft()) / scale_, visible.size() / scale_);
    visible_.paper = sheet_.paper;
    visible_.texts.clear();
    std::copy_if(sheet_.texts.begin(), sheet_.texts.end(), std::back_inserter(visible_.texts),
                 [&](const PlacedText& placed) { return ToRect(placed.box).intersects(twips); });
    QString failure;
    painter.save();
    painter.translate(paper.topLeft());
    painter.scale(scale_, scale_);
    PainterCanvas canvas(painter, glyphs_, SheetView::AsRead);
    try {
        sheetPainter_.Paint(visible_, canvas);
    } catch (const std::exception& error) {
        canvas.EndSheet();
        failure = QString::fromStdString(error.what());
    }
    painter.restore();
    painter.setPen(Qt::black);
    painter.drawText(paper, Qt::AlignCenter | Qt::TextWordWrap, failure);
}

/// What never prints: outlines of the pre-cut tabs, used slots, and the tab that a remark is about.
void SheetDisplay::PaintOverlay(QPainter& painter) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kOutline, 0));
    if (outlines_)
        for (int slot = 1; slot <= static_cast<int>(sheet_.tabs.size()); ++slot)
            painter.drawRect(OnPixels(SlotRect(slot)));
    if (used_)
        PaintUsedSlots(painter);
    if (marked_ > 0) {
        painter.setPen(QPen(QColor(Qt::red), 2));
        painter.drawRect(SlotRect(marked_).adjusted(-kMarkGap, -kMarkGap, kMarkGap, kMarkGap));
    }
}

void SheetDisplay::PaintUsedSlots(QPainter& painter) {
    for (const int slot : *used_) {
        const QRectF rect = SlotRect(slot);
        painter.fillRect(rect, kUsed);
        painter.setPen(QPen(kStrike, 0));
        painter.drawLine(rect.topLeft(), rect.bottomRight());
        painter.drawLine(rect.bottomLeft(), rect.topRight());
    }
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2, Qt::DashLine));
    painter.drawRect(SlotRect(cursor_).adjusted(1, 1, -1, -1));
}

} // namespace velmora
