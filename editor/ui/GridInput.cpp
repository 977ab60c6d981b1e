#include "editor/ui/GridInput.h"

#include "editor/ui/FieldBox.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QToolTip>

namespace velmora {
namespace {

Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& key) {
    return key.modifiers() & ~Qt::KeypadModifier;
}

bool IsAtStart(const QLineEdit& box) {
    return !box.hasSelectedText() && box.cursorPosition() == 0;
}

bool IsAtEnd(const QLineEdit& box) {
    return !box.hasSelectedText() && box.cursorPosition() == box.text().size();
}

/// An arrow to the side leads out of a box at the end of its text only.
std::optional<GridMove> ArrowMove(int key, const QLineEdit& box) {
    switch (key) {
    case Qt::Key_Up: return GridMove::Up;
    case Qt::Key_Down: return GridMove::Down;
    case Qt::Key_Left: return IsAtStart(box) ? std::optional(GridMove::PreviousTab) : std::nullopt;
    case Qt::Key_Right: return IsAtEnd(box) ? std::optional(GridMove::NextTab) : std::nullopt;
    default: return std::nullopt;
    }
}

std::optional<GridMove> PlainMove(int key, const QLineEdit& box) {
    switch (key) {
    case Qt::Key_Tab: return GridMove::NextBox;
    case Qt::Key_Return:
    case Qt::Key_Enter: return GridMove::NextTab;
    case Qt::Key_Home: return IsAtStart(box) ? std::optional(GridMove::RowStart) : std::nullopt;
    case Qt::Key_End: return IsAtEnd(box) ? std::optional(GridMove::RowEnd) : std::nullopt;
    default: return ArrowMove(key, box);
    }
}

/// nullopt where the key belongs to the box.
std::optional<GridMove> MoveOf(const QKeyEvent& key, const QLineEdit& box) {
    const auto modifiers = ModifiersOf(key);
    if (modifiers == Qt::NoModifier)
        return PlainMove(key.key(), box);
    if (modifiers == Qt::ControlModifier && key.key() == Qt::Key_Home)
        return GridMove::FirstTab;
    if (modifiers == Qt::ControlModifier && key.key() == Qt::Key_End)
        return GridMove::LastFilledTab;
    if (modifiers != Qt::ShiftModifier)
        return std::nullopt;
    switch (key.key()) {
    case Qt::Key_Backtab: return GridMove::PreviousBox;
    case Qt::Key_Return:
    case Qt::Key_Enter: return GridMove::PreviousTab;
    default: return std::nullopt;
    }
}

} // namespace

GridInput::GridInput(GridActions& grid, QObject* parent) : QObject(parent), grid_(grid) {}

/// Shift with an arrow marks from tab to tab; to the side it selects in the box's text first.
bool GridInput::MarkByKey(const QKeyEvent& key, const FieldBox& box) {
    if (ModifiersOf(key) != Qt::ShiftModifier)
        return false;
    std::optional<GridMove> move = ArrowMove(key.key(), box);
    if (grid_.HasMarks() && key.key() == Qt::Key_Left)
        move = GridMove::PreviousTab;
    if (grid_.HasMarks() && key.key() == Qt::Key_Right)
        move = GridMove::NextTab;
    if (move)
        grid_.MarkFrom(box, *move);
    return move.has_value();
}

/// Commands of the window, which know the whole document and the marked tabs.
bool GridInput::IsForWindow(const QKeyEvent& key, const FieldBox& box) const {
    if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) || key.matches(QKeySequence::Paste))
        return true;
    const bool onTabs = grid_.HasMarks() || !box.hasSelectedText();
    return (onTabs && (key.matches(QKeySequence::Cut) || key.matches(QKeySequence::Copy))) ||
           (grid_.HasMarks() && (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace));
}

bool GridInput::KeyPressed(const QKeyEvent& key, const FieldBox& box) {
    const bool allSelected = box.selectedText().size() == box.text().size();
    if (key.matches(QKeySequence::SelectAll) && allSelected) {
        grid_.MarkAllTabs();
        return true;
    }
    if (key.key() == Qt::Key_Escape && grid_.HasMarks()) {
        grid_.EndMarking(box);
        return true;
    }
    if (MarkByKey(key, box))
        return true;
    const auto move = MoveOf(key, box);
    if (move)
        grid_.Move(*move, box);
    return move.has_value();
}

/// Shift marks up to the tab, Ctrl marks it beside others; without either the marking ends.
bool GridInput::MousePressed(const QMouseEvent& mouse, const FieldBox& box) {
    dragged_ = 0;
    if (mouse.button() != Qt::LeftButton)
        return false;
    if (mouse.modifiers().testFlag(Qt::ShiftModifier))
        grid_.MarkTo(box);
    else if (mouse.modifiers().testFlag(Qt::ControlModifier))
        grid_.ToggleMark(box);
    else
        grid_.EndMarking(box);
    return grid_.HasMarks();
}

/// Within its tab the mouse selects text, beyond it tabs.
bool GridInput::MouseDragged(const QMouseEvent& mouse, const FieldBox& box) {
    if (!mouse.buttons().testFlag(Qt::LeftButton))
        return false;
    const int slot = grid_.ScrollTo(box, mouse.position().toPoint());
    if (dragged_ == 0 && slot == box.Slot())
        return false;
    if (slot != dragged_)
        grid_.DragTo(box, slot);
    dragged_ = slot;
    return true;
}

bool GridInput::BoxEvent(FieldBox& box, QEvent& event) {
    switch (event.type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (const auto& key = static_cast<const QKeyEvent&>(event); !IsForWindow(key, box))
            return event.type() == QEvent::KeyPress && KeyPressed(key, box);
        event.ignore();
        return true;
    case QEvent::MouseButtonPress: return MousePressed(static_cast<const QMouseEvent&>(event), box);
    case QEvent::MouseMove: return MouseDragged(static_cast<const QMouseEvent&>(event), box);
    case QEvent::ContextMenu:
        grid_.AskForMenu(box, static_cast<const QContextMenuEvent&>(event).globalPos());
        return true; // the box's own menu would change it alone
    case QEvent::ToolTip:
        QToolTip::showText(static_cast<const QHelpEvent&>(event).globalPos(), grid_.ToolTipOf(box), &box);
        return true;
    case QEvent::FocusOut:
        // What is selected stays selected for the command.
        return static_cast<const QFocusEvent&>(event).reason() == Qt::MenuBarFocusReason;
    case QEvent::DragEnter:
        if (!static_cast<const QDragEnterEvent&>(event).mimeData()->hasUrls())
            return false;
        event.ignore(); // a file is for the window, which opens it
        return true;
    case QEvent::FocusIn:
        // The mouse gives the focus before it says whether it marks.
        grid_.TakeFocus(box, static_cast<const QFocusEvent&>(event).reason() != Qt::MouseFocusReason);
        return false;
    default: return false;
    }
}

bool GridInput::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<FieldBox*>(watched);
    return box && BoxEvent(*box, *event);
}

} // namespace velmora
