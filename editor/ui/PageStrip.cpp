#include "editor/ui/PageStrip.h"

#include "editor/GridLayout.h"
#include "editor/PageFill.h"
#include "widgets/Contrast.h"

#include <QAbstractItemDelegate>
#include <QAbstractListModel>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

/// One row for each page; what a row says is looked up in the document.
class PageStripModel : public QAbstractListModel {
public:
    PageStripModel(const TabDocument& document, QObject* parent) : QAbstractListModel(parent), document_(document) {}

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole)
            return QString::number(index.row() + 1);
        return role == Qt::AccessibleTextRole || role == Qt::ToolTipRole ? State(index.row() + 1) : QVariant();
    }
    /// Pages come and go at the end: a row is a number, not a page.
    void SetCount(int count) {
        if (count > count_) {
            beginInsertRows({}, count_, count - 1);
            count_ = count;
            endInsertRows();
        } else if (count < count_) {
            beginRemoveRows({}, count, count_ - 1);
            count_ = count;
            endRemoveRows();
        }
    }

private:
    /// "Page 3, partly filled"
    QString State(int page) const {
        switch (FillOf(document_, page)) {
        case PageFill::Empty: return PageStrip::tr("Page %1, empty").arg(page);
        case PageFill::Filled: return PageStrip::tr("Page %1, filled").arg(page);
        default: return PageStrip::tr("Page %1, partly filled").arg(page);
        }
    }

    const TabDocument& document_;
    int count_ = 0;
};

namespace {

// Paper is white whatever the palette, here as in the large sheet.
constexpr QColor kEdge(0xa0, 0xa0, 0xa0);
constexpr QColor kFilled(0x60, 0x60, 0x60);

/// A small sheet with the tabs where the grid has them, and its number below.
class SmallSheets : public QAbstractItemDelegate {
public:
    SmallSheets(const TabDocument& document, QObject* parent) : QAbstractItemDelegate(parent), document_(document) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const QSize sheet = SheetSize(option.fontMetrics, OutlineOf(LayOutGrid(document_)));
        const int pad = Pad(option.fontMetrics);
        return {sheet.width() + 2 * pad, sheet.height() + option.fontMetrics.height() + 3 * pad};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const std::vector<GridCell> cells = LayOutGrid(document_);
        QRect sheet(option.rect.topLeft(), SheetSize(option.fontMetrics, OutlineOf(cells)));
        sheet.moveCenter({option.rect.center().x(), 0});
        sheet.moveTop(option.rect.top() + Pad(option.fontMetrics));
        painter->save();
        PaintSheet(*painter, option, sheet, index.row() + 1 == document_.CurrentPage);
        PaintTabs(*painter, option, sheet, cells, index.row() * document_.setup.TabsPerPage);
        PaintNumber(*painter, option, sheet.bottom() + Pad(option.fontMetrics), index);
        painter->restore();
    }
    static int SheetWidth(const QFontMetrics& metrics) { return metrics.height() * 5; }
    /// Around a small sheet, with room for the mark.
    static int Pad(const QFontMetrics& metrics) { return metrics.height() * 2 / 5; }

private:
    static int Margin(const QFontMetrics& metrics) { return metrics.height() / 4; }
    static QSize SheetSize(const QFontMetrics& metrics, const GridBox& grid) {
        const int margins = 2 * Margin(metrics);
        const int width = SheetWidth(metrics);
        return {width, grid.width == 0 ? width : (width - margins) * grid.height / grid.width + margins};
    }
    static QColor Mark(const QPalette& palette) {
        return StandingOut(palette.color(QPalette::Highlight), palette.color(QPalette::Window));
    }

