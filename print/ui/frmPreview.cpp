#include "print/ui/frmPreview.h"

#include "document/Dialogs.h"
#include "document/ui/FormPlace.h"
#include "document/ui/HelpRequest.h"
#include "document/ui/LineIcon.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
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
constexpr qint64 kSliceMs = 10;
constexpr std::array kZoomPercents = {SheetDisplay::kLeastPercent, 33, 50, 67, 75, 100, 125, 150, 200, 300,
                                      SheetDisplay::kMostPercent};
constexpr int kFitPage = 0; // as the zoom box's data, beside percents
constexpr int kFitWidth = -1;

template <typename Control> Control* Named(Control* control, const char* name) {
    control->setObjectName(name);
    return control;
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

/// The first in capitals: what stands alone is a sentence.
QString Sentence(const char* text) {
    QString sentence = QString::fromUtf8(text);
    return sentence.left(1).toUpper() + sentence.mid(1) + ".";
}

} // namespace

frmPreview::frmPreview(PrintRun& run, QWidget* parent)
    : QDialog(parent), run_(run), findings_(new FindingList(this)),
      display_(new SheetDisplay(run.Catalogue(), run.Main().fonts, this)) {
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
    ShowCounts();
    ShowSheet(1);
    ShowFindings();
    resize(kFirstSize.boundedTo(screen()->availableSize() * 9 / 10));
    cmdPrint_->setDefault(true);
    display_->setFocus();
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
    cboZoom_->setAccessibleName(tr("Size"));
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

QWidget* frmPreview::BuildPanel() {
    auto* panel = new QWidget;
    panel->setFixedWidth(std::max(kPanelWidth, fontMetrics().averageCharWidth() * 38));
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(BuildPrintBox());
    layout->addWidget(BuildUsedBox());
    layout->addWidget(BuildFindingBox(), 1);
    layout->addStretch();
    auto* cmdClose = Named(new QPushButton(tr("&Close")), "cmdClose");
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    auto* foot = new QHBoxLayout;
    foot->addWidget(MakeHelpButton());
    foot->addStretch();
    foot->addWidget(cmdClose);
    layout->addLayout(foot);
    return panel;
}

QGroupBox* frmPreview::BuildPrintBox() {
    auto* box = new QGroupBox(tr("Print on %1").arg(Text(run_.Report().Printer.DeviceName).replace('&', "&&")));
    auto* layout = new QVBoxLayout(box);
    optSheets_ = new QButtonGroup(this);
    const auto add = [&](SheetChoice choice, const char* name, const QString& text) {
        auto* option = Named(new QRadioButton(text), name);
        optSheets_->addButton(option, static_cast<int>(choice));
        return option;
    };
    layout->addWidget(add(SheetChoice::All, "optAll", ""));
    layout->addWidget(add(SheetChoice::Shown, "optShown", ""));
    layout->addWidget(add(SheetChoice::Filled, "optFilled", ""));
    txtRange_ = Named(new QLineEdit, "txtRange");
    txtRange_->setPlaceholderText("1-3,7");
    txtRange_->setAccessibleName(tr("Sheets to print"));
    auto* range = new QHBoxLayout;
    range->addWidget(add(SheetChoice::Range, "optRange", tr("S&heets:")));
    range->addWidget(txtRange_, 1);
    layout->addLayout(range);
    lblRange_ = Named(new QLabel, "lblRange");
    lblPrinted_ = Named(new QLabel, "lblPrinted");
    cmdPrint_ = Named(new QPushButton(tr("&Print")), "cmdPrint");
    cmdSavePdf_ = Named(new QPushButton(tr("Save as P&DF ...")), "cmdSavePdf");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdSavePdf_);
    buttons->addWidget(cmdPrint_, 1);
    layout->addWidget(lblRange_);
    layout->addLayout(buttons);
    layout->addWidget(lblPrinted_);
    for (QLabel* label : {lblRange_, lblPrinted_}) {
        label->setWordWrap(true);
        label->hide();
    }
    optSheets_->button(static_cast<int>(SheetChoice::All))->setChecked(true);
    return box;
}

QGroupBox* frmPreview::BuildUsedBox() {
    auto* box = new QGroupBox(tr("First sheet"));
    chkPartlyUsed_ = Named(new QCheckBox(tr("Partly &used")), "chkPartlyUsed");
    chkPartlyUsed_->setToolTip(tr("The tabs flow around the labels that are gone, for this job only"));
    cmdClearUsed_ = Named(new QPushButton(tr("C&lear")), "cmdClearUsed");
    cmdClearUsed_->setEnabled(false);
    auto* line = new QHBoxLayout;
    line->addWidget(chkPartlyUsed_, 1);
    line->addWidget(cmdClearUsed_);
    auto* lblUsed = Named(new QLabel(tr("Click the labels that are gone, or move with the arrow keys and strike out "
                                        "with the space bar.")),
                          "lblUsed");
    lblUsed->setWordWrap(true);
    lblUsed->hide();
    connect(chkPartlyUsed_, &QCheckBox::toggled, lblUsed, &QWidget::setVisible);
    auto* layout = new QVBoxLayout(box);
    layout->addLayout(line);
    layout->addWidget(lblUsed);
    return box;
}

