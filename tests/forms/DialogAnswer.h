// Answers a modal dialog that is about to open; its end proves that the dialog came. What goes wrong fails the test and
// closes the dialog, so that the tests behind it run.
#pragma once

#include "tests/forms/FormsTest.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <functional>

namespace velmora {

class DialogAnswer {
public:
    /// `answer` must close the dialog, which is found by its object name; an empty name: any file dialog.
    DialogAnswer(const char* name, std::function<void(QDialog&)> answer) : name_(name), answer_(std::move(answer)) {
        timer_.callOnTimeout([this] { Look(); });
        timer_.start(1);
    }
    ~DialogAnswer() {
        if (!came_)
            FailSoftly(std::string("never shown: ") + name_);
    }
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;

private:
    void Look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        const bool right = dialog && (*name_ ? dialog->objectName() == name_ : dialog->inherits("QFileDialog"));
        if (!right)
            return;
        dialog->activateWindow(); // for its keys: no window manager does it here
        if (dialog->isVisible() && !dialog->isActiveWindow())
            return;
        timer_.stop();
        came_ = true;
        const QPointer<QDialog> open(dialog);
        try {
            answer_(*dialog);
        } catch (const TestOver&) {} // has failed
        if (open && open->isVisible()) {
            FailSoftly(std::string("stays open: ") + name_);
            open->reject();
        }
    }

    const char* name_;
    std::function<void(QDialog&)> answer_;
    bool came_ = false;
    QTimer timer_;
};

} // namespace velmora
