#include "wizard/ui/ChooserPage.h"

#include "widgets/ElidedLabel.h"
#include "widgets/LineIcon.h"
#include "wizard/ValueNotes.h"
#include "wizard/ui/WarningLine.h"
#include "workspace/Dialogs.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

constexpr QRgb kMagenta = 0xFFFF00FF;
constexpr int kFirstLetters = 14;
constexpr int kOverviewColumn = 2;

/// A field that has its values: not told by the colour alone.
void MarkDone(QPushButton& button, bool done) {
    QPalette palette;
    if (done) {
        palette.setColor(QPalette::Button, QColor::fromRgb(kMagenta));
        palette.setColor(QPalette::ButtonText, Qt::black);
    }
    button.setPalette(palette);
    button.setIcon(done ? LineIcon("done") : QIcon());
    button.setAccessibleDescription(done ? QObject::tr("done") : QString());
}

} // namespace

frmAutoRepWiz2a::frmAutoRepWiz2a(frmAutoRepWiz& wizard)
    : AutoRepForm(wizard, WizardPage::Chooser), lastRun_(LastRun(wizard.Main().settings)) {
    ShowNewTabs(false);
    AddText(QString::fromStdString(Texts().lines[0]));
    AddLastRun();
    auto* grid = new QGridLayout;
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        AddField(*grid, fieldNo);
    grid->setColumnStretch(kOverviewColumn, 1);
    Content().addLayout(grid);
    AddText(
        tr("Or type the first text beside it: one that ends in a number counts on, any other stands on every tab."));
    AddRecipes();
    lblWarning_ = new WarningLine("lblWarning");
    Content().addWidget(lblWarning_);
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        ShowFirstText(fieldNo);
    ShowFields();
}

/// Its button, a first text to be typed, and what the tabs will hold.
void frmAutoRepWiz2a::AddField(QGridLayout& grid, int fieldNo) {
    FieldRow& row = rows_.at(static_cast<std::size_t>(fieldNo - 1));
    const QChar letter('A' + fieldNo - 1);
    row.button = MakeFieldButton(fieldNo);
    row.first = Named(new QLineEdit, QString("txtFirst%1").arg(letter).toLatin1().constData());
    row.first->setAccessibleName(tr("First text of field %1").arg(letter));
    SetLetters(*row.first, kFirstLetters);
    row.first->installEventFilter(this);
    row.first->setEnabled(row.button->isEnabled());
    row.overview = Named(new ElidedLabel(true), QString("lblField%1").arg(letter).toLatin1().constData());
    row.overview->setEnabled(row.button->isEnabled());
    grid.addWidget(row.button, fieldNo - 1, 0);
    grid.addWidget(row.first, fieldNo - 1, 1);
    grid.addWidget(row.overview, fieldNo - 1, kOverviewColumn);
    connect(row.first, &QLineEdit::textEdited, this, [this, fieldNo](const QString& text) {
        Trapped(Main().ui, "Called from Sub: frmAutoRepWiz2a", [&] { TypeFirstText(fieldNo, text.toStdString()); });
    });
}

QPushButton* frmAutoRepWiz2a::MakeFieldButton(int fieldNo) {
    auto* button = new QPushButton(FieldCaption(fieldNo));
    button->setObjectName(QString("cmdField%1").arg(QChar('A' + fieldNo - 1)));
    button->setEnabled(fieldNo <= Main().document.setup.NoOfFields);
    connect(button, &QPushButton::clicked, this, [this, fieldNo] {
        Trapped(Main().ui, "Called from Sub: frmAutoRepWiz2a", [&] {
            ChooseField(State(), Main().document, fieldNo);
            Wizard().Go(WizardPage::Type);
        });
    });
    return button;
}

void frmAutoRepWiz2a::AddLastRun() {
    auto* cmdLast = Named(new QPushButton(tr("As last &time")), "cmdLastRun");
    cmdLast->setEnabled(!lastRun_.empty());
    Content().addWidget(cmdLast, 0, Qt::AlignLeft);
    connect(cmdLast, &QPushButton::clicked, this, [this] { Take(lastRun_); });
}

void frmAutoRepWiz2a::AddRecipes() {
    cboRecipe_ = Named(new QComboBox, "cboRecipe");
    cboRecipe_->setEditable(true);
    cboRecipe_->setInsertPolicy(QComboBox::NoInsert);
    cboRecipe_->setMinimumContentsLength(kFirstLetters);
    cboRecipe_->lineEdit()->installEventFilter(this);
    cmdSave_ = Named(new QPushButton(tr("&Save")), "cmdSaveRecipe");
    cmdDelete_ = Named(new QPushButton(tr("D&elete")), "cmdDeleteRecipe");
    auto* label = new QLabel(tr("&Recipe:"));
    label->setBuddy(cboRecipe_);
    auto* row = new QHBoxLayout;
    for (QWidget* control : std::initializer_list<QWidget*>{label, cboRecipe_, cmdSave_, cmdDelete_})
        row->addWidget(control);
    row->addStretch();
    Content().addLayout(row);
    ListRecipes();
    connect(cboRecipe_, &QComboBox::textActivated, this,
            [this](const QString& name) { TakeStored(name.toStdString()); });
    connect(cboRecipe_, &QComboBox::editTextChanged, this, &frmAutoRepWiz2a::ShowFields);
    connect(cmdSave_, &QPushButton::clicked, this, &frmAutoRepWiz2a::Save);
    connect(cmdDelete_, &QPushButton::clicked, this, &frmAutoRepWiz2a::Delete);
}

