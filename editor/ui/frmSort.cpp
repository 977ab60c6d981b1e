#include "editor/ui/frmSort.h"

#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"
#include "workspace/SortTabs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

/// Two ways, the first of them chosen.
QGroupBox* Choice(const QString& title, QRadioButton* first, QRadioButton* second) {
    auto* box = new QGroupBox(title);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(first);
    layout->addWidget(second);
    first->setChecked(true);
    return box;
}

} // namespace

frmSort::frmSort(MainModule& main, QWidget* parent) : PlacedDialog(main.settings, "frmSort", parent), main_(main) {
    setObjectName("frmSort");
    setWindowTitle(tr("Sort"));
    BuildUi();
}

void frmSort::BuildUi() {
    cboField_ = Named(new QComboBox, "cboField");
    for (int field = 0; field < main_.document.setup.NoOfFields; ++field)
        cboField_->addItem(tr("Field %1").arg(QChar('A' + field)));
    auto* optAscending = Named(new QRadioButton(tr("&A to Z")), "optAscending");
    optDescending_ = Named(new QRadioButton(tr("&Z to A")), "optDescending");
    auto* optAll = Named(new QRadioButton(tr("A&ll pages")), "optAll");
    optThisPage_ = Named(new QRadioButton(tr("&This page")), "optThisPage");
    auto* buttons = MakeButtons();
    Named(buttons->addButton(QDialogButtonBox::Ok), "cmdOk");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &frmSort::Sort);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    auto* by = new QFormLayout;
    by->addRow(tr("Sort &by:"), cboField_);
    layout->addLayout(by);
    auto* choices = new QHBoxLayout;
    choices->addWidget(Choice(tr("Order"), optAscending, optDescending_));
    choices->addWidget(Choice(tr("Tabs"), optAll, optThisPage_));
    layout->addLayout(choices);
    layout->addWidget(buttons);
}

void frmSort::Sort() {
    accept();
    Trapped(main_.ui, "Called from Sub: frmSort", [this] {
        SortTabs(main_, {cboField_->currentIndex(), optDescending_->isChecked(), optThisPage_->isChecked()});
    });
}

} // namespace velmora
