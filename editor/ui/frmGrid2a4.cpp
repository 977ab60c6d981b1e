#include "editor/ui/frmGrid2a4.h"

#include "widgets/Controls.h"
#include "workspace/DocumentStatus.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kTwipsPerPixel = 15; // at 96 dots per inch
constexpr double kLargestScale = 1.6 / kTwipsPerPixel;
constexpr int kPaperMargin = 16;
constexpr int kGround = 12;
constexpr int kCaptionHeight = 22;
constexpr const char* kSlotProperty = "slot";
constexpr const char* kFieldProperty = "field";

QColor Blend(const QColor& a, const QColor& b, double share) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * share),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * share),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * share));
}

} // namespace

void GridSheet::SetCells(std::vector<GridCell> cells, const QString& caption) {
    cells_ = std::move(cells);
    caption_ = caption;
    marked_ = 0;
    update();
}

void GridSheet::SetScale(double pixelsPerTwip) {
    pixelsPerTwip_ = pixelsPerTwip;
    const QRectF grid = GridTwips();
    setFixedSize(BorderSize() + QSize(static_cast<int>(std::lround(grid.width() * pixelsPerTwip)),
                                      static_cast<int>(std::lround(grid.height() * pixelsPerTwip))));
    update();
}

void GridSheet::MarkSlot(int slot) {
    marked_ = slot;
    update();
}

QRect GridSheet::GridTwips() const {
    QRect grid;
    for (const GridCell& cell : cells_)
        grid |= QRect(cell.outline.left, cell.outline.top, cell.outline.width, cell.outline.height);
    return grid;
}

QSize GridSheet::BorderSize() const {
    const int border = 2 * (kPaperMargin + kGround);
    return {border, border + kCaptionHeight};
}

QRect GridSheet::BoxRect(const GridBox& box) const {
    const QPoint origin = GridTwips().topLeft();
    const auto pixel = [&](int twips) {
        return static_cast<int>(std::lround(twips * pixelsPerTwip_)) + kPaperMargin + kGround;
    };
    const int left = box.left - origin.x();
    const int top = box.top - origin.y();
    return QRect(QPoint(pixel(left), pixel(top)), QPoint(pixel(left + box.width) - 1, pixel(top + box.height) - 1));
}

/// Plain lines: a page of rounded ones takes longer to draw than all the boxes on it.
void GridSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor paper = palette().color(QPalette::Base);
    const QColor line = Blend(paper, palette().color(QPalette::Text), 0.25);
    const QRect sheet = rect().adjusted(kGround, kGround, -kGround, -kGround);
    painter.setPen(line);
    painter.setBrush(paper);
    painter.drawRect(sheet);
    painter.setBrush(Blend(paper, palette().color(QPalette::Text), 0.08));
    for (const GridCell& cell : cells_)
        painter.drawRect(BoxRect(cell.outline).adjusted(0, 0, -1, -1));
    if (marked_ > 0) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(BoxRect(cells_[static_cast<std::size_t>(marked_) - 1].outline));
    }
    painter.setPen(Blend(paper, palette().color(QPalette::Text), 0.6));
    painter.drawText(
        QRect(sheet.left(), sheet.bottom() - kCaptionHeight - kPaperMargin / 2, sheet.width(), kCaptionHeight),
        Qt::AlignCenter, caption_);
}

frmGrid2a4::frmGrid2a4(MainModule& main, QWidget* parent)
    : QScrollArea(parent), main_(main), sheet_(new GridSheet(this)) {
    setObjectName("frmGrid2a4");
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::NoFocus); // its boxes have it, and their keys scroll
    auto* scrollBar = new QScrollBar(Qt::Vertical, this);
    scrollBar->setObjectName("FlatScrollBar1");
    setVerticalScrollBar(scrollBar);
    setWidget(sheet_);
    main_.editor.Take(*this);
}

frmGrid2a4::~frmGrid2a4() {
    main_.editor.Leave();
}

void frmGrid2a4::TakeDown() {
    for (const auto& fields : boxes_)
        for (QLineEdit* box : fields)
            delete box;
    boxes_.clear();
    shown_.clear();
}

void frmGrid2a4::BringUp() {
    RefreshDocumentStatus(main_);
    SetLablesOnGrid();
    ShowTexts();
    FocusTab();
}

std::vector<TabTexts> frmGrid2a4::ShownTexts() const {
    std::vector<TabTexts> texts = shown_;
    for (std::size_t slot = 0; slot < boxes_.size(); ++slot)
        for (std::size_t field = 0; field < boxes_[slot].size(); ++field)
            // A text that nobody typed in stays as it is, also one that a box cannot show as it stands.
            if (boxes_[slot][field] && boxes_[slot][field]->isModified())
                texts[slot][field] = boxes_[slot][field]->text().toStdString();
    return texts;
}

