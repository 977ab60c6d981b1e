#include "editor/ui/frmGrid2a4.h"

#include "base/Error.h"
#include "base/Text.h"
#include "editor/ui/FieldBox.h"
#include "report/Twips.h"
#include "report/rptVelmor.h"
#include "widgets/Controls.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Pages.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>

namespace velmora {
namespace {

constexpr int kWholePercent = 100;

Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& key) {
    return key.modifiers() & ~Qt::KeypadModifier;
}

bool IsAtStart(const QLineEdit& box) {
    return !box.hasSelectedText() && box.cursorPosition() == 0;
}

bool IsAtEnd(const QLineEdit& box) {
    return !box.hasSelectedText() && box.cursorPosition() == box.text().size();
}

/// An arrow to the side leads out of a box at the end of its text only.
std::optional<GridMove> ArrowMove(int key, const QLineEdit& box) {
    switch (key) {
    case Qt::Key_Up: return GridMove::Up;
    case Qt::Key_Down: return GridMove::Down;
    case Qt::Key_Left: return IsAtStart(box) ? std::optional(GridMove::PreviousTab) : std::nullopt;
    case Qt::Key_Right: return IsAtEnd(box) ? std::optional(GridMove::NextTab) : std::nullopt;
    default: return std::nullopt;
    }
}

std::optional<GridMove> PlainMove(int key, const QLineEdit& box) {
    switch (key) {
    case Qt::Key_Tab: return GridMove::NextBox;
    case Qt::Key_Return:
    case Qt::Key_Enter: return GridMove::NextTab;
    case Qt::Key_Home: return IsAtStart(box) ? std::optional(GridMove::RowStart) : std::nullopt;
    case Qt::Key_End: return IsAtEnd(box) ? std::optional(GridMove::RowEnd) : std::nullopt;
    default: return ArrowMove(key, box);
    }
}

/// nullopt where the key belongs to the box.
std::optional<GridMove> MoveOf(const QKeyEvent& key, const QLineEdit& box) {
    const auto modifiers = ModifiersOf(key);
    if (modifiers == Qt::NoModifier)
        return PlainMove(key.key(), box);
    if (modifiers == Qt::ControlModifier && key.key() == Qt::Key_Home)
        return GridMove::FirstTab;
    if (modifiers == Qt::ControlModifier && key.key() == Qt::Key_End)
        return GridMove::LastFilledTab;
    if (modifiers != Qt::ShiftModifier)
        return std::nullopt;
    switch (key.key()) {
    case Qt::Key_Backtab: return GridMove::PreviousBox;
    case Qt::Key_Return:
    case Qt::Key_Enter: return GridMove::PreviousTab;
    default: return std::nullopt;
    }
}

/// "12 of 20; will be cut off".
QString BoxText(const FieldBox& box, std::size_t limit, const TextLoss& loss) {
    QString text = frmGrid2a4::tr("%1 of %2").arg(CharacterCount(box.text().toStdString())).arg(limit);
    if (const std::string lost = LossText(loss); !lost.empty())
        text += "; " + QString::fromStdString(lost);
    return text;
}

} // namespace

frmGrid2a4::frmGrid2a4(MainModule& main, const FontCatalogue& catalogue, QWidget* parent)
    : QScrollArea(parent), main_(main), zoom_(ReadZoom(main.settings)),
      sheet_(new GridSheet(main.document, marks_, catalogue, this)) {
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
        for (FieldBox* box : fields)
            delete box;
    boxes_.clear();
    shown_.clear();
    marks_.Set({});
    sheet_->SetCurrent(0, 0);
}

void frmGrid2a4::BringUp() {
    RefreshDocumentStatus(main_);
    marks_.KeepWithin(main_.document.TabCount);
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
    if (place.field >= main_.document.setup.NoOfFields)
        return;
    GoTo(place, Marking::Ends);
    const std::string& text = main_.document.Field(place.field)(place.tab);
    const QString before = QString::fromStdString(text.substr(0, at));
    current_->setSelection(
        static_cast<int>(before.size()),
        static_cast<int>(QString::fromStdString(text.substr(before.toUtf8().size(), length)).size()));
}

TabNumbers frmGrid2a4::MarkedTabs() const {
    return HasMarks() ? marks_.Tabs() : current_ ? TabNumbers{PlaceOf(*current_).tab} : TabNumbers{};
}

