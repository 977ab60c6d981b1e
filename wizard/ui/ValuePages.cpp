#include "wizard/ui/ValuePages.h"

#include "base/Error.h"
#include "widgets/ElidedLabel.h"
#include "wizard/NextNumber.h"
#include "wizard/ValueNotes.h"
#include "wizard/ui/WarningLine.h"
#include "workspace/Dialogs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

constexpr int kNumberLetters = 8;
constexpr int kTextLetters = 24;
constexpr int kTickRows = 4;
constexpr int kSwitchGap = 12;                  // the switches are no names
constexpr const char* kStyleMnemonics = "EAbr"; // one letter of each caption

/// A switch stands out while it is on.
void Highlight(QCheckBox& box, bool on) {
    QFont font = box.font();
    font.setBold(on);
    box.setFont(font);
}

} // namespace

ValueForm::ValueForm(frmAutoRepWiz& wizard, WizardPage page)
    : AutoRepForm(wizard, page), lblLetters_(Named(new QLabel(this), "lblLetters")) {
    lblLetters_->hide(); // on pages without an entry
    ShowNewTabs(true);
    NameFields();
    SetButton(WizardButton::Next, true, tr("&Next Field"));
}

QLayout* ValueForm::RepeatRow() {
    auto* repeat = Named(new QSpinBox, "txtRepeat");
    repeat->setRange(1, kMostRepeats);
    repeat->setValue(Entry().repeat);
    connect(repeat, &QSpinBox::valueChanged, this, [this](int times) {
        Entry().repeat = times;
        ShowNotes();
    });
    auto* label = new QLabel(tr("Tabs in a &row with the same value:"));
    label->setBuddy(repeat);
    return Beside(label, repeat);
}

void ValueForm::AddPreview() {
    lblPreview_ = Named(new ElidedLabel(true), "lblPreview");
    lblWarning_ = new WarningLine("lblWarning");
    Content().addWidget(lblPreview_);
    Content().addWidget(lblWarning_);
}

void ValueForm::ShowNotes() {
    ShowNotes(NotesOn(Entry(), State().CurrentFieldNo, State().FieldMaxLen, State().NewTabCount, Wizard().Sample()),
              SeriesOf(Entry(), State().FieldMaxLen));
}

void ValueForm::ShowNotes(const ValueNotes& notes, const std::optional<ValueSeries>& series) {
    lblPreview_->Show(QString::fromStdString(notes.preview));
    lblLetters_->setText(QString::fromStdString(notes.letters));
    QFont font = lblLetters_->font();
    font.setBold(notes.isLong);
    lblLetters_->setFont(font);
    lblWarning_->Show(QString::fromStdString(notes.warning));
    PaintNewTabs(series);
    emit Answered(QStringList{lblPreview_->text(), lblLetters_->text(), lblWarning_->Text()}.join(' '));
}

/// Then the font page once every field has its values, else the chooser.
void ValueForm::Next() {
    if (const auto message = GiveValues(State(), Entry()))
        return Tell(Main().ui, *message, Icon::Critical);
    Wizard().Go(PageAfterField(State(), Main().document));
}

frmAutoRepWiz5a::frmAutoRepWiz5a(frmAutoRepWiz& wizard)
    : ValueForm(wizard, WizardPage::Numbers),
      next_(NextNumberInDocument(wizard.Main().document, wizard.State().CurrentFieldNo - 1)),
      txtFirstNumber_(Named(new QLineEdit("1"), "txtFirstNumber")),
      cboNumberFormat_(Named(new QComboBox, "cboNumberFormat")), Text1_(Named(new QLineEdit, "Text1")),
      Text2_(Named(new QLineEdit, "Text2")),
      chkTexts_(Named(new QCheckBox(tr("Add the texts to numbers with&out format too")), "chkTexts")),
      cmdContinue_(Named(new QPushButton(tr("Continue from the &last number in the document")), "cmdContinue")) {
    BuildUi();
    Show(Entry().numbers);
    for (QLineEdit* entry : {txtFirstNumber_, Text1_, Text2_})
        connect(entry, &QLineEdit::textChanged, this, &frmAutoRepWiz5a::Typed);
    connect(cboNumberFormat_, &QComboBox::currentIndexChanged, this, &frmAutoRepWiz5a::Typed);
    connect(chkTexts_, &QCheckBox::toggled, this, &frmAutoRepWiz5a::Typed);
    connect(cmdContinue_, &QPushButton::clicked, this, &frmAutoRepWiz5a::Continue);
    Typed();
}

