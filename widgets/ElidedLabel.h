// A line of text that gives way where there is no room for all of it: dots stand for a part, and a tool tip has the
// whole.
#pragma once

#include <QLabel>
#include <QStyle>
#include <QStylePainter>

namespace velmora {

/// The part that gives way. The caption is what stands before ": "; the value behind it is what one looks for.
enum class Elided { End, Middle, Caption };

class ElidedLabel : public QLabel {
public:
    /// `givesWay`: before labels beside it that do not.
    explicit ElidedLabel(bool givesWay, Elided part = Elided::End) : givesWay_(givesWay), part_(part) {
        setTextFormat(Qt::PlainText);
    }

    void Show(const QString& text) {
        setText(text);
        ShowToolTip();
    }
    /// What there is room for.
    QString Shown() const {
        const int room = Room().width();
        if (part_ == Elided::Middle)
            return fontMetrics().elidedText(text(), Qt::ElideMiddle, room);
        const qsizetype caption = part_ == Elided::Caption ? text().indexOf(": ") : -1;
        if (caption < 0 || Width(text()) <= room)
            return End(text(), room);
        const QString value = text().mid(caption + 2);
        const QString before = End(text().left(caption), room - Width(": " + value));
        return before.isEmpty() ? End(value, room) : before + ": " + value;
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
        painter.drawItemText(Room(), static_cast<int>(alignment()), palette(), isEnabled(), Shown(), foregroundRole());
    }

private:
    static constexpr int kLeastCharacters = 4;

    QRect Room() const { return contentsRect().adjusted(margin(), 0, -margin(), 0); }
    int Width(const QString& text) const { return fontMetrics().horizontalAdvance(text); }
    QString End(const QString& text, int room) const { return fontMetrics().elidedText(text, Qt::ElideRight, room); }
    void ShowToolTip() { setToolTip(Shown() == text() ? QString() : text()); }

    bool givesWay_;
    Elided part_;
};

} // namespace velmora
