// One sheet of a print run on the screen: white paper on a quiet ground, at any scale, with what never prints over it.
#pragma once

#include "report/SheetPainter.h"
#include "report/ui/PainterCanvas.h"

#include <QAbstractScrollArea>

#include <optional>
#include <set>

namespace velmora {

enum class Zoom { FitPage, FitWidth, Scale };

class SheetDisplay : public QAbstractScrollArea {
    Q_OBJECT

public:
    static constexpr int kLeastPercent = 25;
    static constexpr int kMostPercent = 400;

    SheetDisplay(const FontCatalogue& catalogue, const FontSettings& fonts, QWidget* parent);

    /// The texts must outlive the showing.
    void SetSheet(Sheet sheet);
    const Sheet& Shown() const { return sheet_; }
    void ShowOutlines(bool shown);

    void SetZoom(Zoom zoom, int percent = 100);
    /// 100: the sheet in its true size, as far as the desktop knows the screen's.
    double Percent() const;

    /// Slots that are struck out, from 1; nullopt: slots cannot be chosen. A first choice has its cursor at slot 1.
    void SetUsedSlots(std::optional<std::set<int>> used);
    /// Frames the tab in `slot` and brings it into view; 0: none.
    void MarkSlot(int slot);
    int MarkedSlot() const { return marked_; }
    bool IsGone(int slot) const { return used_ && used_->contains(slot); }
    /// The slot that the keys strike out; 0 while slots cannot be chosen.
    int Cursor() const { return used_ ? cursor_ : 0; }
    /// The tab in `slot`, in the viewport.
    QRectF SlotRect(int slot) const;
    /// Tabs in a row.
    int Columns() const;

signals:
    /// For the first time since it was made.
    void Painted();
    void ZoomAsked(int steps);
    void SlotToggled(int slot);
    /// From the slot that was toggled last on, with the mouse held down or by Shift.
    void SlotReached(int slot);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QSizeF SheetTwips() const;
    double ScaleThatFits() const;
    void PlaceSheet();
    QRectF PaperRect() const;
    int SlotAt(QPointF position) const;
    void ShowSlot(int slot);
    bool MoveCursor(int key);
    void ToggleSlot(int slot);
    void ReachSlot(int slot);
    void PaintSheet(QPainter& painter, const QRectF& visible);
    void PaintOverlay(QPainter& painter);
    void PaintUsedSlots(QPainter& painter);

    SheetPainter sheetPainter_;
    PainterFonts glyphs_;
    Sheet sheet_;
    Sheet visible_; ///< what of it is being drawn
    bool outlines_ = true;
    Zoom zoom_ = Zoom::FitPage;
    double scale_ = 0;              ///< device-independent pixels per twip
    int turned_ = 0;                ///< of the wheel, less than a step
    std::optional<QPointF> anchor_; ///< of the next change of scale, in the viewport; nullopt: its middle
    std::optional<std::set<int>> used_;
    int cursor_ = 1;
    int marked_ = 0;
    bool painted_ = false;
};

} // namespace velmora
