#include "wizard/ui/FieldSample.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr int kLeastLines = 2;
constexpr int kTextMargin = 2; // what a line edit keeps free at either side of its text
constexpr int kBehindMark = 8;

} // namespace

FieldSample::FieldSample() {
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
}

void FieldSample::EndAt(double inches) {
    end_ = static_cast<int>(std::lround(inches * logicalDpiX()));
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int frame = option.lineWidth;
    setTextMargins(0, 0, kBehindMark, 0);
    setFixedWidth(end_ + 2 * (frame + kTextMargin) + kBehindMark);
}

/// As high as the font needs, so that a large one is not cut.
void FieldSample::ShowIn(const QFont& font, Qt::Alignment alignment) {
    const int least = kLeastLines * parentWidget()->fontMetrics().lineSpacing();
    setFont(font);
    setAlignment(alignment);
    setCursorPosition(0);
    setFixedHeight(std::max(least, sizeHint().height()));
}

void FieldSample::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (end_ == 0)
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DashLine));
    const int mark = width() - kBehindMark - kTextMargin;
    painter.drawLine(mark, 0, mark, height());
}

} // namespace velmora
