#include "platform/qt/frmProgress.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace velmora {
namespace {

constexpr int kCallsBetweenLooks = 256;
constexpr qint64 kWaitCursorAfterMs = 100; // most work is done before, and the first cursor takes milliseconds to make
constexpr qint64 kNoticedAfterMs = 400;
constexpr qint64 kRepaintEveryMs = 50;

} // namespace

frmProgress::frmProgress(QString text, int total, Cancel cancel)
    : text_(std::move(text)), total_(total), cancel_(cancel) {
    clock_.start();
}

frmProgress::~frmProgress() {
    if (waiting_)
        QApplication::restoreOverrideCursor();
}

void frmProgress::Advance(int done) {
    // What can be cancelled advances in steps long enough to be looked at singly.
    if (++sinceLook_ < kCallsBetweenLooks && cancel_ == Cancel::None)
        return;
    sinceLook_ = 0;
    const qint64 now = clock_.elapsed();
    if (now >= kWaitCursorAfterMs)
        ShowWaiting();
    if (now < kNoticedAfterMs || now - shownAt_ < kRepaintEveryMs)
        return;
    if (!window_)
        Show();
    shownAt_ = now;
    bar_->setValue(done);
    QApplication::processEvents(cancel_ == Cancel::None ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void frmProgress::ShowWaiting() {
    if (!waiting_)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    waiting_ = true;
}

void frmProgress::Show() {
    window_ = std::make_unique<QDialog>(QApplication::activeWindow(), Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    window_->setObjectName("frmProgress");
    window_->setWindowTitle(QApplication::applicationName());
    window_->setWindowModality(Qt::ApplicationModal);
    auto* layout = new QVBoxLayout(window_.get());
    layout->addWidget(new QLabel(text_));
    bar_ = new QProgressBar;
    bar_->setAccessibleName(text_);
    bar_->setRange(0, total_);
    layout->addWidget(bar_);
    if (cancel_ == Cancel::Offered)
        AddCancel();
    window_->show();
}

void frmProgress::AddCancel() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    window_->layout()->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, window_.get(), &QDialog::reject);
    // Escape and closing the window end in the same signal.
    QObject::connect(window_.get(), &QDialog::rejected, window_.get(), [this] { cancelled_ = true; });
}

} // namespace velmora
