// What a screen reader has to be told although the focus does not move there: it does not watch labels, but it reads
// the description of the control in use, also one that comes while the control has the focus.
#pragma once

#include <QLabel>
#include <QPointer>

namespace velmora {

/// A description that goes from control to control.
class Description {
public:
    /// The control before loses it; a control with a description of its own keeps that. Without a control
    /// or a text nobody has it.
    void Give(QWidget* control, const QString& text) {
        if (told_)
            told_->setAccessibleDescription("");
        told_ = control && !text.isEmpty() && control->accessibleDescription().isEmpty() ? control : nullptr;
        if (told_)
            told_->setAccessibleDescription(text);
    }

private:
    QPointer<QWidget> told_;
};

/// A line of a form that answers what the person has just done.
class AnswerLabel : public QLabel {
public:
    using QLabel::QLabel;

    /// Shows the text and has it read, or in its place what only who does not see the screen has to be told.
    void Say(const QString& text, const QString& spoken = {}) {
        setText(text);
        description_.Give(window()->focusWidget(), spoken.isEmpty() ? text.trimmed() : spoken);
    }

private:
    Description description_;
};

} // namespace velmora
