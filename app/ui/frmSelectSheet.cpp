#include "app/ui/frmSelectSheet.h"

#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"

#include <QEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {

frmSelectSheet::frmSelectSheet(MainModule& main, const std::vector<std::string>& names, QWidget* parent)
    : PlacedDialog(main.settings, "frmSelectSheet", parent), main_(main), names_(names) {
    setObjectName("frmSelectSheet");
    setWindowTitle(tr("Select Sheet"));
    BuildUi(names);
    Timer1_.setObjectName("Timer1");
    connect(&Timer1_, &QTimer::timeout, this, [this] {
        Timer1_.stop();
        Select(0);
    });
    if (names_.size() == 1) {
        setAttribute(Qt::WA_DontShowOnScreen); // it would only flicker
        Timer1_.start(0);
    }
}

void frmSelectSheet::BuildUi(const std::vector<std::string>& names) {
    lstSheets_ = new QListWidget;
    lstSheets_->setObjectName("lstSheets");
    lstSheets_->setAccessibleName(tr("Sheets"));
    for (const std::string& name : names)
        lstSheets_->addItem(QString::fromStdString(name));
    lstSheets_->setCurrentRow(0);
    connect(lstSheets_, &QListWidget::itemClicked, this, [this] { Select(lstSheets_->currentRow()); });
    auto* cmdSelect = new QPushButton(tr("&Select"));
    cmdSelect->setObjectName("cmdSelect");
    cmdSelect->setDefault(true);
    connect(cmdSelect, &QPushButton::clicked, this, [this] { Select(lstSheets_->currentRow()); });
    auto* cmsCancel = new QPushButton(tr("Cancel"));
    cmsCancel->setObjectName("cmsCancel");
    connect(cmsCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeHelpButton());
    buttons->addStretch();
    buttons->addWidget(cmdSelect);
    buttons->addWidget(cmsCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstSheets_);
    layout->addLayout(buttons);
}

void frmSelectSheet::Select(int row) {
    if (row < 0 || row >= static_cast<int>(names_.size()))
        return;
    SelectedSheet_ = names_[static_cast<std::size_t>(row)];
    accept();
}

/// Once, when the window is in front for the first time; closing the box makes it active again.
void frmSelectSheet::changeEvent(QEvent* event) {
    PlacedDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow() || asked_ || names_.size() == 1)
        return;
    asked_ = true;
    QTimer::singleShot(0, this, &frmSelectSheet::AskForSheet);
}

void frmSelectSheet::AskForSheet() {
    Tell(main_.ui, "Please select the sheet to import", Icon::Question);
}

} // namespace velmora