void frmAutoRepWiz5a::BuildUi() {
    for (const std::string_view format : kNumberFormats)
        cboNumberFormat_->addItem(QString::fromUtf8(format.data(), static_cast<qsizetype>(format.size())));
    SetLetters(*txtFirstNumber_, kNumberLetters);
    cmdContinue_->setEnabled(next_.has_value());
    AddQuestion(WithMnemonic(Texts().lines[0], 'W'), txtFirstNumber_, Beside(txtFirstNumber_, cmdContinue_));
    AddQuestion(WithMnemonic(Texts().lines[1], 't'), cboNumberFormat_);
    AddQuestion(QString::fromStdString(Texts().lines[2]), nullptr, BuildTextsRow());
    Content().addWidget(chkTexts_, 0, Qt::AlignLeft);
    Content().addLayout(RepeatRow());
    AddPreview();
}

QLayout* frmAutoRepWiz5a::BuildTextsRow() {
    auto* row = new QHBoxLayout;
    auto* before = new QLabel(tr("&Before:"));
    before->setBuddy(Text1_);
    auto* after = new QLabel(tr("&After:"));
    after->setBuddy(Text2_);
    for (QWidget* control : std::initializer_list<QWidget*>{before, Text1_, after, Text2_, Letters()})
        row->addWidget(control);
    return row;
}

void frmAutoRepWiz5a::Show(const NumberSeries& numbers) {
    const NumberSeries shown = numbers; // what is shown changes the entries
    txtFirstNumber_->setText(QString::number(shown.first));
    cboNumberFormat_->setCurrentIndex(static_cast<int>(FormatOfWidth(shown.width)));
    chkTexts_->setChecked(shown.width == kTextsAlone);
    Text1_->setText(QString::fromStdString(shown.before));
    Text2_->setText(QString::fromStdString(shown.after));
}

void frmAutoRepWiz5a::Continue() {
    if (next_)
        Show(*next_);
}

NumberSeries frmAutoRepWiz5a::Read() const {
    return ReadNumberPage(txtFirstNumber_->text().toStdString(), cboNumberFormat_->currentText().toStdString(),
                          Text1_->text().toStdString(), Text2_->text().toStdString(), chkTexts_->isChecked());
}

void frmAutoRepWiz5a::Typed() {
    chkTexts_->setEnabled(cboNumberFormat_->currentIndex() == 0);
    frmAutoRepWiz5a::ShowNotes();
}

/// A first number beyond all makes no tabs: those of the one before it must not stand there.
void frmAutoRepWiz5a::ShowNotes() {
    try {
        Entry().numbers = Read();
    } catch (const OverflowError&) {
        return ShowNotes({kOutOfRange}, TextSeries());
    }
    ValueForm::ShowNotes();
}

void frmAutoRepWiz5a::Next() {
    try {
        Entry().numbers = Read();
        ValueForm::Next();
    } catch (const OverflowError&) {
        Tell(Main().ui, kOutOfRange, Icon::Critical);
        txtFirstNumber_->setFocus();
    }
}

QWidget* frmAutoRepWiz5a::FirstFocus() {
    return txtFirstNumber_;
}

frmAutoRepWiz5b::frmAutoRepWiz5b(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Style), styles_(new QButtonGroup(this)) {
    ShowNewTabs(true);
    NameFields();
    AddText(QString::fromStdString(Texts().lines[0]));
    for (int style = 1; style <= kNameStyles; ++style) {
        const auto i = static_cast<std::size_t>(style - 1);
        auto* option = Named(new QRadioButton(WithMnemonic(kStyleCaptions[i], kStyleMnemonics[i])), "OptDayMon", style);
        styles_->addButton(option, style);
        option->setChecked(style == State().MonthStyle);
        Content().addWidget(option);
    }
    SetButton(WizardButton::Next);
    connect(styles_, &QButtonGroup::idToggled, this, [this](int style, bool on) {
        if (on)
            ChooseStyle(State(), style);
    });
}

