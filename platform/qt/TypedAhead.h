// A question may come up in the middle of typing: what is typed on was meant for the window behind it, and a letter of
// a name must not say No.
#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace velmora {

/// While it lives, a window takes letters, blanks and Return only after a pause in the typing. Escape, Alt with a
/// letter, the arrow keys and the mouse answer at once.
class TypedAhead : public QObject {
public:
    explicit TypedAhead(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
    QElapsedTimer sinceKey_; ///< or since the window came
};

} // namespace velmora
