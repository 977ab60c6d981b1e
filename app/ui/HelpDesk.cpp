#include "app/ui/HelpDesk.h"

#include "app/Help.h"
#include "app/ui/frmHelp.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"

#include <QApplication>
#include <QKeyEvent>

namespace velmora {
namespace {

std::string PageOf(const QWidget& form) {
    return std::string(HelpPageOf(form.objectName().toStdString()));
}

/// Of a frame that takes its pages from others.
std::string PageWithin(const QWidget& window) {
    for (const QWidget* child : window.findChildren<QWidget*>())
        if (std::string page = PageOf(*child); !page.empty() && child->isVisible())
            return page;
    return "";
}

std::string PageFor(const QWidget& from) {
    for (const QWidget* widget = &from; widget; widget = widget->parentWidget()) {
        std::string page = PageOf(*widget);
        if (page.empty() && widget->isWindow())
            page = PageWithin(*widget);
        if (!page.empty())
            return page;
    }
    return std::string(HelpPages().front().name);
}

bool IsHelpKey(const QEvent& event, QEvent::Type type) {
    return event.type() == type && static_cast<const QKeyEvent&>(event).key() == Qt::Key_F1;
}

/// True for a window itself, too.
bool StandsOver(const QObject* window, const QObject& below) {
    return window && (window == &below || StandsOver(window->parent(), below));
}

} // namespace

HelpDesk::HelpDesk(MainModule& main, QWidget* owner) : QObject(owner), main_(main), owner_(owner) {
    QApplication::instance()->installEventFilter(this);
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event) {
    if (IsHelpKey(*event, QEvent::ShortcutOverride)) {
        event->accept(); // the menu's shortcut would open the first page
        return true;
    }
    const bool wanted = event->type() == HelpRequestType() || IsHelpKey(*event, QEvent::KeyPress);
    if (!wanted || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    Trapped(main_.ui, "Called from Sub: mnuOptTabHelp", [&] { ShowFor(*static_cast<QWidget*>(watched)); });
    return true;
}

void HelpDesk::ShowFor(QWidget& from) {
    if (!form_)
        form_ = new frmHelp(main_.settings, owner_);
    QWidget* window = from.window();
    if (window == form_)
        return;
    if (window != form_->parentWidget() && !StandsOver(window, *form_))
        MoveTo(window);
    form_->ShowPage(PageFor(from));
}

/// A modal window blocks all others but its own children. When it is done, the help goes back and stays open.
void HelpDesk::MoveTo(QWidget* window) {
    form_->setParent(window, form_->windowFlags());
    auto* dialog = qobject_cast<QDialog*>(window);
    if (!dialog)
        return;
    connect(dialog, &QDialog::finished, form_, [this, dialog] {
        if (form_->parentWidget() != dialog)
            return;
        const bool open = form_->isVisible();
        form_->setParent(owner_, form_->windowFlags());
        form_->setVisible(open);
    });
}

} // namespace velmora
