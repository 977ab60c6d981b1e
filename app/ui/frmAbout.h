// The about box: name, version, who stands behind it, and the way to the system-information tool.
#pragma once

#include "app/Program.h"
#include "widgets/FormPlace.h"

class QVBoxLayout;

namespace velmora {

class frmAbout : public PlacedDialog {
    Q_OBJECT

public:
    frmAbout(Program& program, QWidget* parent);

private:
    void BuildUi();
    QLayout* BuildHeader();
    QLayout* BuildButtons();

    Program& program_;
};

} // namespace velmora
