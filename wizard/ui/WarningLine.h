// A warning below the entries that it is about: an icon and a sentence in bold, not told by a colour.
#pragma once

#include <QLabel>
#include <QWidget>

namespace velmora {

class WarningLine : public QWidget {
public:
    /// The label has the name.
    explicit WarningLine(const char* name);

    /// Not to be seen without a text.
    void Show(const QString& text);
    QString Text() const { return label_->text(); }

private:
    QLabel* label_;
};

} // namespace velmora
