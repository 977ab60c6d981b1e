#include "app/ui/CommandBar.h"

#include "widgets/LineIcon.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QToolButton>

namespace velmora {

CommandBar::CommandBar(QWidget* parent) : QToolBar(tr("Commands"), parent) {
    setObjectName("Toolbar2");
    setMovable(false);
    FitIcons();
}

void CommandBar::AddCommand(QAction& command, const char* icon, bool worded) {
    command.setIcon(LineIcon(icon));
    command.setIconVisibleInMenu(false);
    ShowToolTip(command);
    addAction(&command);
    if (worded)
        worded_.push_back(qobject_cast<QToolButton*>(widgetForAction(&command)));
}

void CommandBar::ShowToolTip(QAction& command) {
    const QString shortcut = command.shortcut().toString(QKeySequence::NativeText);
    command.setToolTip(command.text().remove('&') + (shortcut.isEmpty() ? "" : " (" + shortcut + ")"));
}

void CommandBar::resizeEvent(QResizeEvent* event) {
    QToolBar::resizeEvent(event);
    FitWords();
}

void CommandBar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    FitIcons();
    roomForWords_ = 0;
    FitWords();
}

/// Somewhat higher than a line of text, so that an icon's lines are as thick as the letters'.
void CommandBar::FitIcons() {
    const int side = fontMetrics().height() * 5 / 4;
    setIconSize({side, side});
}

void CommandBar::ShowWords(bool shown) {
    for (QToolButton* button : worded_)
        button->setToolButtonStyle(shown ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

void CommandBar::FitWords() {
    if (roomForWords_ == 0) {
        ShowWords(true);
        layout()->invalidate();
        roomForWords_ = sizeHint().width();
    }
    ShowWords(width() >= roomForWords_);
}

} // namespace velmora
