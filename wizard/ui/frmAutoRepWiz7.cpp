#include "wizard/ui/frmAutoRepWiz7.h"

#include "base/Text.h"
#include "report/Twips.h"
#include "widgets/LineIcon.h"
#include "wizard/NewTabs.h"
#include "wizard/ui/FieldSample.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kRowsPerField = 3; // controls, sample, gap
constexpr int kFieldGap = 8;
constexpr int kFontLetters = 8; // at least
constexpr int kSizeLetters = 4;

struct BarButton {
    int index; ///< in its toolbar
    const char* icon;
    const char* toolTip;
};
constexpr BarButton kStyles[] = {{3, "bold", "Bold"}, {4, "italic", "Italic"}, {5, "underline", "Underline"}};
constexpr BarButton kHorizontal[] = {
    {1, "align-left", "Left"}, {2, "align-centre", "Centre"}, {3, "align-right", "Right"}};
constexpr BarButton kVertical[] = {
    {1, "align-top", "Top"}, {2, "align-middle", "Middle"}, {3, "align-bottom", "Bottom"}};

/// One field has the same controls as the others: "Bold, field A".
QString NameInField(const QString& what, int field) {
    return QObject::tr("%1, field %2").arg(what, QChar('A' + field));
}

QToolButton* MakeButton(const BarButton& row, QWidget* bar, int field) {
    auto* button = Named(new QToolButton(bar), "Button", row.index);
    button->setIcon(LineIcon(row.icon));
    button->setToolTip(QObject::tr(row.toolTip));
    button->setAccessibleName(NameInField(QObject::tr(row.toolTip), field));
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    bar->layout()->addWidget(button);
    return button;
}

QWidget* MakeBar(const char* name, int field) {
    auto* bar = Named(new QWidget, name, field + 1);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    return bar;
}

/// What the first of the new tabs holds, or the field's name.
QString SampleText(const TabTexts& texts, int field) {
    const std::string& text = texts.at(static_cast<std::size_t>(field));
    return text.empty() ? FieldCaption(field + 1).remove('&') : QString::fromStdString(text);
}

} // namespace

frmAutoRepWiz7::frmAutoRepWiz7(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Fonts), page_(wizard.Main(), wizard.Fonts()) {
    wizard.UseFonts(page_.Fonts());
    ShowNewTabs(false);
    auto* grid = new QGridLayout;
    Content().addLayout(grid);
    lblMissing_ = Named(AddText(QString::fromStdString(page_.MissingText())), "lblMissing");
    for (int field = 0; field < kFieldsPerTab; ++field)
        AddField(grid, field);
    ShowMissing();
    auto* note = new QHBoxLayout;
    note->addWidget(new QLabel(tr("Note:")), 0, Qt::AlignTop);
    auto* text = new QLabel(tr("You will only be able to see the effect of the Vertical Alignment settings in the "
                               "preview or the print out."));
    text->setWordWrap(true);
    note->addWidget(text, 1);
    Content().addLayout(note);
    if (!wizard.IsFontsAlone())
        SetButton(WizardButton::Next);
    SetButton(WizardButton::Finish);
}

void frmAutoRepWiz7::AddField(QGridLayout* grid, int field) {
    const int row = kRowsPerField * field;
    auto* label = new QLabel(FieldCaption(field + 1));
    cboFont_.at(static_cast<std::size_t>(field)) = MakeFontBox(field);
    samples_.at(static_cast<std::size_t>(field)) = MakeSample(field);
    QComboBox* cboFont = cboFont_.at(static_cast<std::size_t>(field));
    label->setBuddy(cboFont);
    grid->addWidget(label, row, 0);
    grid->addWidget(cboFont, row, 1);
    grid->addWidget(MakeSizeBox(field), row, 2);
    grid->addWidget(MakeStyleBar(field), row, 3);
    grid->addWidget(MakeAlignmentBar(field, true), row, 4);
    grid->addWidget(MakeAlignmentBar(field, false), row, 5);
    grid->addWidget(samples_.at(static_cast<std::size_t>(field)), row + 1, 1, 1, 5);
    grid->setRowMinimumHeight(row + 2, kFieldGap);
    grid->setColumnStretch(1, 1);
    ShowSample(field);
}

QComboBox* frmAutoRepWiz7::MakeFontBox(int field) {
    auto* box = Named(new QComboBox, "cboFont", field + 1);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kFontLetters);
    for (const std::string& name : page_.Typefaces(field)) {
        box->addItem(QString::fromStdString(name));
        if (FoldCase(name) == FoldCase(page_.Font(field).Name))
            box->setCurrentIndex(box->count() - 1);
    }
    connect(box, &QComboBox::currentTextChanged, this, [this, field](const QString& name) {
        page_.ChooseName(field, name.toStdString());
        ShowSample(field);
        ShowMissing();
    });
    return box;
}

