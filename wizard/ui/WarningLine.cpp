#include "wizard/ui/WarningLine.h"

#include <QHBoxLayout>
#include <QStyle>

namespace velmora {

WarningLine::WarningLine(const char* name) : label_(new QLabel) {
    auto* icon = new QLabel;
    const int size = fontMetrics().height();
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(QSize(size, size), devicePixelRatioF()));
    label_->setObjectName(name);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    QFont bold = label_->font();
    bold.setBold(true);
    label_->setFont(bold);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(label_, 1);
    setVisible(false);
}

void WarningLine::Show(const QString& text) {
    label_->setText(text);
    setVisible(!text.isEmpty());
}

} // namespace velmora
