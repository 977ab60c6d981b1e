// The general options: three habits, the way back to the defaults, and the settings of an older installation.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/mdlMain.h"

class QCheckBox;

namespace velmora {

class frmOptionsPage : public PlacedDialog {
    Q_OBJECT

public:
    frmOptionsPage(MainModule& main, QWidget* parent);
    /// The machine has no printer any more: the program must end.
    bool LostPrinter() const { return lostPrinter_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void BuildUi();
    void ShowGlobals();
    void Reset();
    void Save();

    MainModule& main_;
    QCheckBox* chkAskBeforeDelete_ = nullptr;
    QCheckBox* chkStartWithSetup_ = nullptr;
    QCheckBox* chkStartPage_ = nullptr;
    bool lostPrinter_ = false;
};

} // namespace velmora