QGroupBox* frmPreview::BuildFindingBox() {
    fraFindings_ = Named(new QGroupBox, "fraFindings");
    lblChecking_ = Named(new QLabel(tr("Checking the texts ...")), "lblChecking");
    lstFindings_ = Named(new QListView, "lstFindings");
    lstFindings_->setAccessibleName(tr("Before printing"));
    lstFindings_->setModel(findings_);
    lstFindings_->setUniformItemSizes(true);
    lstFindings_->installEventFilter(this);
    lstFindings_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the tool tip has all of a line
    cmdEditTab_ = Named(new QPushButton(tr("&Edit This Tab")), "cmdEditTab");
    auto* layout = new QVBoxLayout(fraFindings_);
    layout->addWidget(lblChecking_);
    layout->addWidget(lstFindings_, 1);
    layout->addWidget(cmdEditTab_);
    return fraFindings_;
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
    connect(optSheets_, &QButtonGroup::idToggled, this, &frmPreview::ShowChoice);
    connect(txtRange_, &QLineEdit::textEdited, this, [this] {
        optSheets_->button(static_cast<int>(SheetChoice::Range))->setChecked(true);
        ShowChoice();
    });
    connect(cmdPrint_, &QPushButton::clicked, this, [this] { Print(false); });
    connect(cmdSavePdf_, &QPushButton::clicked, this, [this] { Print(true); });
    connect(chkPartlyUsed_, &QCheckBox::toggled, this, [this] {
        ShowUsedSlots();
        display_->setFocus();
    });
    connect(cmdClearUsed_, &QPushButton::clicked, this, [this] {
        used_.clear();
        ShowUsedSlots();
    });
    connect(display_, &SheetDisplay::SlotToggled, this, &frmPreview::ToggleSlot);
    connect(display_, &SheetDisplay::ZoomAsked, this, &frmPreview::StepZoom);
    // Queued: the sheet comes before what is said of it.
    connect(display_, &SheetDisplay::Painted, this, &frmPreview::StartCheck, Qt::QueuedConnection);
    connect(&checkTimer_, &QTimer::timeout, this, &frmPreview::CheckSome);
    connect(lstFindings_->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmPreview::ShowFinding);
    connect(lstFindings_, &QListView::clicked, this, &frmPreview::ShowFinding);
    connect(lstFindings_, &QListView::activated, this, &frmPreview::EditFinding);
    connect(cmdEditTab_, &QPushButton::clicked, this, &frmPreview::EditFinding);
}

void frmPreview::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        RestorePlace(*this, run_.Main().settings, kPositionKey);
    QDialog::showEvent(event);
}

void frmPreview::hideEvent(QHideEvent* event) {
    checkTimer_.stop();
    if (!event->spontaneous())
        SavePlace(*this, run_.Main().settings, kPositionKey);
    QDialog::hideEvent(event);
}

/// In the list of remarks the paging keys are the list's.
bool frmPreview::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstFindings_ && event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End)
            event->accept();
    }
    return QDialog::eventFilter(watched, event);
}

/// Enter prints, but not where it has a meaning of its own.
void frmPreview::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || (!txtPage_->hasFocus() && !lstFindings_->hasFocus()))
        QDialog::keyPressEvent(event);
}

/// A number outside the run changes nothing.
void frmPreview::ShowSheet(int number) {
    const int count = run_.Report().SheetCount();
    if (number < 1 || number > count)
        return;
    sheet_ = number;
    Sheet sheet;
    run_.Report().LayOutSheet(number, sheet);
    display_->SetSheet(std::move(sheet));
    display_->SetUsedSlots(chkPartlyUsed_->isChecked() && number == 1 ? std::optional(used_) : std::nullopt);
    txtPage_->setValue(number);
    cmdFirst_->setEnabled(number > 1);
    cmdPrevious_->setEnabled(number > 1);
    cmdNext_->setEnabled(number < count);
    cmdLast_->setEnabled(number < count);
    ShowChoice();
}