void frmGrid2a4::MarkTabs(const TabNumbers& tabs) {
    if (tabs.empty())
        return;
    GoTo({tabs.front(), current_ ? current_->Field() : 0}, Marking::Ends);
    if (tabs.size() > 1)
        marks_.Set(tabs);
    sheet_->update();
}

void frmGrid2a4::MarkAllTabs() {
    marks_.BeginAt(1);
    marks_.ExtendTo(main_.document.TabCount);
    if (current_)
        current_->deselect();
    sheet_->update();
}

QLineEdit* frmGrid2a4::Box(int field, int slot) const {
    return boxes_.at(static_cast<std::size_t>(slot - 1)).at(static_cast<std::size_t>(field));
}

int frmGrid2a4::FieldOf(const QWidget& box) {
    const auto* fieldBox = qobject_cast<const FieldBox*>(&box);
    return fieldBox ? fieldBox->Field() : -1;
}

/// The part of the sheet that the fields are on does not matter here, so neither does a stored tab top that is no
/// number.
std::vector<PlacedText> frmGrid2a4::FieldsOnPaper() const {
    LayoutValues layout;
    rptVelmor report(layout);
    const DocumentSetup& setup = main_.document.setup;
    try {
        report.PrepareTabStyle(setup.OptType, main_.settings);
    } catch (const TypeMismatchError&) {}
    report.FormatFields(setup.NoOfFields, setup.ColsPerPage, setup.OptType, main_.fonts);
    return report.FieldsOfTab();
}

/// Keeps the boxes when their number is right, as it is on a move to another page.
void frmGrid2a4::SetLablesOnGrid() {
    const bool docChanged = main_.document.DocChanged;
    cells_ = LayOutGrid(main_.document);
    sheet_->SetPage(cells_, FieldsOnPaper(), main_.fonts);
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

FieldBox* frmGrid2a4::MakeBox(int field, int slot) {
    auto* box = new FieldBox(slot, field, sheet_);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this, box] { Edited(*box); });
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
            FieldBox* box = boxes_[slot][field];
            if (!box)
                continue;
            box->setAccessibleName(BoxName(static_cast<int>(field), static_cast<int>(slot) + 1));
            box->setAlignment(BoxAlignment(main_.fonts[field].HorizontalAlignment) | Qt::AlignAbsolute);
            box->setText(QString::fromStdString(shown_[slot][field]));
            box->setCursorPosition(0);
        }
    }
}

/// Keeps the focus in its slot on a move to another page; a page that comes up anew starts at its first tab.
void frmGrid2a4::FocusTab() {
    if (current_) {
        Enter(*current_);
        current_->selectAll();
        QAccessibleEvent anotherTab(current_, QAccessible::Focus);
        QAccessible::updateAccessibility(&anotherTab);
    } else if (!boxes_.empty()) {
        boxes_[0][0]->setFocus();
        Enter(*boxes_[0][0]); // a window in the background gets no focus event
    }
}

void frmGrid2a4::Enter(FieldBox& box) {
    if (current_ && current_ != &box)
        current_->Close();
    current_ = &box;
    box.Open(sheet_->FontOf(box.Field()));
    sheet_->SetCurrent(box.Slot(), box.Field());
    EnterBox(main_, box.Slot());
    TellLoss(box);
}

void frmGrid2a4::TellLoss(FieldBox& box) {
    const TextLoss loss = sheet_->LossOf(box.Slot(), box.Field());
    box.SetEdge(sheet_->EdgeColour(loss));
    box.setAccessibleDescription(QString::fromStdString(LossText(loss)));
    emit BoxTold(BoxText(box, main_.document.setup.Limits.Of(box.Field()), loss));
}

double frmGrid2a4::Scale() const {
    const double whole = logicalDpiX() / kTwipsPerInch;
    if (cells_.empty())
        return whole;
    const QSize room = maximumViewportSize() - GridSheet::BorderSize();
    const QRect grid = sheet_->GridTwips();
    const GridSize twips{static_cast<double>(grid.width()), static_cast<double>(grid.height())};
    const GridSize wide{room.width() - 1.0, room.height() - 1.0};
    const double scale = ZoomScale(zoom_, wide, twips, whole);
    if (scale * twips.height <= wide.height)
        return scale;
    return ZoomScale(zoom_, {wide.width - verticalScrollBar()->sizeHint().width(), wide.height}, twips, whole);
}

