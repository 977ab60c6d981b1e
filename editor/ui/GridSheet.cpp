#include "editor/ui/GridSheet.h"

#include "base/Error.h"
#include "report/Twips.h"
#include "widgets/Contrast.h"
#include "widgets/PaperColours.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr int kPaperMargin = 16;
constexpr int kGround = 12;
constexpr int kMarkWidth = 2;
constexpr int kLetterGap = 3;

constexpr QColor kPaperEdge(0xa0, 0xa0, 0xa0);
constexpr QColor kFound(0xff, 0xe5, 0x7a);

/// Filled, since a pen sets a page's outlines point by point, which takes longer than all the texts on it.
void DrawHairlines(QPainter& painter, const QRect& rect) {
    painter.fillRect(rect.x(), rect.y(), rect.width(), 1, kHairline);
    painter.fillRect(rect.x(), rect.bottom(), rect.width(), 1, kHairline);
    painter.fillRect(rect.x(), rect.y(), 1, rect.height(), kHairline);
    painter.fillRect(rect.right(), rect.y(), 1, rect.height(), kHairline);
}

} // namespace

GridSheet::GridSheet(const TabDocument& document, const TabMarks& marks, const FontCatalogue& catalogue,
                     QWidget* parent)
    : QWidget(parent), document_(document), marks_(marks), catalogue_(catalogue) {
    UsePaperColours();
}

/// The texts that were shaped stay as long as the fonts are the same.
void GridSheet::SetPage(std::vector<GridCell> cells, std::vector<PlacedText> fields, const FontSettings& fonts) {
    cells_ = std::move(cells);
    fields_ = std::move(fields);
    if (!painter_ || fonts != fonts_) {
        painter_.emplace(catalogue_, fonts);
        families_ = {}; // found anew when they are needed: looking for one takes milliseconds
    }
    fonts_ = fonts;
    update();
}

void GridSheet::SetScale(double pixelsPerTwip) {
    pixelsPerTwip_ = pixelsPerTwip;
    const GridBox grid = GridTwips();
    setFixedSize(BorderSize() + QSize(static_cast<int>(std::lround(grid.width * pixelsPerTwip)),
                                      static_cast<int>(std::lround(grid.height * pixelsPerTwip))));
    update();
}

void GridSheet::SetCurrent(int slot, int field) {
    slot_ = slot;
    field_ = field;
    update();
}

void GridSheet::SetMatches(const MatchFinder& find) {
    find_ = find;
    update();
}

QSize GridSheet::BorderSize() {
    constexpr int kBorder = 2 * (kPaperMargin + kGround);
    return {kBorder, kBorder};
}

QRect GridSheet::BoxRect(const GridBox& box) const {
    const GridBox& first = cells_.front().outline;
    const auto pixel = [&](int twips) {
        return static_cast<int>(std::lround(twips * pixelsPerTwip_)) + kPaperMargin + kGround;
    };
    const int left = box.left - first.left;
    const int top = box.top - first.top;
    return QRect(QPoint(pixel(left), pixel(top)), QPoint(pixel(left + box.width) - 1, pixel(top + box.height) - 1));
}

int GridSheet::SlotNear(const QPoint& place) const {
    const auto distance = [&](const GridCell& cell) {
        const QPoint away = BoxRect(cell.outline).center() - place;
        return QPoint::dotProduct(away, away);
    };
    const auto nearest = std::min_element(
        cells_.begin(), cells_.end(), [&](const GridCell& a, const GridCell& b) { return distance(a) < distance(b); });
    return static_cast<int>(nearest - cells_.begin()) + 1;
}

/// Pixels per twip of paper: a box of the grid is as wide as the field is on paper, and so fits what that fits.
double GridSheet::PaperScale(const PlacedText& field) const {
    const GridBox& box = cells_.front().boxes[static_cast<std::size_t>(field.field)];
    return BoxRect(box).width() / field.box.width;
}

QFont GridSheet::FontOf(int field) {
    const FieldFont& font = fonts_[static_cast<std::size_t>(field)];
    QString& family = families_[static_cast<std::size_t>(field)];
    if (family.isEmpty()) {
        const auto file = catalogue_.Match({font.Name, font.Bold, font.Italic});
        family = QString::fromStdString(file ? file->family : font.Name);
    }
    QFont shown(family);
    const double pixels = font.Size * kTwipsPerPoint * PaperScale(fields_[static_cast<std::size_t>(field)]);
    shown.setPointSizeF(std::max(1.0, pixels * kTwipsPerInch / kTwipsPerPoint / logicalDpiY()));
    shown.setBold(font.Bold);
    shown.setItalic(font.Italic);
    shown.setUnderline(font.Underline);
    shown.setHintingPreference(QFont::PreferNoHinting);
    return shown;
}

std::int32_t GridSheet::TabOf(int slot) const {
    return (document_.CurrentPage - 1) * document_.setup.TabsPerPage + slot;
}

/// nullptr for one that the document does not have, as while it is replaced.
const std::string* GridSheet::TextOf(int slot, int field) const {
    const FieldTexts& texts = document_.Field(field);
    const std::int32_t tab = TabOf(slot);
    return tab >= 1 && tab <= texts.Count() ? &texts(tab) : nullptr;
}

