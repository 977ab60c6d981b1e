#include "editor/ui/frmRemoveDuplicates.h"

#include "widgets/AnswerLabel.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {

frmRemoveDuplicates::frmRemoveDuplicates(MainModule& main, QWidget* parent)
    : PlacedDialog(main.settings, "frmRemoveDuplicates", parent), main_(main) {
    setObjectName("frmRemoveDuplicates");
    setWindowTitle(tr("Remove Duplicates"));
    TakePageBack(main);
    BuildUi();
    Count();
}

void frmRemoveDuplicates::BuildUi() {
    auto* box = new QGroupBox(tr("Tabs are equal when they agree in"));
    auto* fields = new QVBoxLayout(box);
    for (int field = 0; field < main_.document.setup.NoOfFields; ++field) {
        auto* check = new QCheckBox(tr("Field &%1").arg(QChar('A' + field)));
        check->setObjectName(QString("chkField%1").arg(field + 1));
        check->setChecked(true);
        connect(check, &QCheckBox::toggled, this, &frmRemoveDuplicates::Count);
        fields->addWidget(check);
        chkField_.push_back(check);
    }
    lblResult_ = Named(new AnswerLabel, "lblResult");
    auto* buttons = MakeButtons();
    cmdOk_ = Named(buttons->addButton(tr("&Remove"), QDialogButtonBox::AcceptRole), "cmdOk");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &frmRemoveDuplicates::Remove);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(box);
    layout->addWidget(lblResult_);
    layout->addWidget(buttons);
    cmdOk_->setDefault(true); // in the dialog by now
}

CountedFields frmRemoveDuplicates::Fields() const {
    CountedFields fields{};
    for (std::size_t field = 0; field < chkField_.size(); ++field)
        fields.at(field) = chkField_[field]->isChecked();
    return fields;
}

void frmRemoveDuplicates::Count() {
    const std::size_t duplicates = DuplicateTabs(main_.document, Fields()).size();
    lblResult_->Say(tr("Tabs to remove: %1").arg(duplicates));
    cmdOk_->setEnabled(duplicates > 0);
}

void frmRemoveDuplicates::Remove() {
    accept();
    Trapped(main_.ui, "Called from Sub: frmRemoveDuplicates", [this] { RemoveDuplicates(main_, Fields()); });
}

} // namespace velmora
