#include "wizard/ui/ValuePages.h"

#include "wizard/NextNumber.h"
#include "workspace/Dialogs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

constexpr int kNumberLetters = 12;
constexpr int kTextLetters = 24;
constexpr int kTickRows = 4;
constexpr const char* kStyleMnemonics = "EAbr"; // one letter of each caption

/// A switch stands out while it is on.
void Highlight(QCheckBox& box, bool on) {
    QFont font = box.font();
    font.setBold(on);
    box.setFont(font);
}

} // namespace

ValueForm::ValueForm(frmAutoRepWiz& wizard, WizardPage page) : AutoRepForm(wizard, page) {
    ShowFieldPicture();
    SetButton(WizardButton::Next, true, tr("&Next Field"));
}

void ValueForm::AddPreview() {
    lblPreview_ = Named(AddText(""), "lblPreview");
    lblPreview_->setWordWrap(false);
    lblPreview_->setSizePolicy(QSizePolicy::Ignored,
                               QSizePolicy::Preferred); // a long text is cut, not the page widened
}

void ValueForm::ShowPreview(const std::string& text) {
    const QString line = QString::fromStdString(text);
    lblPreview_->setText(line);
    lblPreview_->setToolTip(line);
}

void ValueForm::GoOn() {
    Wizard().Go(PageAfterField(State(), Main().document));
}

frmAutoRepWiz5a::frmAutoRepWiz5a(frmAutoRepWiz& wizard)
    : ValueForm(wizard, WizardPage::Numbers),
      next_(NextNumberInDocument(wizard.Main().document, wizard.State().CurrentFieldNo - 1)),
      txtFirstNumber_(Named(new QLineEdit("1"), "txtFirstNumber")),
      cboNumberFormat_(Named(new QComboBox, "cboNumberFormat")), Text1_(Named(new QLineEdit, "Text1")),
      Text2_(Named(new QLineEdit, "Text2")),
      cmdContinue_(Named(new QPushButton(tr("Continue from the &last number in the document")), "cmdContinue")) {
    BuildUi();
    for (QLineEdit* entry : {txtFirstNumber_, Text1_, Text2_})
        connect(entry, &QLineEdit::textChanged, this, &frmAutoRepWiz5a::Typed);
    connect(cboNumberFormat_, &QComboBox::currentIndexChanged, this, &frmAutoRepWiz5a::Typed);
    connect(cmdContinue_, &QPushButton::clicked, this, &frmAutoRepWiz5a::Continue);
    Typed();
}

void frmAutoRepWiz5a::BuildUi() {
    for (const std::string_view format : kNumberFormats)
        cboNumberFormat_->addItem(QString::fromUtf8(format.data(), static_cast<qsizetype>(format.size())));
    SetLetters(*txtFirstNumber_, kNumberLetters);
    cmdContinue_->setEnabled(next_.has_value());
    auto* first = new QHBoxLayout;
    first->addWidget(txtFirstNumber_);
    first->addWidget(cmdContinue_);
    first->addStretch();
    AddQuestion(WithMnemonic(Texts().lines[0], 'W'), txtFirstNumber_, first);
    AddQuestion(WithMnemonic(Texts().lines[1], 't'), cboNumberFormat_);
    AddQuestion(QString::fromStdString(Texts().lines[2]), nullptr, BuildTextsRow());
    AddPreview();
}

QLayout* frmAutoRepWiz5a::BuildTextsRow() {
    auto* row = new QHBoxLayout;
    auto* before = new QLabel(tr("&Before:"));
    before->setBuddy(Text1_);
    auto* after = new QLabel(tr("&After:"));
    after->setBuddy(Text2_);
    for (QWidget* control : {static_cast<QWidget*>(before), static_cast<QWidget*>(Text1_), static_cast<QWidget*>(after),
                             static_cast<QWidget*>(Text2_)})
        row->addWidget(control);
    return row;
}

/// The series that follows what the document holds, into the controls.
void frmAutoRepWiz5a::Continue() {
    if (!next_)
        return;
    txtFirstNumber_->setText(QString::number(next_->first));
    cboNumberFormat_->setCurrentIndex(static_cast<int>(FormatOfWidth(next_->width)));
    Text1_->setText(QString::fromStdString(next_->before));
    Text2_->setText(QString::fromStdString(next_->after));
}