void frmGrid2a4::PlaceBoxes() {
    sheet_->SetScale(Scale());
    for (std::size_t slot = 0; slot < boxes_.size(); ++slot) {
        for (std::size_t field = 0; field < boxes_[slot].size(); ++field) {
            if (FieldBox* box = boxes_[slot][field]) {
                box->setGeometry(sheet_->BoxRect(cells_[slot].boxes[field]));
                box->show();
            }
        }
    }
    if (current_)
        current_->Open(sheet_->FontOf(current_->Field()));
}

void frmGrid2a4::SetZoom(const GridZoom& zoom) {
    zoom_ = zoom;
    SaveZoom(main_.settings, zoom);
    PlaceBoxes();
    if (current_)
        ensureWidgetVisible(current_);
}

void frmGrid2a4::StepZoom(int steps) {
    SetZoom(ZoomBeside(sheet_->PixelsPerTwip() * kTwipsPerInch / logicalDpiX() * kWholePercent, steps));
}

void frmGrid2a4::Edited(FieldBox& box) {
    EndMarking(PlaceOf(box).tab);
    const std::string typed = box.text().toStdString();
    const std::string kept = EditBox(main_, box.Slot(), box.Field(), typed);
    emit Changed();
    if (kept != typed) {
        const int cursor = box.cursorPosition();
        box.setText(QString::fromStdString(kept));
        box.setCursorPosition(cursor);
        box.setModified(true);
    }
    TellLoss(box);
}

void frmGrid2a4::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (!boxes_.empty())
        PlaceBoxes();
}

void frmGrid2a4::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QScrollArea::wheelEvent(event);
    if (const int turned = event->angleDelta().y(); turned != 0)
        StepZoom(turned > 0 ? 1 : -1);
    event->accept();
}

TabBox frmGrid2a4::PlaceOf(const FieldBox& box) const {
    return {(main_.document.CurrentPage - 1) * main_.document.setup.TabsPerPage + box.Slot(), box.Field()};
}

void frmGrid2a4::GoTo(TabBox place, Marking marking) {
    const std::int16_t page = PageOfTab(main_.document, place.tab);
    if (page != main_.document.CurrentPage)
        ShowPage(main_, page);
    if (marking == Marking::Ends)
        EndMarking(place.tab);
    FieldBox* box = boxes_.at(static_cast<std::size_t>((place.tab - 1) % main_.document.setup.TabsPerPage))
                        .at(static_cast<std::size_t>(place.field));
    box->setFocus(Qt::TabFocusReason); // which selects the text
    if (current_ != box)
        Enter(*box); // a window in the background gets no focus event
    ensureWidgetVisible(box);
}

/// Over the end of the last page a person is asked for another one.
void frmGrid2a4::Move(GridMove move, TabBox from) {
    std::optional<TabBox> place = PlaceAfter(move, from, main_.document);
    if (!place && (move == GridMove::NextBox || move == GridMove::NextTab)) {
        const std::int32_t tabs = main_.document.TabCount;
        NextPage(main_);
        place = PlaceAfter(move, from, main_.document);
        if (main_.document.TabCount == tabs)
            return;
    }
    if (place)
        GoTo(*place, Marking::Ends);
}

void frmGrid2a4::EndMarking(std::int32_t tab) {
    if (HasMarks())
        sheet_->update();
    marks_.BeginAt(tab);
}

void frmGrid2a4::MarkTo(TabBox place) {
    marks_.ExtendTo(place.tab);
    GoTo(place, Marking::Extends);
    current_->deselect();
    sheet_->update();
}

/// Shift with an arrow marks from tab to tab; to the side it selects in the box's text first.
bool frmGrid2a4::MarkByKey(const QKeyEvent& key, FieldBox& box) {
    if (ModifiersOf(key) != Qt::ShiftModifier)
        return false;
    std::optional<GridMove> move = ArrowMove(key.key(), box);
    if (HasMarks() && key.key() == Qt::Key_Left)
        move = GridMove::PreviousTab;
    if (HasMarks() && key.key() == Qt::Key_Right)
        move = GridMove::NextTab;
    if (!move)
        return false;
    if (const auto place = PlaceAfter(*move, PlaceOf(box), main_.document))
        MarkTo(*place);
    return true;
}

/// Commands of the window, which know the whole document and the marked tabs.
bool frmGrid2a4::IsForWindow(const QKeyEvent& key) const {
    if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) || key.matches(QKeySequence::Paste))
        return true;
    const bool onTabs = HasMarks() || !current_ || !current_->hasSelectedText();
    return (onTabs && (key.matches(QKeySequence::Cut) || key.matches(QKeySequence::Copy))) ||
           (HasMarks() && (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace));
}

