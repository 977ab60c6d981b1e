#include "platform/qt/frmPassword.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace velmora {
namespace {

QLineEdit* MakeBox(const char* name) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    return box;
}

} // namespace

frmPassword::frmPassword(const CredentialsRequest& request, QWidget* parent)
    : QDialog(parent), txtUser_(MakeBox("txtUser")), txtPassword_(MakeBox("txtPassword")) {
    setObjectName("frmPassword");
    setWindowTitle(QApplication::applicationName());
    auto* lblAsked =
        new QLabel((request.again ? tr("The user and the password were not accepted.") + '\n' : QString()) +
                   tr("The print server asks who prints on \"%1\". The password is not stored.")
                       .arg(QString::fromStdString(request.printer)));
    lblAsked->setTextFormat(Qt::PlainText);
    lblAsked->setWordWrap(true);
    txtUser_->setText(QString::fromStdString(request.user));
    txtPassword_->setEchoMode(QLineEdit::Password);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* rows = new QFormLayout(this);
    rows->addRow(lblAsked);
    rows->addRow(tr("&User:"), txtUser_);
    rows->addRow(tr("&Password:"), txtPassword_);
    rows->addRow(buttons);
    lblAsked->setMinimumWidth(fontMetrics().averageCharWidth() * 60); // the dialog's height follows from it
    txtPassword_->setFocus();
}

Credentials frmPassword::Given() const {
    return {txtUser_->text().toStdString(), txtPassword_->text().toStdString()};
}

} // namespace velmora
