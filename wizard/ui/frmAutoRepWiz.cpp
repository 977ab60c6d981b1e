#include "wizard/ui/frmAutoRepWiz.h"

#include "widgets/TabPicture.h"
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
    : WizardFrame(main, tr("Auto Repeat Wizard ..."), parent), fonts_(fonts), start_(start), makePage_(makePage) {
    TakePageBack(main);
    Go(start == Start::Fonts ? WizardPage::Fonts : WizardPage::Introduction);
    // The caption tells of a changed document, and the commands behind it follow.
    connect(this, &QDialog::finished, this, [this] { ShowCaption(Main()); });
}

void frmAutoRepWiz::Go(WizardPage page) {
    ShowPage(makePage_(*this, page));
}

const QPixmap& frmAutoRepWiz::Picture(const std::string& fileName) {
    const auto found = pictures_.find(fileName);
    return found != pictures_.end() ? found->second
                                    : pictures_.emplace(fileName, LoadTabPicture(Main(), fileName)).first->second;
}

AutoRepForm::AutoRepForm(frmAutoRepWiz& wizard, WizardPage page)
    : WizardForm(NameOf(page).name, NameOf(page).positionKey), wizard_(wizard), page_(page),
      texts_(TextsOfPage(page, wizard.State())) {
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

void AutoRepForm::ShowTabPicture(const QString& caption) {
    SetPicture(wizard_.Picture("tab.gif"), caption);
}

void AutoRepForm::ShowFieldPicture() {
    SetPicture(wizard_.Picture(FieldPicture(State())));
    for (int field = 1; field <= kFieldsPerTab; ++field) {
        auto* label = Named(new QLabel(tr("Field %1").arg(QChar('A' + field - 1))), "lblField", field);
        QFont font = label->font();
        font.setBold(field == State().CurrentFieldNo);
        label->setFont(font);
        label->setEnabled(field <= Main().document.setup.NoOfFields);
        PictureColumn().addWidget(label);
    }
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
