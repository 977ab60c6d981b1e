// Asks for the user and the password that a print server wants to know. Nothing of it is stored.
#pragma once

#include "platform/Credentials.h"

#include <QDialog>

class QLineEdit;

namespace velmora {

class frmPassword : public QDialog {
public:
    frmPassword(const CredentialsRequest& request, QWidget* parent);

    Credentials Given() const;

private:
    QLineEdit* txtUser_;
    QLineEdit* txtPassword_;
};

} // namespace velmora
