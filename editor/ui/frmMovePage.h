// Asks for the new number of the page in view.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/mdlMain.h"

class QSpinBox;

namespace velmora {

class frmMovePage : public PlacedDialog {
    Q_OBJECT

public:
    frmMovePage(MainModule& main, QWidget* parent);

private:
    void BuildUi();
    void Move();

    MainModule& main_;
    QSpinBox* txtPage_;
};

} // namespace velmora
