// Asks which fields count, and says how many tabs would go before they do.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/RemoveDuplicates.h"

class QCheckBox;
class QPushButton;

namespace velmora {

class AnswerLabel;

class frmRemoveDuplicates : public PlacedDialog {
    Q_OBJECT

public:
    frmRemoveDuplicates(MainModule& main, QWidget* parent);

private:
    void BuildUi();
    CountedFields Fields() const;
    void Count();
    void Remove();

    MainModule& main_;
    std::vector<QCheckBox*> chkField_; ///< of the fields in use
    AnswerLabel* lblResult_;
    QPushButton* cmdOk_;
};

} // namespace velmora