void frmAutoRepWiz5a::Typed() {
    ShowPreview(PreviewNumberPage(txtFirstNumber_->text().toStdString(), cboNumberFormat_->currentText().toStdString(),
                                  Text1_->text().toStdString(), Text2_->text().toStdString(), State().NewTabCount));
}

void frmAutoRepWiz5a::Next() {
    FillNumbers(State(),
                ReadNumberPage(txtFirstNumber_->text().toStdString(), cboNumberFormat_->currentText().toStdString(),
                               Text1_->text().toStdString(), Text2_->text().toStdString()));
    GoOn();
}

QWidget* frmAutoRepWiz5a::FirstFocus() {
    return txtFirstNumber_;
}

frmAutoRepWiz5b::frmAutoRepWiz5b(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Style), styles_(new QButtonGroup(this)) {
    ShowFieldPicture();
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
    Content().addWidget(chkTagAll_, 0, Qt::AlignLeft);
    Content().addWidget(chkUpperCase_, 0, Qt::AlignLeft);
    AddPreview();
    connect(chkTagAll_, &QCheckBox::clicked, this, &frmAutoRepWiz6a::TickAll);
    connect(chkUpperCase_, &QCheckBox::toggled, this, &frmAutoRepWiz6a::UseUpperCase);
    for (QCheckBox* box : {chkTagAll_, chkUpperCase_})
        connect(box, &QCheckBox::toggled, this, [box](bool on) { Highlight(*box, on); });
}

/// In columns, in the order of the calendar.
void frmAutoRepWiz6a::BuildBoxes() {
    auto* grid = new QGridLayout;
    for (const std::string& caption : TickCaptions(State())) {
        const int index = static_cast<int>(boxes_.size());
        auto* box =
            Named(new QCheckBox(QString::fromStdString(caption)), State().MonthMode ? "chkMonth" : "chkDay", index + 1);
        grid->addWidget(box, index % kTickRows, index / kTickRows);
        connect(box, &QCheckBox::toggled, this, &frmAutoRepWiz6a::Ticked);
        boxes_.push_back(box);
    }
    Content().addLayout(grid);
}

std::vector<TickBox> frmAutoRepWiz6a::Ticks() const {
    std::vector<TickBox> ticks;
    for (const QCheckBox* box : boxes_)
        ticks.push_back({box->text().toStdString(), box->isChecked()});
    return ticks;
}

void frmAutoRepWiz6a::TickAll(bool ticked) {
    for (QCheckBox* box : boxes_)
        box->setChecked(ticked);
}

void frmAutoRepWiz6a::UseUpperCase(bool upper) {
    for (QCheckBox* box : boxes_) {
        const std::string caption = box->text().toStdString();
        box->setText(QString::fromStdString(upper ? UpperCaption(caption) : LowerCaption(caption)));
    }
    Ticked();
}

void frmAutoRepWiz6a::Ticked() {
    const auto series = ReadTicks(Ticks());
    ShowPreview(series ? PreviewText(*series, State().NewTabCount) : "");
    chkTagAll_->setChecked(series && series->names.size() == boxes_.size());
}

void frmAutoRepWiz6a::Next() {
    if (const auto message = FillNames(State(), Ticks()))
        return Tell(Main().ui, *message, Icon::Critical);
    GoOn();
}

QWidget* frmAutoRepWiz6a::FirstFocus() {
    return boxes_.front();
}

frmAutoRepWiz5d::frmAutoRepWiz5d(frmAutoRepWiz& wizard)
    : ValueForm(wizard, WizardPage::Text), txtInput_(Named(new QLineEdit, "txtInput")) {
    AddText(QString::fromStdString(Texts().lines[0]));
    SetLetters(*txtInput_, kTextLetters);
    txtInput_->setText(QString::fromUtf8(kInitialText.data(), static_cast<qsizetype>(kInitialText.size())));
    AddQuestion(WithMnemonic(Texts().lines[1], 'w'), txtInput_);
    AddPreview();
    connect(txtInput_, &QLineEdit::textChanged, this, &frmAutoRepWiz5d::Typed);
    Typed();
}

void frmAutoRepWiz5d::Typed() {
    ShowPreview(PreviewText(MakeTextSeries(txtInput_->text().toStdString(), State().FieldMaxLen), State().NewTabCount));
}

void frmAutoRepWiz5d::Next() {
    FillText(State(), txtInput_->text().toStdString());
    GoOn();
}

QWidget* frmAutoRepWiz5d::FirstFocus() {
    return txtInput_;
}

} // namespace velmora
