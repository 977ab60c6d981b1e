#include "widgets/HelpRequest.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>

namespace velmora {

QEvent::Type HelpRequestType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

void RequestHelp(QWidget& window) {
    QEvent request(HelpRequestType());
    QApplication::sendEvent(&window, &request);
}

QPushButton* MakeHelpButton() {
    auto* help = new QPushButton(QObject::tr("Help"));
    help->setObjectName("cmdHelp");
    help->setAutoDefault(false);
    QObject::connect(help, &QPushButton::clicked, help, [help] { RequestHelp(*help->window()); });
    return help;
}

QDialogButtonBox* MakeButtons() {
    auto* buttons = new QDialogButtonBox;
    // A role that every desktop puts at the left; that of help stands at the right on some.
    buttons->addButton(MakeHelpButton(), QDialogButtonBox::ResetRole);
    return buttons;
}

} // namespace velmora