void frmAutoRepWiz5b::Next() {
    Wizard().Go(WizardPage::Ticks);
}

QWidget* frmAutoRepWiz5b::FirstFocus() {
    return styles_->checkedButton();
}

frmAutoRepWiz6a::frmAutoRepWiz6a(frmAutoRepWiz& wizard)
    : ValueForm(wizard, WizardPage::Ticks), chkTagAll_(Named(new QCheckBox(tr("Select &All")), "chkTagAll")),
      chkUpperCase_(Named(new QCheckBox(tr("&Upper Case all text")), "chkUpperCase")) {
    BuildBoxes();
    chkUpperCase_->setChecked(Entry().upper);
    auto* switches = new QHBoxLayout;
    for (QCheckBox* box : {chkTagAll_, chkUpperCase_}) {
        switches->addWidget(box);
        connect(box, &QCheckBox::toggled, this, [box](bool on) { Highlight(*box, on); });
        Highlight(*box, box->isChecked());
    }
    switches->addStretch();
    Content().addSpacing(kSwitchGap);
    Content().addLayout(switches);
    Content().addLayout(RepeatRow());
    AddPreview();
    connect(chkTagAll_, &QCheckBox::clicked, this, &frmAutoRepWiz6a::TickAll);
    connect(chkUpperCase_, &QCheckBox::toggled, this, &frmAutoRepWiz6a::UseUpperCase);
    ShowTicks();
}

bool& frmAutoRepWiz6a::Ticked(int index) {
    const auto place = static_cast<std::size_t>(index);
    return Entry().kind == ValueKind::Month ? Entry().months.at(place) : Entry().days.at(place);
}

/// In columns, in the order of the calendar.
void frmAutoRepWiz6a::BuildBoxes() {
    auto* grid = new QGridLayout;
    for (const std::string& caption : NamesOf(Entry())) {
        const int index = static_cast<int>(boxes_.size());
        auto* box =
            Named(new QCheckBox(QString::fromStdString(caption)), State().MonthMode ? "chkMonth" : "chkDay", index + 1);
        box->setChecked(Ticked(index));
        grid->addWidget(box, index % kTickRows, index / kTickRows);
        connect(box, &QCheckBox::toggled, this, [this, index](bool on) {
            Ticked(index) = on;
            ShowTicks();
        });
        boxes_.push_back(box);
    }
    Content().addLayout(grid);
}

void frmAutoRepWiz6a::TickAll(bool ticked) {
    for (QCheckBox* box : boxes_)
        box->setChecked(ticked);
}

void frmAutoRepWiz6a::UseUpperCase(bool upper) {
    Entry().upper = upper;
    const std::vector<std::string> captions = NamesOf(Entry());
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setText(QString::fromStdString(captions[i]));
    ShowTicks();
}

void frmAutoRepWiz6a::ShowTicks() {
    chkTagAll_->setChecked(std::all_of(boxes_.begin(), boxes_.end(), [](const auto* box) { return box->isChecked(); }));
    ShowNotes();
}

QWidget* frmAutoRepWiz6a::FirstFocus() {
    return boxes_.front();
}

frmAutoRepWiz5d::frmAutoRepWiz5d(frmAutoRepWiz& wizard)
    : ValueForm(wizard, WizardPage::Text), txtInput_(Named(new QLineEdit, "txtInput")) {
    AddText(QString::fromStdString(Texts().lines[0]));
    SetLetters(*txtInput_, kTextLetters);
    txtInput_->setText(QString::fromStdString(Entry().text));
    AddQuestion(WithMnemonic(Texts().lines[1], 'w'), txtInput_, Beside(txtInput_, Letters()));
    AddPreview();
    connect(txtInput_, &QLineEdit::textChanged, this, &frmAutoRepWiz5d::Typed);
    Typed();
}

void frmAutoRepWiz5d::Typed() {
    Entry().text = txtInput_->text().toStdString();
    ShowNotes();
}

QWidget* frmAutoRepWiz5d::FirstFocus() {
    return txtInput_;
}

} // namespace velmora
