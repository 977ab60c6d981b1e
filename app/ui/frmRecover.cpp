#include "app/ui/frmRecover.h"

#include "app/Commands.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kBetweenDocuments = 3; ///< between two documents, which take two lines each

/// Two lines, which a screen reader reads as one: name, time and size, then the first texts and the folder.
QString Caption(const RecoveredDocument& document) {
    const std::string tabs = Counted(static_cast<std::size_t>(document.TabsFilled), "tab");
    const std::string folder = PathText(document.DocFileName.parent_path());
    const std::string gap = document.FirstTexts.empty() || folder.empty() ? "" : "   ";
    return QString::fromStdString(document.Name() + "   " + LocalTime(document.Time) + "   " + tabs + "\n" +
                                  document.FirstTexts + gap + folder);
}

} // namespace

frmRecover::frmRecover(SettingsStore& settings, const std::vector<RecoveredDocument>& lost, QWidget* parent)
    : PlacedDialog(settings, "frmRecover", parent) {
    setObjectName("frmRecover");
    setWindowTitle(tr("Recover Documents"));
    BuildUi(lost);
}

void frmRecover::BuildUi(const std::vector<RecoveredDocument>& lost) {
    auto* lblLost = new QLabel(lost.size() < kMostLost
                                   ? tr("Velmora ended without saving these documents:")
                                   : tr("Velmora ended without saving these documents. Older ones follow when they are "
                                        "recovered or discarded:"));
    lblLost->setWordWrap(true);
    lstLost_ = Named(new QListWidget, "lstLost");
    lstLost_->setAccessibleName(tr("Documents that were not saved"));
    lstLost_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstLost_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstLost_->setWordWrap(true);
    lstLost_->setSpacing(kBetweenDocuments);
    for (const RecoveredDocument& document : lost)
        lstLost_->addItem(Caption(document));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblLost);
    layout->addWidget(lstLost_, 1);
    layout->addLayout(BuildButtons());
    connect(lstLost_, &QListWidget::itemSelectionChanged, this, [this] {
        for (QPushButton* button : {cmdRecover_, cmdDiscard_})
            button->setEnabled(!lstLost_->selectedItems().isEmpty());
    });
    connect(lstLost_, &QListWidget::itemDoubleClicked, this, [this] { Choose(LostChoice::Recover); });
    lstLost_->setCurrentRow(0);
    lstLost_->setFocus();
}

QBoxLayout* frmRecover::BuildButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeHelpButton());
    buttons->addStretch();
    cmdDiscard_ = AddChoice(*buttons, "cmdDiscard", tr("&Discard"), LostChoice::Discard);
    cmdRecover_ = AddChoice(*buttons, "cmdRecover", tr("&Recover"), LostChoice::Recover);
    cmdRecover_->setDefault(true);
    auto* cmdRecoverAll = Named(new QPushButton(tr("Recover &All")), "cmdRecoverAll");
    connect(cmdRecoverAll, &QPushButton::clicked, this, [this] {
        lstLost_->selectAll();
        Choose(LostChoice::Recover);
    });
    buttons->addWidget(cmdRecoverAll);
    auto* cmdLater = Named(new QPushButton(tr("&Later")), "cmdLater");
    connect(cmdLater, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(cmdLater);
    return buttons;
}

QPushButton* frmRecover::AddChoice(QBoxLayout& buttons, const char* name, const QString& text, LostChoice choice) {
    auto* button = Named(new QPushButton(text), name);
    connect(button, &QPushButton::clicked, this, [this, choice] { Choose(choice); });
    buttons.addWidget(button);
    return button;
}

void frmRecover::Choose(LostChoice choice) {
    answer_.choice = choice;
    for (int row = 0; row < lstLost_->count(); ++row)
        if (lstLost_->item(row)->isSelected())
            answer_.which.push_back(static_cast<std::size_t>(row));
    accept();
}

/// Some documents with some words of theirs, in letters of any size.
QSize frmRecover::sizeHint() const {
    constexpr int kLetters = 60;
    constexpr int kLines = 16;
    return PlacedDialog::sizeHint().expandedTo(
        {kLetters * fontMetrics().averageCharWidth(), kLines * fontMetrics().lineSpacing()});
}

} // namespace velmora
