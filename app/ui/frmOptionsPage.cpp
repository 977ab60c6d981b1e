#include "app/ui/frmOptionsPage.h"

#include "app/Options.h"
#include "app/StartPage.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace velmora {
namespace {

QPushButton* AddButton(QLayout* layout, const QString& caption, const char* name, const QString& tip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
}

} // namespace

frmOptionsPage::frmOptionsPage(MainModule& main, QWidget* parent)
    : PlacedDialog(main.settings, "Options", parent), main_(main) {
    setObjectName("frmOptionsPage");
    setWindowTitle(tr("Options"));
    BuildUi();
    ShowGlobals();
}

void frmOptionsPage::BuildUi() {
    chkAskBeforeDelete_ = new QCheckBox(tr("&Ask before a page is deleted"));
    chkAskBeforeDelete_->setObjectName("chkAskBeforeDelete");
    chkStartWithSetup_ = new QCheckBox(tr("Show the page &set-up at every start"));
    chkStartWithSetup_->setObjectName("chkStartWithSetup");
    chkStartPage_ = Named(new QCheckBox(tr("Show the start &page in an empty document")), "chkStartPage");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(chkAskBeforeDelete_);
    layout->addWidget(chkStartWithSetup_);
    layout->addWidget(chkStartPage_);
    layout->addSpacing(8);

    auto* tools = new QHBoxLayout;
    auto* reset = AddButton(tools, tr("&Reset"), "Command1",
                            tr("Options, margins and the places of the windows as they were at first"));
    auto* import = AddButton(tools, tr("&Import old settings"), "cmdImportSettings",
                             tr("From a registry export (Velmora.reg) of an older machine"));
    tools->addStretch();
    layout->addLayout(tools);
    layout->addSpacing(8);
    layout->addStretch();

    auto* buttons = MakeButtons();
    buttons->addButton(QDialogButtonBox::Ok)->setObjectName("cmdOk");
    buttons->addButton(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmOptionsPage::Save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(reset, &QPushButton::clicked, this, &frmOptionsPage::Reset);
    connect(import, &QPushButton::clicked, this, [this] {
        Trapped(main_.ui, "Called from Sub: cmdImportSettings", [&] { ImportOldSettings(main_); });
        ShowGlobals();
    });
}

void frmOptionsPage::ShowGlobals() {
    chkAskBeforeDelete_->setChecked(main_.globals.AskBeforeDelete);
    chkStartWithSetup_->setChecked(main_.globals.StartWithSetup);
    chkStartPage_->setChecked(WantsStartPage(main_.settings));
}

/// The boxes show all habits on, whatever is stored: OK makes them so.
void frmOptionsPage::Reset() {
    chkAskBeforeDelete_->setChecked(true);
    chkStartWithSetup_->setChecked(true);
    chkStartPage_->setChecked(true);
    Trapped(main_.ui, "Called from Sub: Command1",
            [&] { lostPrinter_ = ResetOptions(main_) == LoadOutcome::NoPrinter; });
    if (lostPrinter_)
        reject();
}

void frmOptionsPage::Save() {
    Trapped(main_.ui, "Called from Sub: cmdOk", [&] {
        SaveOptions(main_, chkAskBeforeDelete_->isChecked(), chkStartWithSetup_->isChecked());
        KeepStartPage(main_.settings, chkStartPage_->isChecked());
    });
    accept();
}

/// Another copy of the program may have changed the settings meanwhile.
void frmOptionsPage::showEvent(QShowEvent* event) {
    PlacedDialog::showEvent(event);
    if (event->spontaneous())
        return;
    Trapped(main_.ui, "Called from Sub: frmOptionsPage", [&] {
        RefreshDocumentStatus(main_);
        ShowCurrentTab(main_);
        lostPrinter_ = LoadGlobals(main_) == LoadOutcome::NoPrinter;
    });
    ShowGlobals();
}

} // namespace velmora
