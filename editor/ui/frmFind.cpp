#include "editor/ui/frmFind.h"

#include "widgets/AnswerLabel.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

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
        Trapped(main_.ui, "Called from Sub: frmFind", [&] { (this->*work)(); });
    };
    connect(cmdFindNext_, &QPushButton::clicked, this, [run] { run(&frmFind::FindNext); });
    connect(cmdReplace_, &QPushButton::clicked, this, [run] { run(&frmFind::Replace); });
    connect(cmdReplaceAll_, &QPushButton::clicked, this, [run] { run(&frmFind::ReplaceAll); });
    for (QLineEdit* entry : {txtFind_, txtReplace_})
        connect(entry, &QLineEdit::textChanged, this, &frmFind::EnableButtons);
    connect(cboField_, &QComboBox::currentIndexChanged, this, &frmFind::EnableButtons);
    connect(chkMatchCase_, &QCheckBox::toggled, this, &frmFind::EnableButtons);
    ListFields();
    EnableButtons();
}

void frmFind::BuildUi() {
    txtFind_ = Named(new QLineEdit, "txtFind");
    txtReplace_ = Named(new QLineEdit, "txtReplace");
    cboField_ = Named(new QComboBox, "cboField");
    chkMatchCase_ = Named(new QCheckBox(tr("&Match case")), "chkMatchCase");
    lblResult_ = Named(new AnswerLabel(" "), "lblResult");
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
    buttons->addWidget(MakeHelpButton());
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(entries, 1);
    layout->addLayout(buttons);
}

/// The fields in use, which the page set-up may have changed since.
void frmFind::ListFields() {
    const int chosen = cboField_->count() > 0 ? cboField_->currentData().toInt() : kAllFields;
    cboField_->clear();
    cboField_->addItem(tr("All fields"), kAllFields);
    for (int field = 0; field < main_.document.setup.NoOfFields; ++field)
        cboField_->addItem(tr("Field %1").arg(QChar('A' + field)), field);
    cboField_->setCurrentIndex(std::max(0, cboField_->findData(chosen)));
}

void frmFind::Open() {
    ListFields();
    show();
    raise();
    activateWindow();
    txtFind_->setFocus();
    txtFind_->selectAll();
}

bool frmFind::CanFind() const {
    return !txtFind_->text().isEmpty();
}

/// Nothing can be found without a text to find; what was said of the last search does not hold for another.
void frmFind::EnableButtons() {
    lblResult_->Say(" ");
    for (QPushButton* button : {cmdFindNext_, cmdReplace_, cmdReplaceAll_})
        button->setEnabled(CanFind());
    if (isVisible())
        ShowMatches();
}

/// The sheet marks what is looked for as long as the window is open.
void frmFind::ShowMatches() {
    main_.editor->HighlightMatches(CanFind() ? MatchesOf(Request()) : MatchFinder());
}

void frmFind::showEvent(QShowEvent* event) {
    PlacedDialog::showEvent(event);
    ShowMatches();
}

void frmFind::hideEvent(QHideEvent* event) {
    main_.editor->HighlightMatches({});
    PlacedDialog::hideEvent(event);
}

FindRequest frmFind::Request() const {
    const int field = cboField_->currentData().toInt();
    return {txtFind_->text().toStdString(), txtReplace_->text().toStdString(), chkMatchCase_->isChecked(),
            field == kAllFields ? std::nullopt : std::optional(field)};
}

void frmFind::Show(FindOutcome outcome) {
    if (outcome == FindOutcome::NotFound)
        return lblResult_->Say(tr("Not found."));
    if (outcome == FindOutcome::LastReplaced)
        return lblResult_->Say(tr("Replaced the last one."));
    const MatchCount count = finder_.Count(Request());
    const QString text = outcome == FindOutcome::Found ? tr("%1 of %2") : tr("%1 of %2, from the first tab on");
    const QString which = text.arg(count.at).arg(count.of);
    lblResult_->Say(which, which + ". " + FoundBox());
    StandAside();
}

/// Where the match is and its text: it is marked in another window than this one, which keeps the keys.
QString frmFind::FoundBox() const {
    const auto* box = qobject_cast<QLineEdit*>(parentWidget()->focusWidget());
    return box ? box->accessibleName() + ": " + box->text() : QString();
}

/// The match can be seen, and read, where it stands.
void frmFind::StandAside() {
    const QWidget* match = parentWidget()->focusWidget();
    if (match && isVisible())
        move(
            PlaceBeside(frameGeometry(), {match->mapToGlobal(QPoint()), match->size()}, screen()->availableGeometry()));
}

void frmFind::FindNext() {
    const FindOutcome outcome = finder_.FindNext(Request());
    if (outcome == FindOutcome::NotFound && !isVisible())
        Open(); // to say so
    Show(outcome);
}

void frmFind::Replace() {
    Show(finder_.Replace(Request()));
}

void frmFind::ReplaceAll() {
    lblResult_->Say(tr("Texts replaced: %1").arg(finder_.ReplaceAll(Request())));
}

} // namespace velmora
