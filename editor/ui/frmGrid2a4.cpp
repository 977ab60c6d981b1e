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
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace velmora {
namespace {

constexpr int kWholePercent = 100;

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
      sheet_(new GridSheet(main.document, marks_, catalogue, this)), input_(new GridInput(*this, this)) {
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

/// The boxes stay, since what comes next most often needs as many.
void frmGrid2a4::TakeDown() {
    if (current_)
        current_->Close();
    current_ = nullptr;
    shown_.clear();
    marks_.Set({});
    sheet_->SetCurrent(0, 0);
}

void frmGrid2a4::BringUp() {
    RefreshDocumentStatus(main_);
    SetLablesOnGrid();
    ShowTexts();
    FocusTab();
}

std::vector<TabTexts> frmGrid2a4::ShownTexts() const {
    std::vector<TabTexts> texts = shown_;
    for (std::size_t slot = 0; slot < texts.size(); ++slot)
        for (std::size_t field = 0; field < texts[slot].size(); ++field)
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
    ShowMarks();
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

/// Keeps the boxes when their number is right, as it is on a move to another page and for most documents.
void frmGrid2a4::SetLablesOnGrid() {
    const bool docChanged = main_.document.DocChanged;
    cells_ = LayOutGrid(main_.document);
    sheet_->SetPage(cells_, FieldsOnPaper(), main_.fonts);
    const auto fields = static_cast<std::size_t>(main_.document.setup.NoOfFields);
    const bool fits = boxes_.size() == cells_.size() && (fields == 3 || !boxes_[0][fields]) && boxes_[0][fields - 1];
    if (!fits)
        MakeBoxes(cells_.size(), fields);
    PlaceBoxes();
    main_.document.DocChanged = docChanged;
}

void frmGrid2a4::MakeBoxes(std::size_t tabs, std::size_t fields) {
    for (const auto& old : boxes_)
        for (FieldBox* box : old)
            delete box;
    boxes_.assign(tabs, {});
    for (std::size_t slot = 0; slot < tabs; ++slot)
        for (std::size_t field = 0; field < fields; ++field)
            boxes_[slot][field] = MakeBox(static_cast<int>(field), static_cast<int>(slot) + 1);
}

FieldBox* frmGrid2a4::MakeBox(int field, int slot) {
    auto* box = new FieldBox(slot, field, sheet_);
    box->installEventFilter(input_);
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
        TakeFocus(*boxes_[0][0], true); // no focus event comes where it had the focus, or the window is in the background
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
    const GridBox grid = sheet_->GridTwips();
    const GridSize twips{static_cast<double>(grid.width), static_cast<double>(grid.height)};
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

void frmGrid2a4::Move(GridMove move, const FieldBox& from) {
    Trapped(main_.ui, "Called from Sub: frmGrid2a4", [&] { MoveFrom(PlaceOf(from), move); });
}

/// Over the end of the last page a person is asked for another one.
void frmGrid2a4::MoveFrom(TabBox from, GridMove move) {
    std::optional<TabBox> place = PlaceAfter(move, from, main_.document);
    if (!place && (move == GridMove::NextBox || move == GridMove::NextTab)) {
        NextPage(main_);
        place = PlaceAfter(move, from, main_.document);
    }
    if (place)
        GoTo(*place, Marking::Ends);
}

void frmGrid2a4::EndMarking(std::int32_t tab) {
    if (HasMarks())
        sheet_->update();
    marks_.BeginAt(tab);
}

void frmGrid2a4::EndMarking(const FieldBox& box) {
    EndMarking(PlaceOf(box).tab);
}

void frmGrid2a4::MarkUpTo(TabBox place) {
    marks_.ExtendTo(place.tab);
    GoTo(place, Marking::Extends);
    ShowMarks();
}

void frmGrid2a4::MarkTo(const FieldBox& box) {
    MarkUpTo(PlaceOf(box));
}

void frmGrid2a4::MarkFrom(const FieldBox& box, GridMove move) {
    if (const auto place = PlaceAfter(move, PlaceOf(box), main_.document))
        MarkUpTo(*place);
}

void frmGrid2a4::ToggleMark(const FieldBox& box) {
    marks_.Toggle(PlaceOf(box).tab);
    GoTo(PlaceOf(box), Marking::Extends);
    ShowMarks();
}

void frmGrid2a4::DragTo(const FieldBox& from, int slot) {
    marks_.ExtendTo(PlaceOf(from).tab + slot - from.Slot());
    ShowMarks();
}

/// What is selected in a box stands back behind marked tabs.
void frmGrid2a4::ShowMarks() {
    if (current_)
        current_->deselect();
    sheet_->update();
}

/// Over marked tabs the menu is for them; elsewhere for the box.
void frmGrid2a4::AskForMenu(const FieldBox& box, const QPoint& place) {
    if (const TabBox at = PlaceOf(box); !marks_.Has(at.tab) && current_ != &box)
        GoTo(at, Marking::Ends);
    emit MenuWanted(place);
}

int frmGrid2a4::ScrollTo(const FieldBox& from, const QPoint& place) {
    const QPoint onSheet = from.mapTo(sheet_, place);
    ensureVisible(onSheet.x(), onSheet.y());
    return sheet_->SlotNear(onSheet);
}

/// While the editor is down a question may give a box the focus back, and the document has no such tab yet.
void frmGrid2a4::TakeFocus(FieldBox& box, bool mayMark) {
    if (shown_.empty())
        return;
    if (mayMark && !HasMarks())
        marks_.BeginAt(PlaceOf(box).tab);
    Enter(box);
    ensureWidgetVisible(&box);
}

QString frmGrid2a4::ToolTipOf(const FieldBox& box) const {
    return QString::fromStdString(LossText(sheet_->LossOf(box.Slot(), box.Field())));
}

} // namespace velmora
