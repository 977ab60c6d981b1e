#include "wizard/ui/frmAutoRepWiz.h"

#include "wizard/AppendWizardTabs.h"
#include "wizard/NewTabs.h"
#include "wizard/Recipes.h"
#include "wizard/ui/PaintedTabs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/TakePageBack.h"

#include <QLabel>
#include <QVBoxLayout>

namespace velmora {
namespace {

struct PageName {
    const char* name;
    const char* positionKey;
};
// In the order of WizardPage.
constexpr PageName kPageNames[] = {
    {"frmAutoRepWiz1", "autowiz1"},   {"frmAutoRepWiz2", "autowiz2"},   {"frmAutoRepWiz2a", "autowiz2a"},
    {"frmAutoRepWiz2b", "autowiz2b"}, {"frmAutoRepWiz5a", "autowiz5a"}, {"frmAutoRepWiz5b", "autowiz5b"},
    {"frmAutoRepWiz6a", "autowiz6a"}, {"frmAutoRepWiz5d", "autowiz5d"}, {"frmAutoRepWiz7", "Font Settings"}};

const PageName& NameOf(WizardPage page) {
    return kPageNames[static_cast<std::size_t>(page)];
}

} // namespace

frmAutoRepWiz::frmAutoRepWiz(MainModule& main, const FontCatalogue& fonts, Start start, PageMaker makePage,
                             QWidget* parent)
    : WizardFrame(main, start == Start::Fonts ? tr("Fonts") : tr("Auto Repeat Wizard ..."), parent), fonts_(fonts),
      start_(start), makePage_(makePage) {
    TakePageBack(main);
    UseFonts(main.fonts);
    Go(start == Start::Fonts ? WizardPage::Fonts : WizardPage::Introduction);
    // The caption tells of a changed document, and the commands behind it follow.
    connect(this, &QDialog::finished, this, [this] { ShowCaption(Main()); });
}

void frmAutoRepWiz::Go(WizardPage page) {
    ShowPage(makePage_(*this, page));
}

void frmAutoRepWiz::Finish() {
    if (!AppendWizardTabs(Main(), state_))
        return;
    RememberRun(Main().settings, state_);
    Close();
}

void frmAutoRepWiz::UseFonts(const FontSettings& fonts) {
    sample_.emplace(fonts_, Main().document.setup, Main().settings, fonts);
}

AutoRepForm::AutoRepForm(frmAutoRepWiz& wizard, WizardPage page)
    : WizardForm(NameOf(page).name, NameOf(page).positionKey), wizard_(wizard), page_(page),
      texts_(TextsOfPage(page, wizard.State())), tabs_(new PaintedTabs) {
    SetHeading(QString::fromStdString(texts_.heading));
    if (PageBefore(page) && !wizard.IsFontsAlone())
        SetButton(WizardButton::Previous);
}

bool AutoRepForm::Cancel() {
    return ConfirmCancel(Main(), State(), page_);
}

void AutoRepForm::Previous() {
    if (const auto page = PageBefore(page_))
        wizard_.Go(*page);
}

void AutoRepForm::ShowExample(const QString& caption) {
    PaintedTab example;
    for (int field = 0; field < Main().document.setup.NoOfFields; ++field)
        example.texts.at(static_cast<std::size_t>(field)) = FieldCaption(field + 1).remove('&').toStdString();
    tabs_->Show(wizard_.Sample(), {example}, -1);
    SetPicture(tabs_, caption);
}

void AutoRepForm::ShowNewTabs(bool atWork) {
    atWork_ = atWork;
    PaintNewTabs();
    SetPicture(tabs_);
}

void AutoRepForm::PaintNewTabs(const std::optional<ValueSeries>& entries) {
    const WizardState& state = State();
    const int first = FirstNewTab(Main().document, state.BehindLast);
    std::vector<PaintedTab> tabs;
    for (const int index : {1, static_cast<int>(state.NewTabCount)})
        if (index > 0 && (tabs.empty() || index > 1))
            tabs.push_back(
                {tr("Tab %1").arg(first + index - 1), TextsOfNewTab(Main().document, state, index, entries)});
    tabs_->Show(wizard_.Sample(), std::move(tabs), atWork_ ? state.CurrentFieldNo - 1 : -1);
}

void AutoRepForm::NameFields() {
    for (int field = 1; field <= kFieldsPerTab; ++field) {
        auto* label = Named(new QLabel(tr("Field %1").arg(QChar('A' + field - 1))), "lblField", field);
        QFont font = label->font();
        font.setBold(field == State().CurrentFieldNo);
        label->setFont(font);
        label->setEnabled(field <= Main().document.setup.NoOfFields);
        PictureColumn().addWidget(label);
    }
}

QHBoxLayout* AutoRepForm::Beside(QWidget* answer, QWidget* more) {
    auto* row = new QHBoxLayout;
    row->addWidget(answer);
    row->addWidget(more);
    row->addStretch();
    return row;
}

QString WithMnemonic(std::string_view text, char letter) {
    std::string marked(text);
    if (const std::size_t place = marked.find(letter); place != std::string::npos)
        marked.insert(place, "&");
    return QString::fromStdString(marked);
}

void SetLetters(QWidget& entry, int letters) {
    entry.setFixedWidth(letters * entry.fontMetrics().horizontalAdvance('M'));
}

QString FieldCaption(int fieldNo) {
    constexpr const char* captions[] = {"Field &A", "Field &B", "Fiel&d C"};
    return QObject::tr(captions[fieldNo - 1]);
}

} // namespace velmora
