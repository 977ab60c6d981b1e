// The small window that shows how far long work has come. It appears only when the work takes long enough to be
// noticed.
#pragma once

#include "platform/UserInterface.h"

#include <QElapsedTimer>
#include <QString>
#include <QWidget>

#include <memory>

class QProgressBar;

namespace velmora {

class frmProgress : public Progress {
public:
    frmProgress(const QString& text, int total, const QString& title);
    ~frmProgress() override;
    void Advance(int done) override;

private:
    void Show();

    QString text_;
    QString title_;
    int total_;
    int sinceLook_ = 0; ///< calls since the clock was last read
    qint64 shownAt_ = 0;
    QElapsedTimer clock_;
    std::unique_ptr<QWidget> window_;
    QProgressBar* bar_ = nullptr;
};

} // namespace velmora
