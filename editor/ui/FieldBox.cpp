#include "editor/ui/FieldBox.h"

#include <QPainter>

namespace velmora {
namespace {

constexpr int kOwnMargin = 2; // that an entry without a frame keeps at its sides, where paper has none

} // namespace

FieldBox::FieldBox(int slot, int field, QWidget* sheet) : QLineEdit(sheet), slot_(slot), field_(field) {
    setObjectName(QString("TextA%1(%2)").arg(field + 1).arg(slot));
    setFrame(false);
    setTextMargins(-kOwnMargin, 0, -kOwnMargin, 0);
}

void FieldBox::Open(const QFont& font) {
    open_ = true;
    setFont(font);
    setPlaceholderText(QChar('A' + field_));
    update();
}

void FieldBox::Close() {
    open_ = false;
    deselect();
    setPlaceholderText({});
    update();
}

void FieldBox::SetEdge(const QColor& colour) {
    if (edge_ != colour)
        update();
    edge_ = colour;
}

void FieldBox::paintEvent(QPaintEvent* event) {
    if (!open_)
        return;
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(edge_);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace velmora
