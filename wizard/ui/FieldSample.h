// A text in the font that is being chosen, in a box as wide as the field is on paper: what reaches the mark at its end
// is cut off.
#pragma once

#include <QLineEdit>

namespace velmora {

class FieldSample : public QLineEdit {
public:
    FieldSample();

    /// The width of the field; without it the box is as wide as its form lets it be.
    void EndAt(double inches);
    void ShowIn(const QFont& font, Qt::Alignment alignment);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int end_ = 0; ///< pixels from the start of the text; 0: no mark
};

} // namespace velmora
