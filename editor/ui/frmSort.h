// Asks by what the tabs are to be sorted.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/mdlMain.h"

class QComboBox;
class QRadioButton;

namespace velmora {

class frmSort : public PlacedDialog {
    Q_OBJECT

public:
    frmSort(MainModule& main, QWidget* parent);

private:
    void BuildUi();
    void Sort();

    MainModule& main_;
    QComboBox* cboField_;
    QRadioButton* optDescending_;
    QRadioButton* optThisPage_;
};

} // namespace velmora
