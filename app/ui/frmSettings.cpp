#include "app/ui/frmSettings.h"

#include "app/ui/HelpDesk.h"
#include "widgets/HelpRequest.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>

namespace velmora {
namespace {

QString Indexed(const char* name, std::size_t index) {
    return QString("%1(%2)").arg(name).arg(index);
}

} // namespace

frmSettings::frmSettings(MainModule& main, QWidget* parent)
    : PlacedDialog(main.settings, "frmSettings", parent), editor_(main) {
    setObjectName("frmSettings");
    setWindowTitle(tr("Application Settings - Corvane Series"));
    BuildUi();
    Show({});
    connect(chkSet_[0], &QCheckBox::toggled, this, [this](bool checked) { editor_.UseIniFile(checked); });
    for (const auto chosen : {&QListWidget::itemClicked, &QListWidget::itemActivated})
        connect(lstSections_, chosen, this,
                [this](QListWidgetItem* item) { txtSet_[1]->setText(item->data(Qt::UserRole).toString()); });
    new HelpDesk(main, this);
}

void frmSettings::BuildUi() {
    lstSections_ = new QListWidget;
    lstSections_->setObjectName("lstSections");
    lstSections_->setAccessibleName(tr("Sections or keys"));
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(BuildEntries(), 3);
    layout->addLayout(BuildButtons());
    layout->addWidget(lstSections_, 3);
}

QLayout* frmSettings::BuildEntries() {
    const char* const labels[] = {"&Section:", "Ke&y:", "De&fault:", "&Value:"};
    auto* entries = new QFormLayout;
    for (std::size_t i = 0; i < txtSet_.size(); ++i) {
        txtSet_[i] = new QLineEdit;
        txtSet_[i]->setObjectName(Indexed("txtSet", i));
        txtSet_[i]->setMinimumWidth(fontMetrics().averageCharWidth() * 28);
        entries->addRow(tr(labels[i]), txtSet_[i]);
    }
    const char* const captions[] = {"&Use INI File", "&Integer Value"};
    for (const std::size_t i : {1u, 0u}) {
        chkSet_[i] = new QCheckBox(tr(captions[i]));
        chkSet_[i]->setObjectName(Indexed("chkSet", i));
        entries->addRow("", chkSet_[i]);
    }
    return entries;
}

QLayout* frmSettings::BuildButtons() {
    const char* const captions[] = {"S&ave", "&Get", "&Delete", "Get Se&ctions", "Get &Keys"};
    auto* buttons = new QVBoxLayout;
    for (int i = 0; i < static_cast<int>(std::size(captions)); ++i) {
        auto* button = new QPushButton(tr(captions[i]));
        button->setObjectName(Indexed("butSet", static_cast<std::size_t>(i)));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, i] { Press(i); });
        buttons->addWidget(button);
    }
    buttons->addStretch();
    buttons->addWidget(MakeHelpButton());
    auto* close = new QPushButton(tr("C&lose"));
    close->setObjectName("cmdClose");
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(close);
    return buttons;
}

void frmSettings::Press(int button) {
    SettingsEntry entry = Entry();
    editor_.Press(button, entry);
    Show(entry);
    if (button < 3)
        return;
    lstSections_->clear();
    for (const ListedSetting& row : editor_.Listing()) {
        auto* item = new QListWidgetItem(QString::fromStdString(row.line), lstSections_);
        item->setData(Qt::UserRole, QString::fromStdString(row.name));
    }
}

SettingsEntry frmSettings::Entry() const {
    const auto text = [&](std::size_t i) { return txtSet_[i]->text().toStdString(); };
    return {text(0), text(1), text(2), text(3), chkSet_[1]->isChecked()};
}

void frmSettings::Show(const SettingsEntry& entry) {
    const std::string* const texts[] = {&entry.section, &entry.key, &entry.fallback, &entry.value};
    for (std::size_t i = 0; i < txtSet_.size(); ++i)
        txtSet_[i]->setText(QString::fromStdString(*texts[i]));
    chkSet_[1]->setChecked(entry.numeric);
    chkSet_[0]->setChecked(editor_.UsesIniFile());
}

/// Without a state there is no place.
void frmSettings::Place() {
    if (!editor_.KeepsState())
        return;
    PlacedDialog::Place();
    SettingsEditor::Place place = {x(), y()};
    Show(editor_.LoadState(place));
    if (screen()->virtualGeometry().contains(place.left, place.top))
        move(place.left, place.top);
}

void frmSettings::hideEvent(QHideEvent* event) {
    editor_.SaveState(Entry(), {x(), y()});
    if (editor_.KeepsState())
        PlacedDialog::hideEvent(event);
}

} // namespace velmora
