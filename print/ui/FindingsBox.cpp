#include "print/ui/FindingsBox.h"

#include "print/ui/Breakable.h"
#include "widgets/Controls.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr qint64 kSliceMs = 10;

} // namespace

FindingsBox::FindingsBox(PrintRun& run, QWidget* parent)
    : QGroupBox(parent), run_(run), findings_(new FindingList(this)),
      lblChecking_(Named(new QLabel(tr("Checking the texts ...")), "lblChecking")),
      lstFindings_(Named(new QListView, "lstFindings")), lblFinding_(Named(new QLabel, "lblFinding")),
      cmdEditTab_(Named(new QPushButton(tr("&Edit This Tab")), "cmdEditTab")) {
    setObjectName("fraFindings");
    lstFindings_->setAccessibleName(tr("Before printing"));
    lstFindings_->setModel(findings_);
    lstFindings_->setUniformItemSizes(true);
    lstFindings_->installEventFilter(this);
    lstFindings_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the label and the tool tip have all of a line
    lstFindings_->setTextElideMode(Qt::ElideMiddle);                    // what is wrong stands at the end
    lblFinding_->setTextFormat(Qt::PlainText);
    lblFinding_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblChecking_);
    layout->addWidget(lstFindings_, 1);
    layout->addWidget(lblFinding_);
    layout->addWidget(cmdEditTab_);
    connect(&timer_, &QTimer::timeout, this, &FindingsBox::CheckSome);
    connect(lstFindings_->selectionModel(), &QItemSelectionModel::currentChanged, this, &FindingsBox::Choose);
    connect(lstFindings_, &QListView::clicked, this, &FindingsBox::Choose);
    connect(lstFindings_, &QListView::activated, this, &FindingsBox::Edit);
    connect(cmdEditTab_, &QPushButton::clicked, this, &FindingsBox::Edit);
    ShowFindings();
}

void FindingsBox::StartCheck() {
    findings_->Clear();
    check_.reset();
    timer_.start(0);
}

/// A slice at a time, so that the window stays alive.
void FindingsBox::CheckSome() {
    std::vector<PrintFinding> found;
    try {
        if (!check_)
            check_.emplace(run_.Check());
        QElapsedTimer clock;
        for (clock.start(); !check_->IsDone() && clock.elapsed() < kSliceMs;)
            check_->CheckSheet(found);
        if (check_->IsDone())
            timer_.stop();
    } catch (const std::exception&) {
        timer_.stop(); // the sheet shows the error in its place
    }
    findings_->Append(found);
    ShowFindings();
}

/// Hidden while there are no findings to show or to wait for.
void FindingsBox::ShowFindings() {
    const int count = findings_->rowCount();
    const bool checking = timer_.isActive();
    setTitle(tr("Before printing (%1)").arg(count));
    setVisible(count > 0 || checking);
    lstFindings_->setVisible(count > 0);
    cmdEditTab_->setVisible(count > 0);
    lblChecking_->setVisible(checking);
    cmdEditTab_->setEnabled(ChosenText() != nullptr);
    ShowWhole();
}

void FindingsBox::ShowWhole() {
    const QModelIndex current = lstFindings_->currentIndex();
    lblFinding_->setVisible(current.isValid());
    lblFinding_->setText(Breakable(current.data(Qt::ToolTipRole).toString()));
}

/// Null while no finding on a text is chosen.
const PrintFinding* FindingsBox::ChosenText() const {
    const QModelIndex current = lstFindings_->currentIndex();
    return current.isValid() && findings_->At(current.row()).slot > 0 ? &findings_->At(current.row()) : nullptr;
}

void FindingsBox::Choose() {
    ShowFindings();
    if (const QModelIndex current = lstFindings_->currentIndex(); current.isValid())
        emit Chosen(findings_->At(current.row()));
}

/// The button is still enabled for a moment when a new check has emptied the list.
void FindingsBox::Edit() {
    if (const PrintFinding* finding = ChosenText())
        emit EditAsked(finding->box);
}

/// Enter opens the finding of the line; the window's default button must not have it as well.
void FindingsBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QGroupBox::keyPressEvent(event);
}

/// In the list the paging keys are the list's.
bool FindingsBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstFindings_ && event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End)
            event->accept();
    }
    return QGroupBox::eventFilter(watched, event);
}

} // namespace velmora
