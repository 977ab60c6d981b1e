// Answers a modal dialog that is about to open; its end proves that the dialog came.
#pragma once

#include <QApplication>
#include <QDialog>
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
            qFatal("never shown: %s", name_);
    }
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;

private:
    void Look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        const bool right = dialog && (*name_ ? dialog->objectName() == name_ : dialog->inherits("QFileDialog"));
        if (!right || (dialog->isVisible() && !dialog->isActiveWindow()))
            return;
        timer_.stop();
        came_ = true;
        answer_(*dialog);
    }

    const char* name_;
    std::function<void(QDialog&)> answer_;
    bool came_ = false;
    QTimer timer_;
};

} // namespace velmora