/// A machine without fonts prints nothing and says so when it is asked to.
TextLoss GridSheet::LossOf(int slot, int field) const {
    const std::string* text = TextOf(slot, field);
    if (!text || text->empty() || field >= static_cast<int>(fields_.size()))
        return {};
    PlacedText placed = fields_[static_cast<std::size_t>(field)];
    placed.text = *text;
    try {
        return painter_->LossOf(placed);
    } catch (const Error&) {
        return {};
    }
}

QColor GridSheet::EdgeColour(const TextLoss& loss) const {
    return loss == TextLoss() ? StandingOut(palette().color(QPalette::Highlight), kPaper) : kAmber;
}

void GridSheet::paintEvent(QPaintEvent* event) {
    if (cells_.empty())
        return;
    QPainter painter(this);
    PaintPaper(painter);
    PaintTabs(painter, event->rect());
    PaintMatches(painter, event->rect());
    cut_.clear();
    try {
        PaintTexts(painter, event->rect());
    } catch (const Error&) { // no fonts
    }
    PaintEdges(painter);
    PaintLetters(painter);
}

void GridSheet::PaintPaper(QPainter& painter) const {
    painter.setPen(kPaperEdge);
    painter.setBrush(kPaper);
    painter.drawRect(rect().adjusted(kGround, kGround, -kGround - 1, -kGround - 1));
}

void GridSheet::PaintTabs(QPainter& painter, const QRect& dirty) const {
    const QColor mark = EdgeColour({});
    const QColor tint = Blend(kPaper, mark, kMarkTint);
    for (std::size_t index = 0; index < cells_.size(); ++index) {
        const QRect outline = BoxRect(cells_[index].outline);
        if (!outline.intersects(dirty))
            continue;
        if (marks_.Has(TabOf(static_cast<int>(index) + 1)))
            painter.fillRect(outline, tint);
        DrawHairlines(painter, outline);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(mark, kMarkWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    for (std::size_t index = 0; index < cells_.size(); ++index) {
        const int slot = static_cast<int>(index) + 1;
        if (slot == slot_ || marks_.Has(TabOf(slot)))
            painter.drawRect(BoxRect(cells_[index].outline));
    }
}

/// The ground of each text that holds what is looked for.
void GridSheet::PaintMatches(QPainter& painter, const QRect& dirty) const {
    for (std::size_t index = 0; find_ && index < cells_.size(); ++index) {
        for (const PlacedText& field : fields_) {
            const std::string* text = TextOf(static_cast<int>(index) + 1, field.field);
            const QRect box = BoxRect(cells_[index].boxes[static_cast<std::size_t>(field.field)]);
            if (text && box.intersects(dirty) && !find_(field.field, *text).empty())
                painter.fillRect(box.adjusted(1, 1, -1, -1), kFound);
        }
    }
}

void GridSheet::PaintTexts(QPainter& painter, const QRect& dirty) {
    PainterCanvas canvas(painter, painterFonts_);
    canvas.BeginSheet({});
    for (std::size_t index = 0; index < cells_.size(); ++index) {
        if (!BoxRect(cells_[index].outline).intersects(dirty))
            continue;
        for (const PlacedText& field : fields_)
            PaintText(painter, canvas, static_cast<int>(index) + 1, field);
    }
    canvas.EndSheet();
}

void GridSheet::PaintText(QPainter& painter, PainterCanvas& canvas, int slot, const PlacedText& field) {
    const std::string* text = TextOf(slot, field.field);
    if (!text || text->empty() || IsCurrent(slot, field.field))
        return;
    const QRect box = BoxRect(cells_[static_cast<std::size_t>(slot - 1)].boxes[static_cast<std::size_t>(field.field)]);
    const double scale = PaperScale(field);
    PlacedText placed = field;
    placed.text = *text;
    painter.save();
    painter.translate(box.left(), box.top() + (box.height() - placed.box.height * scale) / 2);
    painter.scale(scale, scale);
    const TextLoss loss = painter_->PaintText(placed, canvas);
    painter.restore();
    if (loss != TextLoss())
        cut_.push_back(box);
}

void GridSheet::PaintEdges(QPainter& painter) const {
    painter.setPen(kAmber);
    painter.setBrush(Qt::NoBrush);
    for (const QRect& box : cut_)
        painter.drawRect(box.adjusted(0, 0, -1, -1));
}

/// What the empty fields of the tab in use are called.
void GridSheet::PaintLetters(QPainter& painter) const {
    if (slot_ == 0)
        return;
    painter.setPen(kLetter);
    for (const PlacedText& field : fields_) {
        const std::string* text = TextOf(slot_, field.field);
        if (text && text->empty() && !IsCurrent(slot_, field.field))
            painter.drawText(
                BoxRect(cells_[static_cast<std::size_t>(slot_ - 1)].boxes[static_cast<std::size_t>(field.field)])
                    .adjusted(kLetterGap, 0, -kLetterGap, 0),
                Qt::AlignVCenter | Qt::AlignLeft, QChar('A' + field.field));
    }
}

void GridSheet::UsePaperColours() {
    QPalette colours;
    colours.setColor(QPalette::Base, kPaper);
    colours.setColor(QPalette::Text, kInk);
    colours.setColor(QPalette::PlaceholderText, kLetter);
    setPalette(colours);
}

void GridSheet::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

} // namespace velmora
