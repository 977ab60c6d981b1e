#include "wizard/ui/ChoicePages.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "wizard/AppendWizardTabs.h"
#include "wizard/NewTabs.h"
#include "wizard/Recipes.h"
#include "wizard/ui/WarningLine.h"
#include "workspace/Dialogs.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kCountLetters = 10;

} // namespace

frmAutoRepWiz1::frmAutoRepWiz1(frmAutoRepWiz& wizard) : AutoRepForm(wizard, WizardPage::Introduction) {
    ShowExample();
    for (const std::string& line : Texts().lines)
        AddText(QString::fromStdString(line));
    SetButton(WizardButton::Next);
}

void frmAutoRepWiz1::Next() {
    StartWizard(State());
    Wizard().Go(WizardPage::Count);
}

frmAutoRepWiz2::frmAutoRepWiz2(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Count), txtNoOfPages_(Named(new QLineEdit, "txtNoOfPages")),
      optFrom_(new QButtonGroup(this)), lblPlace_(Named(new QLabel, "lblPlace")),
      lblReplaced_(new WarningLine("lblReplaced")) {
    ShowExample(QString::fromStdString(Texts().lines[1] + "\n\n" + Texts().lines[2]));
    txtNoOfPages_->setText(State().NewTabCount > 0 ? QString::number(State().NewTabCount)
                                                   : QString::fromStdString(LastCount(Main().settings)));
    SetLetters(*txtNoOfPages_, kCountLetters);
    AddQuestion(WithMnemonic(Texts().lines[0], 'H'), txtNoOfPages_);
    AddStarts();
    Content().addWidget(lblPlace_);
    Content().addWidget(lblReplaced_);
    connect(txtNoOfPages_, &QLineEdit::textChanged, this, &frmAutoRepWiz2::Typed);
    connect(optFrom_, &QButtonGroup::idToggled, this, [this] {
        State().BehindLast = optFrom_->checkedId() == 1;
        ShowPlace();
    });
    CheckTyped();
}

/// Where both are the same there is nothing to choose.
void frmAutoRepWiz2::AddStarts() {
    const TabDocument& document = Main().document;
    const bool differ = FirstNewTab(document, false) != FirstNewTab(document, true);
    auto* current = Named(new QRadioButton("&" + QString::fromStdString(FromTabInUse(document))), "optFromCurrent");
    auto* behind = Named(new QRadioButton("&" + QString::fromStdString(FromBehindLast(document))), "optBehindLast");
    optFrom_->addButton(current, 0);
    optFrom_->addButton(behind, 1);
    behind->setEnabled(differ && !RefuseNewTabs(document, FirstNewTab(document, true), 1));
    (State().BehindLast && behind->isEnabled() ? behind : current)->setChecked(true);
    for (QRadioButton* option : {current, behind})
        Content().addWidget(option);
}

/// An empty box is no way on, but nothing to complain about: the person is about to type.
void frmAutoRepWiz2::Typed() {
    const std::string text = txtNoOfPages_->text().toStdString();
    const auto message = CheckTyped();
    if (message && !text.empty())
        Tell(Main().ui, *message);
}

std::optional<std::string> frmAutoRepWiz2::CheckTyped() {
    auto message = CheckCount(txtNoOfPages_->text().toStdString());
    SetButton(WizardButton::Next, !message);
    ShowPlace();
    return message;
}

void frmAutoRepWiz2::ShowPlace() {
    const std::string text = txtNoOfPages_->text().toStdString();
    const PlaceOfNewTabs place =
        CheckCount(text) ? PlaceOfNewTabs() : PlaceOf(Main().document, State().BehindLast, ToInt32(ToDouble(text)));
    lblPlace_->setText(QString::fromStdString(place.place));
    lblReplaced_->Show(QString::fromStdString(OneLine(place.warning)));
    emit Answered(lblPlace_->text() + ' ' + lblReplaced_->Text());
}

void frmAutoRepWiz2::Next() {
    const std::string text = txtNoOfPages_->text().toStdString();
    if (const auto message = CheckCount(text))
        return Tell(Main().ui, *message);
    if (TellRefusal(Main(), State().BehindLast, ToInt32(ToDouble(text))))
        return;
    ConfirmCount(State(), text);
    Wizard().Go(WizardPage::Chooser);
}

QWidget* frmAutoRepWiz2::FirstFocus() {
    return txtNoOfPages_;
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
    ShowNewTabs(true);
    NameFields();
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