void frmGrid2a4::ShowText(TabBox place, std::size_t at, std::size_t length) {
    const int perPage = main_.document.setup.TabsPerPage;
    const auto page = static_cast<std::int16_t>((place.tab - 1) / perPage + 1);
    if (page != main_.document.CurrentPage) {
        main_.document.CurrentPage = page;
        BringUp();
    }
    QLineEdit* box = Box(place.field, (place.tab - 1) % perPage + 1);
    if (!box)
        return;
    if (auto* left = qobject_cast<QLineEdit*>(focusWidget()))
        left->deselect();
    const std::string& text = main_.document.Field(place.field)(place.tab);
    const QString before = QString::fromStdString(text.substr(0, at));
    box->setFocus();
    Entered(box->property(kSlotProperty).toInt()); // a window in the background gets no focus event
    ensureWidgetVisible(box);
    box->setSelection(static_cast<int>(before.size()),
                      static_cast<int>(QString::fromStdString(text.substr(before.toUtf8().size(), length)).size()));
}

TabNumbers frmGrid2a4::MarkedTabs() const {
    if (boxes_.empty() || main_.document.CurrentTab < 1)
        return {};
    return {main_.document.CurrentTab};
}

/// In the field in use.
void frmGrid2a4::MarkTabs(const TabNumbers& tabs) {
    const QWidget* focused = focusWidget();
    if (!tabs.empty())
        ShowText({tabs.front(), std::max(0, focused ? FieldOf(*focused) : 0)}, 0, std::string::npos);
}

QLineEdit* frmGrid2a4::Box(int field, int slot) const {
    return boxes_.at(static_cast<std::size_t>(slot - 1)).at(static_cast<std::size_t>(field));
}

int frmGrid2a4::FieldOf(const QWidget& box) {
    const QVariant field = box.property(kFieldProperty);
    return field.isValid() ? field.toInt() : -1;
}

/// Keeps the boxes when their number is right, as it is on a move to another page.
void frmGrid2a4::SetLablesOnGrid() {
    const bool docChanged = main_.document.DocChanged;
    cells_ = LayOutGrid(main_.document);
    sheet_->SetCells(cells_, tr("Page %1 of %2").arg(main_.document.CurrentPage).arg(main_.document.NoOfPages));
    const auto fields = static_cast<std::size_t>(main_.document.setup.NoOfFields);
    const bool fits = boxes_.size() == cells_.size() && (fields == 3 || !boxes_[0][fields]) && boxes_[0][fields - 1];
    if (!fits) {
        TakeDown();
        boxes_.assign(cells_.size(), {});
        for (std::size_t slot = 0; slot < cells_.size(); ++slot)
            for (std::size_t field = 0; field < fields; ++field)
                boxes_[slot][field] = MakeBox(static_cast<int>(field), static_cast<int>(slot) + 1);
    }
    PlaceBoxes();
    main_.document.DocChanged = docChanged;
}

QLineEdit* frmGrid2a4::MakeBox(int field, int slot) {
    auto* box = new QLineEdit(sheet_);
    box->setObjectName(QString("TextA%1(%2)").arg(field + 1).arg(slot));
    box->setProperty(kSlotProperty, slot);
    box->setProperty(kFieldProperty, field);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this, field, box] { Edited(field, box); });
    return box;
}

/// "Page 2, row 3, column 1, field A".
QString frmGrid2a4::BoxName(int field, int slot) const {
    const TabDocument& document = main_.document;
    return tr("Page %1, row %2, column %3, field %4")
        .arg(QString::number(document.CurrentPage), QString::number((slot - 1) / document.setup.ColsPerPage + 1),
             QString::number((slot - 1) % document.setup.ColsPerPage + 1), QChar('A' + field));
}

void frmGrid2a4::ShowTexts() {
    shown_ = PopulateLabels(main_.document);
    for (std::size_t slot = 0; slot < boxes_.size(); ++slot) {
        for (std::size_t field = 0; field < boxes_[slot].size(); ++field) {
            QLineEdit* box = boxes_[slot][field];
            if (!box)
                continue;
            box->setAccessibleName(BoxName(static_cast<int>(field), static_cast<int>(slot) + 1));
            box->setAlignment(BoxAlignment(main_.fonts[field].HorizontalAlignment));
            box->setText(QString::fromStdString(shown_[slot][field]));
            box->setCursorPosition(0);
        }
    }
}

