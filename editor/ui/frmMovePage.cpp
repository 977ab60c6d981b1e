#include "editor/ui/frmMovePage.h"

#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/ArrangePages.h"
#include "workspace/Dialogs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

namespace velmora {

frmMovePage::frmMovePage(MainModule& main, QWidget* parent)
    : PlacedDialog(main.settings, "frmMovePage", parent), main_(main) {
    setObjectName("frmMovePage");
    setWindowTitle(tr("Move Page"));
    BuildUi();
}

void frmMovePage::BuildUi() {
    const TabDocument& document = main_.document;
    txtPage_ = Named(new QSpinBox, "txtPage");
    txtPage_->setRange(1, document.NoOfPages);
    txtPage_->setValue(document.CurrentPage);
    txtPage_->selectAll();
    auto* buttons = MakeButtons();
    Named(buttons->addButton(QDialogButtonBox::Ok), "cmdOk");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &frmMovePage::Move);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QFormLayout(this);
    layout->addRow(new QLabel(tr("Page %1 of %2").arg(document.CurrentPage).arg(document.NoOfPages)));
    layout->addRow(tr("&Becomes page:"), txtPage_);
    layout->addRow(buttons);
}

void frmMovePage::Move() {
    accept();
    Trapped(main_.ui, "Called from Sub: frmMovePage",
            [this] { MovePage(main_, static_cast<std::int16_t>(txtPage_->value())); });
}

} // namespace velmora