QComboBox* frmAutoRepWiz7::MakeSizeBox(int field) {
    auto* box = Named(new QComboBox, "cboSize", field + 1);
    SetPurpose(*box, NameInField(tr("Size"), field));
    box->setMinimumContentsLength(kSizeLetters);
    for (const std::int16_t points : page_.Sizes(field))
        box->addItem(QString::number(points), points);
    box->setCurrentIndex(box->findData(page_.Font(field).Size));
    connect(box, &QComboBox::currentIndexChanged, this, [this, field, box] {
        page_.ChooseSize(field, static_cast<std::int16_t>(box->currentData().toInt()));
        ShowSample(field);
    });
    return box;
}

QWidget* frmAutoRepWiz7::MakeStyleBar(int field) {
    QWidget* bar = MakeBar("Toolbar1", field);
    const FieldFont& font = page_.Font(field);
    const bool pressed[] = {font.Bold, font.Italic, font.Underline};
    for (std::size_t i = 0; i < std::size(kStyles); ++i) {
        QToolButton* button = MakeButton(kStyles[i], bar, field);
        button->setChecked(pressed[i]);
        connect(button, &QToolButton::toggled, this, [this, field, index = kStyles[i].index](bool on) {
            page_.PressStyle(field, index, on);
            ShowSample(field);
        });
    }
    return bar;
}

QWidget* frmAutoRepWiz7::MakeAlignmentBar(int field, bool horizontal) {
    QWidget* bar = MakeBar(horizontal ? "Toolbar2" : "Toolbar3", field);
    auto* group = new QButtonGroup(bar);
    for (const BarButton& row : horizontal ? kHorizontal : kVertical)
        group->addButton(MakeButton(row, bar, field), row.index);
    group->button(horizontal ? page_.HorizontalButton(field) : page_.VerticalButton(field))->setChecked(true);
    connect(group, &QButtonGroup::idClicked, this, [this, field, horizontal](int index) {
        horizontal ? page_.PressHorizontal(field, index) : page_.PressVertical(field, index);
        ShowSample(field);
    });
    return bar;
}

FieldSample* frmAutoRepWiz7::MakeSample(int field) {
    auto* sample = new FieldSample;
    sample->setText(SampleText(TextsOfNewTab(Main().document, State(), 1), field));
    sample->setObjectName(QString("Text%1").arg(field + 1));
    sample->setAccessibleName(NameInField(tr("Sample"), field));
    const auto& fields = Wizard().Sample().Fields();
    if (field < static_cast<int>(fields.size()))
        sample->EndAt(fields[static_cast<std::size_t>(field)].box.width / kTwipsPerInch);
    return sample;
}

void frmAutoRepWiz7::ShowSample(int field) {
    const FieldFont& settings = page_.Font(field);
    QFont font(QString::fromStdString(settings.Name), settings.Size);
    font.setBold(settings.Bold);
    font.setItalic(settings.Italic);
    font.setUnderline(settings.Underline);
    samples_.at(static_cast<std::size_t>(field))->ShowIn(font, BoxAlignment(settings.HorizontalAlignment));
    Wizard().UseFonts(page_.Fonts());
    PaintNewTabs();
}

/// What is printed where a chosen typeface is not installed.
void frmAutoRepWiz7::ShowMissing() {
    const QString text = QString::fromStdString(page_.MissingText());
    lblMissing_->setVisible(!text.isEmpty());
    if (text == lblMissing_->text())
        return;
    lblMissing_->setText(text);
    emit Answered(text);
}

void frmAutoRepWiz7::Store() {
    if (Wizard().IsFontsAlone())
        page_.Store();
    else
        StoreWizardFonts(Main(), State(), page_.Fonts());
}

void frmAutoRepWiz7::Next() {
    Store();
    Wizard().Go(WizardPage::Chooser);
}

/// In the wizard the chooser finishes, which stays open where there are too many tabs.
void frmAutoRepWiz7::Finish() {
    Store();
    if (Wizard().IsFontsAlone())
        return Wizard().Close();
    frmAutoRepWiz& wizard = Wizard();
    wizard.Go(WizardPage::Chooser);
    wizard.Finish();
}

void frmAutoRepWiz7::Previous() {
    Wizard().UseFonts(Main().fonts);
    AutoRepForm::Previous();
}

QWidget* frmAutoRepWiz7::FirstFocus() {
    return cboFont_.front();
}

} // namespace velmora