/// Keeps the focus in its slot on a move to another page; a page that comes up anew starts at its first tab.
void frmGrid2a4::FocusTab() {
    QWidget* focused = focusWidget();
    if (focused && focused->property(kSlotProperty).isValid()) {
        Entered(focused->property(kSlotProperty).toInt());
        qobject_cast<QLineEdit*>(focused)->selectAll();
        QAccessibleEvent anotherTab(focused, QAccessible::Focus);
        QAccessible::updateAccessibility(&anotherTab);
    } else if (!boxes_.empty()) {
        boxes_[0][0]->setFocus();
        Entered(1); // a window in the background gets no focus event
    }
}

void frmGrid2a4::Entered(int slot) {
    sheet_->MarkSlot(slot);
    EnterBox(main_, slot);
}

double frmGrid2a4::FittingScale() const {
    if (cells_.empty())
        return 1 / kTwipsPerPixel;
    // A line must hold the desktop's font with its frame, however large that is.
    const QLineEdit probe;
    const double smallest = std::max(1 / kTwipsPerPixel, probe.minimumSizeHint().height() /
                                                             static_cast<double>(main_.document.setup.Grid.Height2));
    const QSizeF room = viewport()->size() - sheet_->BorderSize();
    const QRectF grid = sheet_->GridTwips();
    const double fitting = std::min((room.width() - 1) / grid.width(), (room.height() - 1) / grid.height());
    return std::max(smallest, std::min(fitting, kLargestScale));
}

void frmGrid2a4::PlaceBoxes() {
    sheet_->SetScale(FittingScale());
    for (std::size_t slot = 0; slot < boxes_.size(); ++slot) {
        for (std::size_t field = 0; field < boxes_[slot].size(); ++field) {
            if (QLineEdit* box = boxes_[slot][field]) {
                box->setGeometry(sheet_->BoxRect(cells_[slot].boxes[field]));
                box->show();
            }
        }
    }
}

void frmGrid2a4::Edited(int field, QLineEdit* box) {
    const std::string typed = box->text().toStdString();
    const std::string kept = EditBox(main_, box->property(kSlotProperty).toInt(), field, typed);
    emit Changed();
    if (kept == typed)
        return;
    const int cursor = box->cursorPosition();
    box->setText(QString::fromStdString(kept));
    box->setCursorPosition(cursor);
    box->setModified(true);
}

void frmGrid2a4::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (!boxes_.empty())
        PlaceBoxes();
}

/// The slot that a key leads to from `slot`, 0 where the key belongs to the box.
int frmGrid2a4::SlotAfterKey(int slot, const QKeyEvent& key, const QLineEdit& box) const {
    if (key.modifiers() & ~Qt::KeypadModifier)
        return 0;
    const bool plain = !box.hasSelectedText();
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return slot + 1;
    case Qt::Key_Up: return slot - main_.document.setup.ColsPerPage;
    case Qt::Key_Down: return slot + main_.document.setup.ColsPerPage;
    case Qt::Key_Left: return plain && box.cursorPosition() == 0 ? slot - 1 : 0;
    case Qt::Key_Right: return plain && box.cursorPosition() == box.text().size() ? slot + 1 : 0;
    default: return 0;
    }
}

/// Goes to the same field of another tab; at the page's edge it stays.
bool frmGrid2a4::MoveByKey(const QKeyEvent& key, QLineEdit* box) {
    const int slot = SlotAfterKey(box->property(kSlotProperty).toInt(), key, *box);
    if (slot < 1 || slot > static_cast<int>(boxes_.size()))
        return false;
    Box(FieldOf(*box), slot)->setFocus(Qt::TabFocusReason); // which selects the text
    return true;
}

bool frmGrid2a4::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (!box)
        return QScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) || key.matches(QKeySequence::Paste)) {
            event->ignore();
            return true; // commands of the window, which know the whole document
        }
        if (event->type() == QEvent::KeyPress && MoveByKey(key, box))
            return true;
    }
    if (event->type() == QEvent::ContextMenu) {
        emit MenuWanted(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true; // the box's own menu would change it alone
    }
    if (event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() == Qt::MenuBarFocusReason)
        return true; // what is selected stays selected for the command
    if (event->type() == QEvent::DragEnter && static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls()) {
        event->ignore(); // a file is for the window, which opens it
        return true;
    }
    if (event->type() == QEvent::FocusIn) {
        Entered(box->property(kSlotProperty).toInt());
        ensureWidgetVisible(box);
    }
    return QScrollArea::eventFilter(watched, event);
}

} // namespace velmora
