// The trouble-shooting dialogs of the printer set-up wizard: one question about the test page each, which ends in
// advice.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/mdlMain.h"

namespace velmora {

class frmFix1 : public PlacedDialog {
    Q_OBJECT

public:
    frmFix1(MainModule& main, QWidget* parent);
};

class frmFix2 : public PlacedDialog {
    Q_OBJECT

public:
    frmFix2(MainModule& main, QWidget* parent);
};

} // namespace velmora
