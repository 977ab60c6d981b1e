// F1 in any window opens the help at the page of what is in use there, also while the window is modal.
#pragma once

#include "workspace/mdlMain.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace velmora {

class frmHelp;

/// One for a program's first window, which owns it. It sees every F1 before a shortcut does, so that a dialog, or a
/// part of a window, needs nothing but the name of its form.
class HelpDesk : public QObject {
    Q_OBJECT

public:
    HelpDesk(MainModule& main, QWidget* owner);

    /// Shows the help at the page of the form that `from` is, is in, or shows.
    void ShowFor(QWidget& from);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveTo(QWidget* window);

    MainModule& main_;
    QWidget* owner_;
    QPointer<frmHelp> form_; ///< goes with the window that it was moved to
};

} // namespace velmora
