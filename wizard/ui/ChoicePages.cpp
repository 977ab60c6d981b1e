#include "wizard/ui/ChoicePages.h"

#include "base/Numbers.h"
#include "widgets/LineIcon.h"
#include "wizard/AppendWizardTabs.h"
#include "workspace/Dialogs.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

constexpr QRgb kMagenta = 0xFFFF00FF;
constexpr int kCountLetters = 10;

/// A field that has its values: not told by the colour alone.
void MarkDone(QPushButton& button) {
    QPalette palette = button.palette();
    palette.setColor(QPalette::Button, QColor::fromRgb(kMagenta));
    palette.setColor(QPalette::ButtonText, Qt::black);
    button.setPalette(palette);
    button.setIcon(LineIcon("done"));
}

} // namespace

frmAutoRepWiz1::frmAutoRepWiz1(frmAutoRepWiz& wizard) : AutoRepForm(wizard, WizardPage::Introduction) {
    ShowTabPicture();
    for (const std::string& line : Texts().lines)
        AddText(QString::fromStdString(line));
    SetButton(WizardButton::Next);
}

void frmAutoRepWiz1::Next() {
    StartWizard(State());
    Wizard().Go(WizardPage::Count);
}

frmAutoRepWiz2::frmAutoRepWiz2(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Count), txtNoOfPages_(Named(new QLineEdit, "txtNoOfPages")) {
    ShowTabPicture(QString::fromStdString(Texts().lines[1] + "\n\n" + Texts().lines[2]));
    if (State().NewTabCount > 0)
        txtNoOfPages_->setText(QString::number(State().NewTabCount));
    SetLetters(*txtNoOfPages_, kCountLetters);
    AddQuestion(WithMnemonic(Texts().lines[0], 'H'), txtNoOfPages_);
    lblPlace_ = Named(AddText(""), "lblPlace");
    connect(txtNoOfPages_, &QLineEdit::textChanged, this, &frmAutoRepWiz2::Typed);
    Typed();
}

/// An empty box is no way on, but nothing to complain about: the person is about to type.
void frmAutoRepWiz2::Typed() {
    const std::string text = txtNoOfPages_->text().toStdString();
    const auto message = CheckCount(text);
    SetButton(WizardButton::Next, !message);
    lblPlace_->setText(message ? "" : QString::fromStdString(PlaceOfNewTabs(Main().document, ToInt32(ToDouble(text)))));
    if (message && !text.empty())
        Tell(Main().ui, *message);
}

void frmAutoRepWiz2::Next() {
    if (const auto message = ConfirmCount(State(), txtNoOfPages_->text().toStdString()))
        return Tell(Main().ui, *message);
    Wizard().Go(WizardPage::Chooser);
}

QWidget* frmAutoRepWiz2::FirstFocus() {
    return txtNoOfPages_;
}

frmAutoRepWiz2a::frmAutoRepWiz2a(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Chooser), allDone_(AllFieldsDone(wizard.State(), wizard.Main().document)) {
    ShowTabPicture();
    AddText(QString::fromStdString(Texts().lines[0]));
    auto* buttons = new QVBoxLayout;
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        buttons->addWidget(MakeFieldButton(fieldNo), 0, Qt::AlignLeft);
    Content().addLayout(buttons);
    const auto& done = State().FieldDone;
    SetButton(WizardButton::Next, allDone_);
    SetButton(WizardButton::Finish, std::find(done.begin(), done.end(), true) != done.end());
}

QPushButton* frmAutoRepWiz2a::MakeFieldButton(int fieldNo) {
    auto* button = new QPushButton(FieldCaption(fieldNo));
    button->setObjectName(QString("cmdField%1").arg(QChar('A' + fieldNo - 1)));
    button->setMinimumWidth(2 * button->sizeHint().width());
    button->setEnabled(fieldNo <= Main().document.setup.NoOfFields);
    const bool done = State().FieldDone[static_cast<std::size_t>(fieldNo - 1)];
    if (done)
        MarkDone(*button);
    else if (!firstDue_ && button->isEnabled())
        firstDue_ = button;
    button->setAccessibleDescription(done ? tr("done") : QString());
    connect(button, &QPushButton::clicked, this, [this, fieldNo] {
        Trapped(Main().ui, "Called from Sub: frmAutoRepWiz2a", [&] {
            ChooseField(State(), Main().document, fieldNo);
            Wizard().Go(WizardPage::Type);
        });
    });
    return button;
}

/// Only the test whether all is done: then the fonts follow.
void frmAutoRepWiz2a::Next() {
    if (AllFieldsDone(State(), Main().document))
        Wizard().Go(WizardPage::Fonts);
}

void frmAutoRepWiz2a::Finish() {
    if (AppendWizardTabs(Main(), State()))
        Wizard().Close();
}

QWidget* frmAutoRepWiz2a::FirstFocus() {
    return firstDue_;
}

frmAutoRepWiz2b::frmAutoRepWiz2b(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Type), kinds_(new QButtonGroup(this)) {
    struct Option {
        const char* name;
        const char* caption;
        const char* kind; ///< as the state knows it
    };
    constexpr Option options[] = {{"optNum", "N&umbering Wizard", "Numeric"},
                                  {"optMth", "&Month Wizard", "Month"},
                                  {"optDay", "&Day Wizard", "Day"},
                                  {"optText", "&Text Wizard", "Text"}};
    ShowFieldPicture();
    AddText(QString::fromStdString(Texts().lines[0]));
    const std::string& before = State().FieldKind.at(static_cast<std::size_t>(State().CurrentFieldNo - 1));
    for (const Option& option : options) {
        auto* button = Named(new QRadioButton(tr(option.caption)), option.name);
        const int id = static_cast<int>(kinds_->buttons().size());
        kinds_->addButton(button, id);
        button->setChecked(id == 0 || before == option.kind);
        Content().addWidget(button);
    }
    SetButton(WizardButton::Next);
}

void frmAutoRepWiz2b::Next() {
    Wizard().Go(ChooseKind(State(), static_cast<ValueKind>(kinds_->checkedId())));
}

QWidget* frmAutoRepWiz2b::FirstFocus() {
    return kinds_->checkedButton();
}

} // namespace velmora