    static void PaintSheet(QPainter& painter, const QStyleOptionViewItem& option, const QRect& sheet, bool inView) {
        if (inView) { // a frame around it
            const int width = Margin(option.fontMetrics);
            painter.fillRect(sheet.adjusted(-width, -width, width, width), Mark(option.palette));
        }
        painter.setPen(kEdge);
        painter.setBrush(Qt::white);
        painter.drawRect(sheet.adjusted(0, 0, -1, -1));
    }
    /// A tab with a text is dark, an empty one an outline.
    void PaintTabs(QPainter& painter, const QStyleOptionViewItem& option, const QRect& sheet,
                   const std::vector<GridCell>& cells, int before) const {
        const int margin = Margin(option.fontMetrics);
        const GridBox grid = OutlineOf(cells);
        const double scale = static_cast<double>(sheet.width() - 2 * margin) / std::max(1, grid.width);
        const auto pixel = [&](int twips) { return margin + static_cast<int>(std::lround(twips * scale)); };
        QList<QRect> filled, empty;
        for (std::size_t slot = 0; slot < cells.size(); ++slot) {
            const GridBox& box = cells[slot].outline;
            const int left = box.left - grid.left, top = box.top - grid.top;
            const QRect tab(QPoint(pixel(left), pixel(top)),
                            QPoint(pixel(left + box.width) - 2, pixel(top + box.height) - 2));
            if (IsEmptyTab(document_, before + static_cast<int>(slot) + 1))
                empty.append(tab.translated(sheet.topLeft()).adjusted(0, 0, -1, -1)); // its line adds a pixel
            else
                filled.append(tab.translated(sheet.topLeft()));
        }
        painter.setBrush(Qt::NoBrush);
        painter.drawRects(empty);
        painter.setPen(Qt::NoPen);
        painter.setBrush(kFilled);
        painter.drawRects(filled);
    }
    /// That of the page in view stands on the mark's colour; while the list has the keys, within a frame.
    static void PaintNumber(QPainter& painter, const QStyleOptionViewItem& option, int top, const QModelIndex& index) {
        const QString number = index.data().toString();
        QRect place = option.fontMetrics.boundingRect(number);
        place.adjust(-Margin(option.fontMetrics), 0, Margin(option.fontMetrics), 0);
        place.moveCenter({option.rect.center().x(), 0});
        place.moveTop(top);
        const bool inView = option.state & QStyle::State_Selected;
        if (inView)
            painter.fillRect(place, Mark(option.palette));
        painter.setFont(option.font);
        painter.setPen(option.palette.color(inView ? QPalette::Window : QPalette::WindowText));
        painter.drawText(place, Qt::AlignCenter, number);
        if (option.state & QStyle::State_HasFocus) {
            painter.setPen(Mark(option.palette));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
    }

    const TabDocument& document_;
};

} // namespace

PageStrip::PageStrip(const TabDocument& document, QWidget* parent)
    : QListView(parent), document_(document), model_(new PageStripModel(document, this)) {
    setObjectName("PageStrip");
    setAccessibleName(tr("Pages"));
    setModel(model_);
    setItemDelegate(new SmallSheets(document, this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setFocusPolicy(Qt::TabFocus); // who clicks a page goes on typing there
    setContextMenuPolicy(Qt::ActionsContextMenu);
    viewport()->setBackgroundRole(QPalette::Window);
    viewport()->setAutoFillBackground(true);
    FitWidth();
}

/// What changes the rows and the page in view here is no wish of the person.
void PageStrip::Follow() {
    {
        const QScopedValueRollback following(following_, true);
        model_->SetCount(document_.NoOfPages);
        if (const QSize size = sizeHintForIndex(model_->index(0)); std::exchange(itemSize_, size) != size)
            scheduleDelayedItemsLayout(); // another tab type has another shape
        if (const QModelIndex shown = model_->index(document_.CurrentPage - 1); shown != currentIndex())
            setCurrentIndex(shown);
    }
    viewport()->update();
}

void PageStrip::ShowTyping() {
    update(model_->index(document_.CurrentPage - 1));
}

void PageStrip::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!following_ && current.isValid())
        emit PageWanted(current.row() + 1);
}

void PageStrip::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit TypingWanted();
    else
        QListView::keyPressEvent(event);
}

void PageStrip::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitWidth();
}

void PageStrip::FitWidth() {
    setFixedWidth(SmallSheets::SheetWidth(fontMetrics()) + 4 * SmallSheets::Pad(fontMetrics()) +
                  verticalScrollBar()->sizeHint().width());
}

} // namespace velmora
