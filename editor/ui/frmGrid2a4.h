// The grid editor: one page of the document as a sheet of paper with a box for every field of every tab.
#pragma once

#include "editor/GridLayout.h"

#include <QScrollArea>
#include <QWidget>

class QKeyEvent;
class QLineEdit;

namespace velmora {

/// The sheet itself: paints the paper, the tabs' outlines and the mark of the focused tab behind its boxes.
class GridSheet : public QWidget {
    Q_OBJECT

public:
    explicit GridSheet(QWidget* parent) : QWidget(parent) {}

    /// Cells in twips; `caption` stands at the sheet's foot.
    void SetCells(std::vector<GridCell> cells, const QString& caption);
    /// Device-independent pixels per twip.
    void SetScale(double pixelsPerTwip);
    /// Slot from 1; 0: none.
    void MarkSlot(int slot);
    QRect GridTwips() const;
    /// Pixels around the grid: ground, paper margin and caption.
    QSize BorderSize() const;
    QRect BoxRect(const GridBox& box) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<GridCell> cells_;
    QString caption_;
    double pixelsPerTwip_ = 0;
    int marked_ = 0;
};

class frmGrid2a4 : public QScrollArea, public GridEditor {
    Q_OBJECT

public:
    frmGrid2a4(MainModule& main, QWidget* parent);
    ~frmGrid2a4() override;

    void TakeDown() override;
    void BringUp() override;
    std::vector<TabTexts> ShownTexts() const override;
    void ShowText(TabBox place, std::size_t at, std::size_t length) override;
    TabNumbers MarkedTabs() const override;
    void MarkTabs(const TabNumbers& tabs) override;

    /// The box of field 0 to 2 in a slot from 1, or nullptr.
    QLineEdit* Box(int field, int slot) const;
    /// The field, 0 to 2, that a box stands for; -1 for a control that is no box of a grid.
    static int FieldOf(const QWidget& box);

signals:
    /// A box was typed in.
    void Changed();
    /// The menu of a box is wanted at a place on the screen.
    void MenuWanted(const QPoint& place);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetLablesOnGrid();
    void ShowTexts();
    QString BoxName(int field, int slot) const;
    QLineEdit* MakeBox(int field, int slot);
    void PlaceBoxes();
    void FocusTab();
    void Entered(int slot);
    double FittingScale() const;
    int SlotAfterKey(int slot, const QKeyEvent& key, const QLineEdit& box) const;
    bool MoveByKey(const QKeyEvent& key, QLineEdit* box);
    void Edited(int field, QLineEdit* box);

    MainModule& main_;
    GridSheet* sheet_;
    std::vector<GridCell> cells_;
    std::vector<std::array<QLineEdit*, 3>> boxes_; ///< slot 1 first; nullptr for a field not in use
    std::vector<TabTexts> shown_;                  ///< as they were filled in
};

} // namespace velmora
