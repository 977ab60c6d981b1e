#include "print/ui/frmPreview.h"

#include "print/ui/FindingsBox.h"
#include "print/ui/PrintBox.h"
#include "print/ui/SheetAccessible.h"
#include "print/ui/UsedBox.h"
#include "widgets/Controls.h"
#include "widgets/FormPlace.h"
#include "widgets/HelpRequest.h"
#include "widgets/LineIcon.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr const char* kPositionKey = "frmPreview";
constexpr QSize kFirstSize(1180, 900);
constexpr int kPanelWidth = 270;
constexpr int kIconSize = 20;
constexpr std::array kZoomPercents = {SheetDisplay::kLeastPercent, 33, 50, 67, 75, 100, 125, 150, 200, 300,
                                      SheetDisplay::kMostPercent};
constexpr int kFitPage = 0; // as the zoom box's data, beside percents
constexpr int kFitWidth = -1;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

frmPreview::frmPreview(PrintRun& run, QWidget* parent)
    : QDialog(parent), run_(run), display_(new SheetDisplay(run.Catalogue(), run.Main().fonts, this)) {
    InstallSheetAccessibility();
    setObjectName("frmPreview");
    setWindowTitle(Text(run.Caption()));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(display_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(BuildToolBar());
    layout->addLayout(middle, 1);
    middle->addWidget(BuildPanel());
    Connect();
    Begin();
    resize(kFirstSize.boundedTo(screen()->availableSize() * 9 / 10));
    setTabOrder(chkOutlines_, display_);
    display_->setFocus();
}

/// With the tabs that the run was made for, and the labels that an earlier job left.
void frmPreview::Begin() {
    const TabNumbers tabs = run_.ChosenTabs();
    if (!tabs.empty())
        run_.ChooseTabs(std::nullopt); // whose sheets are counted first
    usedBox_->Begin(!tabs.empty());
    ShowCounts();
    ShowSheet(1);
    printBox_->Begin(tabs);
}

QAction* frmPreview::AddAction(QToolBar& bar, const char* name, const char* icon, const QString& text,
                               const QList<QKeySequence>& keys) {
    QAction* action = Named(bar.addAction(LineIcon(icon), text), name);
    action->setShortcuts(keys);
    action->setToolTip(text + " (" + keys.first().toString(QKeySequence::NativeText) + ")");
    return action;
}

QToolBar* frmPreview::BuildToolBar() {
    auto* bar = new QToolBar;
    bar->setIconSize({kIconSize, kIconSize});
    AddPages(*bar);
    bar->addSeparator();
    AddZoom(*bar);
    bar->addSeparator();
    chkOutlines_ = Named(new QCheckBox(tr("&Outlines of the tabs")), "chkOutlines");
    chkOutlines_->setToolTip(tr("Only on the screen: outlines are never printed"));
    chkOutlines_->setChecked(true);
    bar->addWidget(chkOutlines_);
    return bar;
}

void frmPreview::AddPages(QToolBar& bar) {
    cmdFirst_ = AddAction(bar, "cmdFirst", "first", tr("First Sheet"), {Qt::Key_Home});
    cmdPrevious_ = AddAction(bar, "cmdPrevious", "previous", tr("Previous Sheet"), {Qt::Key_PageUp});
    txtPage_ = Named(new QSpinBox, "txtPage");
    txtPage_->setAccessibleName(tr("Sheet"));
    txtPage_->setKeyboardTracking(false);
    txtPage_->setAlignment(Qt::AlignRight);
    txtPage_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    lblPages_ = Named(new QLabel, "lblPages");
    lblPages_->setMargin(4);
    bar.addWidget(txtPage_);
    bar.addWidget(lblPages_);
    cmdNext_ = AddAction(bar, "cmdNext", "next", tr("Next Sheet"), {Qt::Key_PageDown});
    cmdLast_ = AddAction(bar, "cmdLast", "last", tr("Last Sheet"), {Qt::Key_End});
}

void frmPreview::AddZoom(QToolBar& bar) {
    cmdZoomOut_ = AddAction(bar, "cmdZoomOut", "zoom-out", tr("Smaller"), {QKeySequence::ZoomOut});
    cboZoom_ = Named(new QComboBox, "cboZoom");
    SetPurpose(*cboZoom_, tr("Size"));
    cboZoom_->addItem(tr("Fit Page"), kFitPage);
    cboZoom_->addItem(tr("Fit Width"), kFitWidth);
    for (const int percent : kZoomPercents)
        cboZoom_->addItem(tr("%1 %").arg(percent), percent);
    bar.addWidget(cboZoom_);
    cmdZoomIn_ = AddAction(bar, "cmdZoomIn", "zoom-in", tr("Larger"),
                           {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    auto* actual = Named(new QAction(this), "cmdActualSize");
    actual->setShortcut(Qt::CTRL | Qt::Key_0);
    addAction(actual);
    connect(actual, &QAction::triggered, this, [this] { cboZoom_->setCurrentIndex(cboZoom_->findData(100)); });
}

/// On a low screen, or with large letters, the boxes scroll; Close stays.
QWidget* frmPreview::BuildPanel() {
    auto* panel = new QWidget(this);
    panel->setFixedWidth(std::max(kPanelWidth, fontMetrics().averageCharWidth() * 38));
    auto* scroller = new QScrollArea;
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller->setWidgetResizable(true);
    scroller->setWidget(BuildBoxes());
    auto* cmdClose = Named(new QPushButton(tr("&Close")), "cmdClose");
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    auto* foot = new QHBoxLayout;
    foot->addWidget(MakeHelpButton());
    foot->addStretch();
    foot->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(panel);
    foot->setContentsMargins(layout->contentsMargins());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(scroller, 1);
    layout->addLayout(foot);
    return panel;
}

QWidget* frmPreview::BuildBoxes() {
    auto* boxes = new QWidget(this);
    printBox_ = new PrintBox(run_, boxes);
    usedBox_ = new UsedBox(run_, boxes);
    findings_ = new FindingsBox(run_, boxes);
    auto* layout = new QVBoxLayout(boxes);
    layout->addWidget(printBox_);
    layout->addWidget(usedBox_);
    layout->addWidget(findings_, 1);
    layout->addStretch();
    return boxes;
}

void frmPreview::Connect() {
    connect(cmdFirst_, &QAction::triggered, this, [this] { ShowSheet(1); });
    connect(cmdPrevious_, &QAction::triggered, this, [this] { ShowSheet(sheet_ - 1); });
    connect(cmdNext_, &QAction::triggered, this, [this] { ShowSheet(sheet_ + 1); });
    connect(cmdLast_, &QAction::triggered, this, [this] { ShowSheet(run_.Report().SheetCount()); });
    connect(txtPage_, &QSpinBox::valueChanged, this, &frmPreview::ShowSheet);
    connect(cboZoom_, &QComboBox::currentIndexChanged, this, &frmPreview::ZoomChosen);
    connect(cmdZoomIn_, &QAction::triggered, this, [this] { StepZoom(1); });
    connect(cmdZoomOut_, &QAction::triggered, this, [this] { StepZoom(-1); });
    connect(chkOutlines_, &QCheckBox::toggled, display_, &SheetDisplay::ShowOutlines);
    connect(usedBox_, &UsedBox::Changed, this, &frmPreview::ShowRun);
    connect(usedBox_, &UsedBox::MarkingBegins, display_, [this] { display_->setFocus(); }); // for the arrow keys
    connect(printBox_, &PrintBox::TabsChosen, this, &frmPreview::ShowRun);
    connect(printBox_, &PrintBox::Printed, usedBox_, &UsedBox::Keep);
    connect(display_, &SheetDisplay::SlotToggled, usedBox_, &UsedBox::Toggle);
    connect(display_, &SheetDisplay::SlotReached, usedBox_, &UsedBox::ExtendTo);
    connect(display_, &SheetDisplay::ZoomAsked, this, &frmPreview::StepZoom);
    // Queued: the sheet comes before what is said of it.
    connect(display_, &SheetDisplay::Painted, findings_, &FindingsBox::StartCheck, Qt::QueuedConnection);
    connect(findings_, &FindingsBox::Chosen, this, &frmPreview::ShowFinding);
    connect(findings_, &FindingsBox::EditAsked, this, [this](TabBox box) {
        wanted_ = box;
        reject();
    });
}

void frmPreview::setVisible(bool visible) {
    if (visible && !isVisible())
        RestorePlace(*this, run_.Main().settings, kPositionKey);
    QDialog::setVisible(visible);
}

void frmPreview::hideEvent(QHideEvent* event) {
    findings_->StopCheck();
    if (!event->spontaneous())
        SavePlace(*this, run_.Main().settings, kPositionKey);
    QDialog::hideEvent(event);
}

/// Enter prints, but not where it has a meaning of its own.
void frmPreview::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || !txtPage_->hasFocus())
        QDialog::keyPressEvent(event);
}

/// No effect for a number outside the run.
void frmPreview::ShowSheet(int number) {
    const int count = run_.Report().SheetCount();
    if (number < 1 || number > count)
        return;
    sheet_ = number;
    Sheet sheet;
    run_.Report().LayOutSheet(number, sheet);
    display_->SetSheet(std::move(sheet));
    display_->SetUsedSlots(number == 1 ? usedBox_->Labels() : std::nullopt);
    display_->setAccessibleName(tr("Sheet %1 of %2").arg(number).arg(count));
    txtPage_->setValue(number);
    cmdFirst_->setEnabled(number > 1);
    cmdPrevious_->setEnabled(number > 1);
    cmdNext_->setEnabled(number < count);
    cmdLast_->setEnabled(number < count);
    printBox_->ShowChoice(number);
}

/// After the number of sheets may have changed.
void frmPreview::ShowCounts() {
    const int count = run_.Report().SheetCount();
    txtPage_->setRange(1, count);
    lblPages_->setText(tr("of %1").arg(count));
    printBox_->ShowCounts();
}

void frmPreview::ZoomChosen() {
    const int zoom = cboZoom_->currentData().toInt();
    if (zoom > 0)
        display_->SetZoom(Zoom::Scale, zoom);
    else
        display_->SetZoom(zoom == kFitPage ? Zoom::FitPage : Zoom::FitWidth);
    cmdZoomIn_->setEnabled(zoom != kZoomPercents.back());
    cmdZoomOut_->setEnabled(zoom != kZoomPercents.front());
}

/// To the next percents above or below what is seen.
void frmPreview::StepZoom(int steps) {
    constexpr double kSame = 0.5;
    const double shown = display_->Percent();
    const auto first = kZoomPercents.begin(), last = kZoomPercents.end() - 1;
    auto next = steps > 0 ? std::upper_bound(first, last, shown + kSame) : std::lower_bound(first, last, shown - kSame);
    if (steps < 0 && next != first)
        --next;
    cboZoom_->setCurrentIndex(cboZoom_->findData(*next));
}

/// After it was prepared anew.
void frmPreview::ShowRun() {
    usedBox_->ShowPlaces();
    ShowCounts();
    ShowSheet(1);
    findings_->StartCheck();
}

void frmPreview::ShowFinding(const PrintFinding& finding) {
    if (finding.sheet != sheet_)
        ShowSheet(finding.sheet);
    display_->MarkSlot(finding.slot);
}

void PreviewViewer::ShowReport(PrintRun& run) {
    frmPreview form(run, &owner_);
    form.exec();
    if (form.Wanted())
        run.Main().editor->ShowText(*form.Wanted(), 0, std::string::npos);
}

} // namespace velmora
