// Help buttons and menu items: an event on its way through a window, that the help watches for as it does for F1.
#pragma once

#include <QEvent>

class QDialogButtonBox;
class QPushButton;
class QWidget;

namespace velmora {

QEvent::Type HelpRequestType();
/// Opens the help at the page of that window.
void RequestHelp(QWidget& window);
/// A Help button that does so for the window that it is in.
QPushButton* MakeHelpButton();
/// The buttons below a dialog, of which Help is the first, for Tab too; the others are added to it.
QDialogButtonBox* MakeButtons();

} // namespace velmora