void frmAutoRepWiz2a::ListRecipes() {
    const QSignalBlocker quiet(cboRecipe_);
    cboRecipe_->clear();
    for (const std::string& name : RecipeNames(Main().settings))
        cboRecipe_->addItem(QString::fromStdString(name));
    cboRecipe_->setCurrentIndex(-1);
}

std::string frmAutoRepWiz2a::RecipeName() const {
    return cboRecipe_->currentText().trimmed().toStdString();
}

void frmAutoRepWiz2a::TakeStored(const std::string& name) {
    Trapped(Main().ui, "Called from Sub: frmAutoRepWiz2a", [&] {
        if (HasRecipe(Main().settings, name))
            Take(ReadRecipe(Main().settings, name));
    });
}

/// Enter leads from text to text: on Finish it would fill the tabs with the first of them alone.
bool frmAutoRepWiz2a::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return AutoRepForm::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return AutoRepForm::eventFilter(watched, event);
    if (watched == cboRecipe_->lineEdit())
        TakeStored(RecipeName());
    else
        LeaveFirstText(watched);
    return true;
}

void frmAutoRepWiz2a::LeaveFirstText(const QObject* entry) {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const FieldRow& r) { return r.first == entry; });
    const auto next = row + 1;
    if (next != rows_.end() && next->first->isEnabled())
        next->first->setFocus(Qt::TabFocusReason);
    else
        emit EntriesDone();
}

void frmAutoRepWiz2a::Take(const Recipe& recipe) {
    Trapped(Main().ui, "Called from Sub: frmAutoRepWiz2a", [&] { TakeRecipe(State(), Main().document, recipe); });
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        ShowFirstText(fieldNo);
    ShowFields();
}

void frmAutoRepWiz2a::Save() {
    const std::string name = RecipeName();
    const Recipe recipe = RecipeOf(State());
    if (const auto refusal = RefuseRecipe(name, recipe))
        return Tell(Main().ui, *refusal);
    if (HasRecipe(Main().settings, name) && Ask(Main().ui, "Do you want to replace the recipe \"" + name + "\"?",
                                                Buttons::YesNo, Answer::No) != Answer::Yes)
        return;
    SaveRecipe(Main().settings, name, recipe);
    ListRecipes();
    cboRecipe_->setEditText(QString::fromStdString(name));
}

void frmAutoRepWiz2a::Delete() {
    const std::string name = RecipeName();
    if (Ask(Main().ui, "Do you want to delete the recipe \"" + name + "\"?", Buttons::YesNo, Answer::No) != Answer::Yes)
        return;
    DeleteRecipe(Main().settings, name);
    ListRecipes();
    cboRecipe_->setEditText("");
}

void frmAutoRepWiz2a::TypeFirstText(int fieldNo, const std::string& text) {
    GiveFirstText(State(), Main().document, fieldNo, text);
    ShowFields();
}

/// Of numbers and fixed texts; names in turn have a page to be chosen on.
void frmAutoRepWiz2a::ShowFirstText(int fieldNo) {
    const auto& chosen = State().Chosen.at(static_cast<std::size_t>(fieldNo - 1));
    QLineEdit& first = *rows_.at(static_cast<std::size_t>(fieldNo - 1)).first;
    first.setText(chosen ? QString::fromStdString(FirstTextOf(*chosen)) : "");
    first.setCursorPosition(0); // where it is too long, its beginning is seen
}

/// All that follows from what the fields hold.
void frmAutoRepWiz2a::ShowFields() {
    QStringList warnings;
    for (int fieldNo = 1; fieldNo <= Main().document.setup.NoOfFields; ++fieldNo) {
        const auto field = static_cast<std::size_t>(fieldNo - 1);
        MarkDone(*rows_[field].button, State().FieldDone[field]);
        rows_[field].overview->Show(QString::fromStdString(FieldOverview(State(), fieldNo)));
        rows_[field].first->setAccessibleDescription(rows_[field].overview->text());
        const std::string warning = FieldWarning(State(), fieldNo, Wizard().Sample());
        if (!warning.empty())
            warnings << tr("Field %1: %2").arg(QChar('A' + fieldNo - 1)).arg(QString::fromStdString(warning));
    }
    lblWarning_->Show(warnings.join(' '));
    PaintNewTabs();
    ShowChoices();
    emit Answered(lblWarning_->Text());
}

void frmAutoRepWiz2a::ShowChoices() {
    const auto& done = State().FieldDone;
    const bool anyDone = std::find(done.begin(), done.end(), true) != done.end();
    allDone_ = AllFieldsDone(State(), Main().document);
    SetButton(WizardButton::Next, allDone_);
    SetButton(WizardButton::Finish, anyDone);
    cmdSave_->setEnabled(anyDone && !RecipeName().empty());
    cmdDelete_->setEnabled(HasRecipe(Main().settings, RecipeName()));
}

/// Only the test whether all is done: then the fonts follow.
void frmAutoRepWiz2a::Next() {
    if (AllFieldsDone(State(), Main().document))
        Wizard().Go(WizardPage::Fonts);
}

void frmAutoRepWiz2a::Finish() {
    Wizard().Finish();
}

/// The first field in use without values.
QWidget* frmAutoRepWiz2a::FirstFocus() {
    const auto due = std::find_if(rows_.begin(), rows_.end(), [this](const FieldRow& row) {
        return row.button->isEnabled() && !State().FieldDone[static_cast<std::size_t>(&row - rows_.data())];
    });
    return due == rows_.end() ? nullptr : due->button;
}

} // namespace velmora