bool frmGrid2a4::KeyPressed(const QKeyEvent& key, FieldBox& box) {
    const bool allSelected = box.selectedText().size() == box.text().size();
    if (key.matches(QKeySequence::SelectAll) && allSelected) {
        MarkAllTabs();
        return true;
    }
    if (key.key() == Qt::Key_Escape && HasMarks()) {
        EndMarking(PlaceOf(box).tab);
        return true;
    }
    if (MarkByKey(key, box))
        return true;
    const auto move = MoveOf(key, box);
    if (move)
        Trapped(main_.ui, "Called from Sub: frmGrid2a4", [&] { Move(*move, PlaceOf(box)); });
    return move.has_value();
}

/// Shift marks up to the tab, Ctrl marks it beside others; without either the marking ends.
bool frmGrid2a4::MousePressed(const QMouseEvent& mouse, FieldBox& box) {
    dragged_ = 0;
    const std::int32_t tab = PlaceOf(box).tab;
    if (mouse.button() != Qt::LeftButton)
        return false;
    const bool extends = mouse.modifiers().testFlag(Qt::ShiftModifier);
    if (!extends && !mouse.modifiers().testFlag(Qt::ControlModifier)) {
        EndMarking(tab);
        return false;
    }
    if (extends) {
        MarkTo(PlaceOf(box));
        return true;
    }
    marks_.Toggle(tab);
    GoTo(PlaceOf(box), Marking::Extends);
    current_->deselect();
    return true;
}

/// Within its tab the mouse selects text, beyond it tabs.
bool frmGrid2a4::MouseDragged(const QMouseEvent& mouse, FieldBox& box) {
    if (!mouse.buttons().testFlag(Qt::LeftButton))
        return false;
    const QPoint place = box.mapTo(sheet_, mouse.position().toPoint());
    const int slot = sheet_->SlotNear(place);
    if (dragged_ == 0 && slot == box.Slot())
        return false;
    if (slot != dragged_) {
        dragged_ = slot;
        marks_.ExtendTo(PlaceOf(box).tab + slot - box.Slot());
        box.deselect();
        sheet_->update();
    }
    ensureVisible(place.x(), place.y());
    return true;
}

/// Over marked tabs the menu is for them; elsewhere for the box.
bool frmGrid2a4::WantsMenu(const QPoint& place, FieldBox& box) {
    if (const TabBox at = PlaceOf(box); !marks_.Has(at.tab) && current_ != &box)
        GoTo(at, Marking::Ends);
    emit MenuWanted(place);
    return true; // the box's own menu would change it alone
}

bool frmGrid2a4::BoxEvent(FieldBox& box, QEvent& event) {
    switch (event.type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (const auto& key = static_cast<const QKeyEvent&>(event); !IsForWindow(key))
            return event.type() == QEvent::KeyPress && KeyPressed(key, box);
        event.ignore();
        return true;
    case QEvent::MouseButtonPress: return MousePressed(static_cast<const QMouseEvent&>(event), box);
    case QEvent::MouseMove: return MouseDragged(static_cast<const QMouseEvent&>(event), box);
    case QEvent::ContextMenu: return WantsMenu(static_cast<const QContextMenuEvent&>(event).globalPos(), box);
    case QEvent::ToolTip:
        QToolTip::showText(static_cast<const QHelpEvent&>(event).globalPos(),
                           QString::fromStdString(LossText(sheet_->LossOf(box.Slot(), box.Field()))), &box);
        return true;
    case QEvent::FocusOut:
        // What is selected stays selected for the command.
        return static_cast<const QFocusEvent&>(event).reason() == Qt::MenuBarFocusReason;
    case QEvent::DragEnter:
        if (!static_cast<const QDragEnterEvent&>(event).mimeData()->hasUrls())
            return false;
        event.ignore(); // a file is for the window, which opens it
        return true;
    case QEvent::FocusIn:
        // The mouse gives the focus before it says whether it marks.
        if (!HasMarks() && static_cast<const QFocusEvent&>(event).reason() != Qt::MouseFocusReason)
            marks_.BeginAt(PlaceOf(box).tab);
        Enter(box);
        ensureWidgetVisible(&box);
        return false;
    default: return false;
    }
}

bool frmGrid2a4::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<FieldBox*>(watched);
    return (box && BoxEvent(*box, *event)) || QScrollArea::eventFilter(watched, event);
}

} // namespace velmora
