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

void AddHelpButton(QDialogButtonBox& buttons) {
    QPushButton* help = buttons.addButton(QDialogButtonBox::Help);
    help->setObjectName("cmdHelp");
    help->setAutoDefault(false);
    QObject::connect(&buttons, &QDialogButtonBox::helpRequested, &buttons,
                     [&buttons] { RequestHelp(*buttons.window()); });
}

QPushButton* MakeHelpButton() {
    auto* help = new QPushButton(QObject::tr("Help"));
    help->setObjectName("cmdHelp");
    help->setAutoDefault(false);
    QObject::connect(help, &QPushButton::clicked, help, [help] { RequestHelp(*help->window()); });
    return help;
}

} // namespace velmora
