// What the keys and the mouse do in the boxes of the editor.
#pragma once

#include <QObject>

class QKeyEvent;
class QMouseEvent;
class QPoint;

namespace velmora {

class FieldBox;
class frmGrid2a4;

/// Filters what comes to the boxes: moves between them, marks tabs, and leaves to the window what its commands do.
class GridInput : public QObject {
public:
    /// Belongs to `grid`.
    explicit GridInput(frmGrid2a4& grid);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool BoxEvent(FieldBox& box, QEvent& event);
    bool IsForWindow(const QKeyEvent& key, const FieldBox& box) const;
    bool KeyPressed(const QKeyEvent& key, const FieldBox& box);
    bool MarkByKey(const QKeyEvent& key, const FieldBox& box);
    bool MousePressed(const QMouseEvent& mouse, const FieldBox& box);
    bool MouseDragged(const QMouseEvent& mouse, const FieldBox& box);

    frmGrid2a4& grid_;
    int dragged_ = 0; ///< slot that the mouse marks to; 0: it does not
};

} // namespace velmora