/// After the number of sheets may have changed.
void frmPreview::ShowCounts() {
    const int count = run_.Report().SheetCount();
    txtPage_->setRange(1, count);
    lblPages_->setText(tr("of %1").arg(count));
    const auto label = [&](SheetChoice choice, const QString& text) {
        optSheets_->button(static_cast<int>(choice))->setText(text);
    };
    label(SheetChoice::All, tr("&All sheets (%1)").arg(count));
    label(SheetChoice::Shown, tr("&This sheet"));
    label(SheetChoice::Filled, tr("&Filled sheets only (%1)").arg(run_.Report().FilledSheets().size()));
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

std::vector<int> frmPreview::ChosenSheets() const {
    return run_.Sheets(static_cast<SheetChoice>(optSheets_->checkedId()), sheet_, txtRange_->text().toStdString());
}

/// Says beside the choice why it cannot be printed; a range that is still to come is no mistake.
void frmPreview::ShowChoice() {
    lblPrinted_->hide();
    QString fault;
    try {
        ChosenSheets();
    } catch (const std::exception& error) {
        fault = Sentence(error.what());
    }
    const bool waiting = optSheets_->checkedId() == static_cast<int>(SheetChoice::Range) && txtRange_->text().isEmpty();
    lblRange_->setText(waiting ? "" : fault);
    lblRange_->setVisible(!lblRange_->text().isEmpty());
    cmdPrint_->setEnabled(fault.isEmpty());
    cmdSavePdf_->setEnabled(fault.isEmpty());
}

void frmPreview::Print(bool toFile) {
    const std::vector<int> sheets = ChosenSheets();
    const bool file = toFile || run_.Report().Printer.DeviceName == kPdfPrinter;
    if (!(toFile ? run_.SaveAsPdf(sheets) : run_.Print(sheets)))
        return;
    lblPrinted_->setText((file ? tr("%n sheet(s) saved as PDF.", nullptr, static_cast<int>(sheets.size()))
                               : tr("%n sheet(s) sent to the printer.", nullptr, static_cast<int>(sheets.size())))
                             .replace("(s)", sheets.size() == 1 ? "" : "s"));
    lblPrinted_->show();
}

void frmPreview::ToggleSlot(int slot) {
    if (used_.erase(slot) == 0)
        used_.insert(slot);
    if (used_.size() == display_->Shown().tabs.size())
        used_.erase(slot); // one must be left
    ShowUsedSlots();
}

void frmPreview::ShowUsedSlots() {
    const bool partly = chkPartlyUsed_->isChecked();
    cmdClearUsed_->setEnabled(partly && !used_.empty());
    if (!run_.SetUsedSlots(partly ? std::vector<int>(used_.begin(), used_.end()) : std::vector<int>{}))
        return;
    ShowCounts();
    ShowSheet(1);
    StartCheck();
}

void frmPreview::StartCheck() {
    findings_->Clear();
    check_.reset();
    checkTimer_.start(0);
}

/// A slice at a time, so that the window stays alive.
void frmPreview::CheckSome() {
    std::vector<PrintFinding> found;
    try {
        if (!check_)
            check_.emplace(run_.Check());
        QElapsedTimer clock;
        for (clock.start(); !check_->IsDone() && clock.elapsed() < kSliceMs;)
            check_->CheckSheet(found);
        if (check_->IsDone())
            checkTimer_.stop();
    } catch (const std::exception&) {
        checkTimer_.stop(); // the sheet shows the error in its place
    }
    findings_->Append(found);
    ShowFindings();
}

/// Nothing is shown where there is nothing to say.
void frmPreview::ShowFindings() {
    const int count = findings_->rowCount();
    const bool checking = checkTimer_.isActive();
    fraFindings_->setTitle(tr("Before printing (%1)").arg(count));
    fraFindings_->setVisible(count > 0 || checking);
    lstFindings_->setVisible(count > 0);
    cmdEditTab_->setVisible(count > 0);
    lblChecking_->setVisible(checking);
    cmdEditTab_->setEnabled(ChosenText() && run_.Main().editor);
}

/// Nothing while no finding on a text is chosen.
const PrintFinding* frmPreview::ChosenText() const {
    const QModelIndex current = lstFindings_->currentIndex();
    return current.isValid() && findings_->At(current.row()).slot > 0 ? &findings_->At(current.row()) : nullptr;
}

void frmPreview::ShowFinding() {
    ShowFindings();
    const PrintFinding* finding = ChosenText();
    if (!finding)
        return;
    if (finding->sheet != sheet_)
        ShowSheet(finding->sheet);
    display_->MarkSlot(finding->slot);
}

/// The button is still enabled for a moment when a new check has emptied the list.
void frmPreview::EditFinding() {
    const PrintFinding* finding = ChosenText();
    if (!finding || !run_.Main().editor)
        return;
    wanted_ = finding->box;
    reject();
}

void PreviewViewer::ShowReport(PrintRun& run) {
    frmPreview form(run, &owner_);
    form.exec();
    if (form.Wanted() && run.Main().editor)
        run.Main().editor->ShowText(*form.Wanted(), 0, std::string::npos);
}

} // namespace velmora
