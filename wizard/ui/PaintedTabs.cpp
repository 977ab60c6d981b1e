#include "wizard/ui/PaintedTabs.h"

#include "base/Error.h"
#include "report/Twips.h"
#include "widgets/Contrast.h"
#include "widgets/PaperColours.h"

#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr int kWidthLetters = 36;
constexpr int kMostPercent = 28;    // of the screen's width
constexpr double kMostEnlarged = 2; // a narrow tab is not blown up to the width of a wide one
constexpr int kGapBetween = 10;
constexpr int kEdge = 2;
constexpr int kMarkPixels = 2;

constexpr QColor kTabEdge(0x80, 0x80, 0x80);

/// A line as thin as the screen has them, whatever the scale.
QPen Hairline(const QColor& colour, int pixels = 1) {
    QPen pen(colour, pixels, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}

/// What an empty field is called, as large as its texts may be.
void PaintLetter(QPainter& painter, const PlacedText& field) {
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(field.box.height * 0.6)); // NOLINT(*-magic-numbers): fits the box
    painter.setFont(font);
    painter.setPen(kLetter);
    painter.drawText(ToRect(field.box), Qt::AlignCenter, QChar('A' + field.field));
}

} // namespace

PaintedTabs::PaintedTabs() {
    setObjectName("imgTab");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PaintedTabs::Show(TabSample& sample, std::vector<PaintedTab> tabs, int field) {
    sample_ = &sample;
    tabs_ = std::move(tabs);
    field_ = field;
    setAccessibleName(Spoken());
    updateGeometry();
    update();
}

/// Beside a page's entries, in large letters too.
int PaintedTabs::Width() const {
    const int most = screen()->availableSize().width() * kMostPercent / 100; // NOLINT(*-magic-numbers)
    return std::min(kWidthLetters * fontMetrics().averageCharWidth(), most);
}

/// Pixels per twip.
double PaintedTabs::Scale() const {
    const double room = Width() - 2 * kEdge;
    return std::min(room / std::max(1.0, sample_->Tab().width), kMostEnlarged * logicalDpiX() / kTwipsPerInch);
}

int PaintedTabs::TabHeight() const {
    return static_cast<int>(std::lround(sample_->Tab().height * Scale())) + 2 * kEdge;
}

int PaintedTabs::CaptionHeight(const PaintedTab& tab) const {
    return tab.caption.isEmpty() ? 0 : fontMetrics().lineSpacing();
}

QSize PaintedTabs::sizeHint() const {
    int height = 0;
    for (const PaintedTab& tab : tabs_)
        height += (height > 0 ? kGapBetween : 0) + CaptionHeight(tab) + TabHeight();
    return {Width(), height};
}

void PaintedTabs::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    int top = 0;
    for (const PaintedTab& tab : tabs_) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRect(0, top, width(), CaptionHeight(tab)), Qt::AlignLeft, tab.caption);
        painter.save();
        painter.translate(kEdge, top + CaptionHeight(tab) + kEdge);
        painter.scale(Scale(), Scale());
        PaintTab(painter, tab);
        painter.restore();
        top += CaptionHeight(tab) + TabHeight() + kGapBetween;
    }
}

void PaintedTabs::PaintTab(QPainter& painter, const PaintedTab& tab) {
    painter.setPen(Hairline(kTabEdge));
    painter.setBrush(kPaper);
    painter.drawRect(ToRect(sample_->Tab()));
    PainterCanvas canvas(painter, fonts_);
    for (const PlacedText& field : sample_->Fields())
        PaintField(painter, canvas, field, tab.texts.at(static_cast<std::size_t>(field.field)));
    for (const PlacedText& field : sample_->Fields())
        if (field.field == field_) {
            painter.setPen(Hairline(StandingOut(palette().color(QPalette::Highlight), kPaper), kMarkPixels));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(ToRect(field.box));
        }
}

/// A machine without fonts shows the fields alone.
void PaintedTabs::PaintField(QPainter& painter, PainterCanvas& canvas, const PlacedText& field,
                             const std::string& text) const {
    PlacedText placed = field;
    placed.text = text;
    const TextLoss loss = sample_->LossOf(field.field, text);
    painter.setPen(Hairline(loss == TextLoss() ? kHairline : kAmber));
    painter.setBrush(field.field == field_ ? Blend(kPaper, palette().color(QPalette::Highlight), kMarkTint) : kPaper);
    painter.drawRect(ToRect(field.box));
    if (text.empty())
        return PaintLetter(painter, field);
    canvas.BeginSheet({});
    try {
        sample_->Painter().PaintText(placed, canvas);
    } catch (const Error&) {}
    canvas.EndSheet();
}

QString PaintedTabs::Spoken() const {
    QStringList spoken;
    for (const PaintedTab& tab : tabs_) {
        QStringList texts;
        for (const std::string& text : tab.texts)
            if (!text.empty())
                texts << QString::fromStdString(text);
        spoken << tab.caption + ": " + (texts.isEmpty() ? tr("empty") : texts.join(", "));
    }
    return spoken.join("; ");
}

} // namespace velmora
