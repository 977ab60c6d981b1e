// The about box: name, version, who stands behind it, the facts that support asks for, and the way to the
// system-information tool.
#pragma once

#include "app/Program.h"
#include "widgets/FormPlace.h"

class QPlainTextEdit;
class QPushButton;

namespace velmora {

class frmAbout : public PlacedDialog {
    Q_OBJECT

public:
    frmAbout(Program& program, QWidget* parent);

private:
    void BuildUi();
    QLayout* BuildHeader();
    QLayout* BuildButtons();
    void ShowDetails();

    Program& program_;
    QPlainTextEdit* txtDetails_ = nullptr;
    QPushButton* cmdDetails_ = nullptr;
};

} // namespace velmora
