// A line of text that gives way where there is no room for all of it: it ends in dots, and a tool tip has the whole.
#pragma once

#include <QLabel>
#include <QStyle>
#include <QStylePainter>

namespace velmora {

class ElidedLabel : public QLabel {
public:
    /// `givesWay`: before labels beside it that do not.
    explicit ElidedLabel(bool givesWay, Qt::TextElideMode mode = Qt::ElideRight) : givesWay_(givesWay), mode_(mode) {
        setTextFormat(Qt::PlainText);
    }

    void Show(const QString& text) {
        setText(text);
        ShowToolTip();
    }
    QSize minimumSizeHint() const override {
        const int least = fontMetrics().averageCharWidth() * kLeastCharacters + 2 * margin();
        return {givesWay_ ? least : sizeHint().width(), QLabel::minimumSizeHint().height()};
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        ShowToolTip();
    }
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        painter.drawItemText(Room(), static_cast<int>(alignment()), palette(), isEnabled(), Elided(), foregroundRole());
    }

private:
    static constexpr int kLeastCharacters = 4;

    QRect Room() const { return contentsRect().adjusted(margin(), 0, -margin(), 0); }
    QString Elided() const { return fontMetrics().elidedText(text(), mode_, Room().width()); }
    void ShowToolTip() { setToolTip(Elided() == text() ? QString() : text()); }

    bool givesWay_;
    Qt::TextElideMode mode_;
};

} // namespace velmora
