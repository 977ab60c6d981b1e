#include "platform/qt/frmProgress.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kCallsBetweenLooks = 256;
constexpr qint64 kNoticedAfterMs = 400;
constexpr qint64 kRepaintEveryMs = 50;

} // namespace

frmProgress::frmProgress(const QString& text, int total, const QString& title)
    : text_(text), title_(title), total_(total) {
    clock_.start();
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

frmProgress::~frmProgress() {
    QApplication::restoreOverrideCursor();
}

void frmProgress::Advance(int done) {
    if (++sinceLook_ < kCallsBetweenLooks)
        return;
    sinceLook_ = 0;
    const qint64 now = clock_.elapsed();
    if (now < kNoticedAfterMs || now - shownAt_ < kRepaintEveryMs)
        return;
    if (!window_)
        Show();
    shownAt_ = now;
    bar_->setValue(done);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmProgress::Show() {
    window_ = std::make_unique<QWidget>(QApplication::activeWindow(),
                                        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    window_->setObjectName("frmProgress");
    window_->setWindowTitle(title_);
    window_->setWindowModality(Qt::ApplicationModal);
    auto* layout = new QVBoxLayout(window_.get());
    layout->addWidget(new QLabel(text_));
    bar_ = new QProgressBar;
    bar_->setRange(0, total_);
    layout->addWidget(bar_);
    window_->show();
}

} // namespace velmora
