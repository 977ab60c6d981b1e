// What the keys and the mouse do in the boxes of the editor.
#pragma once

#include "editor/GridMoves.h"

#include <QObject>
#include <QString>

class QKeyEvent;
class QMouseEvent;
class QPoint;

namespace velmora {

class FieldBox;

/// What keys and mouse ask for. Boxes are those of the page shown.
class GridActions {
public:
    virtual ~GridActions() = default;
    /// True for more than a text of the box in use.
    virtual bool HasMarks() const = 0;
    virtual void MarkAllTabs() = 0;
    virtual void Move(GridMove move, const FieldBox& from) = 0;
    /// Marks the tabs from where the marking began to that of the box, which is entered.
    virtual void MarkTo(const FieldBox& box) = 0;
    /// The same, to where a move leads; no effect at the document's ends.
    virtual void MarkFrom(const FieldBox& box, GridMove move) = 0;
    virtual void ToggleMark(const FieldBox& box) = 0;
    /// Marks from the box's tab to that of a slot of the page; the box stays in use.
    virtual void DragTo(const FieldBox& from, int slot) = 0;
    virtual void EndMarking(const FieldBox& box) = 0;
    /// Brings a place, seen from a box, into view; the slot of the tab there.
    virtual int ScrollTo(const FieldBox& from, const QPoint& place) = 0;
    virtual void AskForMenu(const FieldBox& box, const QPoint& place) = 0;
    /// The box has the keys; marking may begin at its tab.
    virtual void TakeFocus(FieldBox& box, bool mayMark) = 0;
    virtual QString ToolTipOf(const FieldBox& box) const = 0;
};

/// Filters what comes to the boxes: moves between them, marks tabs, and leaves to the window what its commands do.
class GridInput : public QObject {
public:
    /// `grid` must outlive the filter.
    GridInput(GridActions& grid, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool BoxEvent(FieldBox& box, QEvent& event);
    bool IsForWindow(const QKeyEvent& key, const FieldBox& box) const;
    bool KeyPressed(const QKeyEvent& key, const FieldBox& box);
    bool MarkByKey(const QKeyEvent& key, const FieldBox& box);
    bool MousePressed(const QMouseEvent& mouse, const FieldBox& box);
    bool MouseDragged(const QMouseEvent& mouse, const FieldBox& box);

    GridActions& grid_;
    int dragged_ = 0; ///< slot that the mouse marks to; 0: it does not
};

} // namespace velmora
