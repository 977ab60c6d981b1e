#include "editor/ui/frmFind.h"

#include "document/Dialogs.h"
#include "document/ui/Controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace velmora {
namespace {

constexpr int kAllFields = -1;

} // namespace

frmFind::frmFind(MainModule& main, QWidget* parent)
    : PlacedDialog(main.settings, "frmFind", parent), main_(main), finder_(main) {
    setObjectName("frmFind");
    setWindowTitle(tr("Find and Replace"));
    BuildUi();
    const auto run = [this](void (frmFind::*work)()) {
        Trapped(main_, "Called from Sub: frmFind", [&] { (this->*work)(); });
    };
    connect(cmdFindNext_, &QPushButton::clicked, this, [run] { run(&frmFind::FindNext); });
    connect(cmdReplace_, &QPushButton::clicked, this, [run] { run(&frmFind::Replace); });
    connect(cmdReplaceAll_, &QPushButton::clicked, this, [run] { run(&frmFind::ReplaceAll); });
    connect(txtFind_, &QLineEdit::textChanged, this, &frmFind::EnableButtons);
    EnableButtons();
}

void frmFind::BuildUi() {
    txtFind_ = Named(new QLineEdit, "txtFind");
    txtReplace_ = Named(new QLineEdit, "txtReplace");
    cboField_ = Named(new QComboBox, "cboField");
    cboField_->addItem(tr("All fields"), kAllFields);
    for (int field = 0; field < kFieldsPerTab; ++field)
        cboField_->addItem(tr("Field %1").arg(QChar('A' + field)), field);
    chkMatchCase_ = Named(new QCheckBox(tr("&Match case")), "chkMatchCase");
    lblResult_ = Named(new QLabel(" "), "lblResult");
    cmdFindNext_ = Named(new QPushButton(tr("Find &Next")), "cmdFindNext");
    cmdReplace_ = Named(new QPushButton(tr("&Replace")), "cmdReplace");
    cmdReplaceAll_ = Named(new QPushButton(tr("Replace &All")), "cmdReplaceAll");
    auto* cmdClose = Named(new QPushButton(tr("&Close")), "cmdClose");
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    cmdFindNext_->setDefault(true);

    auto* entries = new QFormLayout;
    entries->addRow(tr("&Find:"), txtFind_);
    entries->addRow(tr("Replace &with:"), txtReplace_);
    entries->addRow(tr("&In:"), cboField_);
    entries->addRow("", chkMatchCase_);
    entries->addRow("", lblResult_);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {cmdFindNext_, cmdReplace_, cmdReplaceAll_, cmdClose})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(entries, 1);
    layout->addLayout(buttons);
}

void frmFind::Open() {
    show();
    raise();
    activateWindow();
    txtFind_->setFocus();
    txtFind_->selectAll();
}

bool frmFind::CanFind() const {
    return !txtFind_->text().isEmpty();
}

/// Nothing can be found without a text to find.
void frmFind::EnableButtons() {
    lblResult_->setText(" ");
    for (QPushButton* button : {cmdFindNext_, cmdReplace_, cmdReplaceAll_})
        button->setEnabled(CanFind());
}

FindRequest frmFind::Request() const {
    const int field = cboField_->currentData().toInt();
    return {txtFind_->text().toStdString(), txtReplace_->text().toStdString(), chkMatchCase_->isChecked(),
            field == kAllFields ? std::nullopt : std::optional(field)};
}

void frmFind::Show(FindOutcome outcome) {
    lblResult_->setText(outcome == FindOutcome::NotFound       ? tr("Not found.")
                        : outcome == FindOutcome::FoundFromTop ? tr("Found from the first tab on.")
                                                               : " ");
}

void frmFind::FindNext() {
    Show(finder_.FindNext(Request()));
}

void frmFind::Replace() {
    Show(finder_.Replace(Request()));
}

void frmFind::ReplaceAll() {
    lblResult_->setText(tr("Texts replaced: %1").arg(finder_.ReplaceAll(Request())));
}

} // namespace velmora
