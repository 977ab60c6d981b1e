#include "editor/ui/frmGoTo.h"

#include "widgets/AnswerLabel.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kPlaceLetters = 44; ///< of a place, with some words of its tab

} // namespace

frmGoTo::frmGoTo(MainModule& main, QWidget* parent) : PlacedDialog(main.settings, "frmGoTo", parent), main_(main) {
    setObjectName("frmGoTo");
    setWindowTitle(tr("Go to Page or Tab"));
    TakePageBack(main);
    BuildUi();
    ListPlaces();
}

void frmGoTo::BuildUi() {
    txtPlace_ = Named(new QLineEdit, "txtPlace");
    txtPlace_->installEventFilter(this);
    connect(txtPlace_, &QLineEdit::textChanged, this, &frmGoTo::ListPlaces);
    auto* lblPlace = new QLabel(tr("&Page, tab or part of a text:"));
    lblPlace->setBuddy(txtPlace_);
    lstPlaces_ = Named(new QListWidget, "lstPlaces");
    lstPlaces_->setAccessibleName(tr("Places"));
    lstPlaces_->setMinimumWidth(kPlaceLetters * fontMetrics().averageCharWidth());
    connect(lstPlaces_, &QListWidget::itemActivated, this, &frmGoTo::Go);
    lblResult_ = Named(new AnswerLabel, "lblResult");
    auto* buttons = MakeButtons();
    cmdGo_ = Named(buttons->addButton(tr("&Go"), QDialogButtonBox::AcceptRole), "cmdGo");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &frmGoTo::Go);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    for (QWidget* row : std::initializer_list<QWidget*>{lblPlace, txtPlace_, lstPlaces_, lblResult_, buttons})
        layout->addWidget(row);
    cmdGo_->setDefault(true); // in the dialog by now
}

void frmGoTo::ListPlaces() {
    places_ = PlacesFor(main_.document, txtPlace_->text().toStdString());
    lstPlaces_->clear();
    for (const FoundPlace& place : places_)
        lstPlaces_->addItem(QString::fromStdString(place.caption));
    lstPlaces_->setCurrentRow(0);
    cmdGo_->setEnabled(!places_.empty());
    if (!places_.empty())
        lblResult_->Say(tr("Places: %1").arg(places_.size()), lstPlaces_->item(0)->text());
    else
        lblResult_->Say(txtPlace_->text().trimmed().isEmpty() ? tr("12, p 12 or Smith") : tr("Nowhere."));
}

void frmGoTo::Go() {
    const int row = lstPlaces_->currentRow();
    if (row < 0)
        return;
    accept();
    Trapped(main_.ui, "Called from Sub: frmGoTo", [&] {
        const FoundPlace& place = places_[static_cast<std::size_t>(row)];
        main_.editor->ShowText(place.box, place.at, place.length);
    });
}

/// Up and Down choose a place while the entry keeps the keys.
bool frmGoTo::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == txtPlace_ && !places_.empty()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
        if (step != 0) {
            lstPlaces_->setCurrentRow(std::clamp(lstPlaces_->currentRow() + step, 0, lstPlaces_->count() - 1));
            lblResult_->Say(lblResult_->text(), lstPlaces_->currentItem()->text());
            return true;
        }
    }
    return PlacedDialog::eventFilter(watched, event);
}

} // namespace velmora
