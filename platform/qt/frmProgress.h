// The small window that shows how far long work has come. It appears only when the work takes long enough to be
// noticed.
#pragma once

#include "platform/UserInterface.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QString>

#include <memory>

class QProgressBar;

namespace velmora {

class frmProgress : public Progress {
public:
    enum class Cancel { None, Offered };

    frmProgress(QString text, int total, Cancel cancel);
    ~frmProgress() override;
    void Advance(int done) override;
    bool Cancelled() const override { return cancelled_; }

private:
    void ShowWaiting();
    void Show();
    void AddCancel();

    QString text_;
    int total_;
    Cancel cancel_;
    bool waiting_ = false; ///< the pointer is the hourglass
    bool cancelled_ = false;
    int sinceLook_ = 0; ///< calls since the clock was last read
    qint64 shownAt_ = 0;
    QElapsedTimer clock_;
    std::unique_ptr<QDialog> window_;
    QProgressBar* bar_ = nullptr;
};

} // namespace velmora
