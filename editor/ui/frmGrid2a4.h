// The grid editor: one page of the document as a sheet of tabs with a box for every field of every tab, and the keys
// and the mouse to type, to move and to mark.
#pragma once

#include "editor/GridMoves.h"
#include "editor/GridZoom.h"
#include "editor/TabMarks.h"
#include "editor/ui/GridInput.h"
#include "editor/ui/GridSheet.h"
#include "platform/FontCatalogue.h"

#include <QPointer>
#include <QScrollArea>

class QLineEdit;

namespace velmora {

class FieldBox;

class frmGrid2a4 : public QScrollArea, public GridEditor, public GridActions {
    Q_OBJECT

public:
    frmGrid2a4(MainModule& main, const FontCatalogue& catalogue, QWidget* parent);
    ~frmGrid2a4() override;

    void TakeDown() override;
    void BringUp() override;
    std::vector<TabTexts> ShownTexts() const override;
    void ShowText(TabBox place, std::size_t at, std::size_t length) override;
    TabNumbers MarkedTabs() const override;
    void MarkTabs(const TabNumbers& tabs) override;
    void HighlightMatches(const MatchFinder& find) override { sheet_->SetMatches(find); }

    /// The box of field 0 to 2 in a slot from 1, or nullptr.
    QLineEdit* Box(int field, int slot) const;
    /// The field, 0 to 2, that a box stands for; -1 for a control that is no box of a grid.
    static int FieldOf(const QWidget& box);

    bool HasMarks() const override { return !marks_.Empty(); }
    void MarkAllTabs() override;
    void Move(GridMove move, const FieldBox& from) override;
    void MarkTo(const FieldBox& box) override;
    void MarkFrom(const FieldBox& box, GridMove move) override;
    void ToggleMark(const FieldBox& box) override;
    void DragTo(const FieldBox& from, int slot) override;
    void EndMarking(const FieldBox& box) override;
    int ScrollTo(const FieldBox& from, const QPoint& place) override;
    void AskForMenu(const FieldBox& box, const QPoint& place) override;
    void TakeFocus(FieldBox& box, bool mayMark) override;
    QString ToolTipOf(const FieldBox& box) const override;

    /// Remembered for the next start.
    void SetZoom(const GridZoom& zoom);
    /// One step larger or smaller.
    void StepZoom(int steps);

signals:
    /// A box was typed in.
    void Changed();
    /// The menu of a box is wanted at a place on the screen.
    void MenuWanted(const QPoint& place);
    /// What the box in use has to say: how full it is, and what of its text will not be printed.
    void BoxTold(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class Marking { Ends, Extends };

    void SetLablesOnGrid();
    std::vector<PlacedText> FieldsOnPaper() const;
    void ShowTexts();
    QString BoxName(int field, int slot) const;
    void MakeBoxes(std::size_t tabs, std::size_t fields);
    FieldBox* MakeBox(int field, int slot);
    double Scale() const;
    void PlaceBoxes();
    void FocusTab();
    void Enter(FieldBox& box);
    void TellLoss(FieldBox& box);
    void Edited(FieldBox& box);

    TabBox PlaceOf(const FieldBox& box) const;
    void GoTo(TabBox place, Marking marking);
    void MarkUpTo(TabBox place);
    void MoveFrom(TabBox from, GridMove move);
    void EndMarking(std::int32_t tab);
    void ShowMarks();

    MainModule& main_;
    TabMarks marks_;
    GridZoom zoom_;
    GridSheet* sheet_;
    GridInput* input_;
    std::vector<GridCell> cells_;
    std::vector<std::array<FieldBox*, 3>> boxes_; ///< slot 1 first; nullptr for a field not in use
    std::vector<TabTexts> shown_;                 ///< as they were filled in; empty while the editor is down
    QPointer<FieldBox> current_;                  ///< the box in use
};

} // namespace velmora
