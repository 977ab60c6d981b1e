#include "setup/ui/frmFix3.h"

#include "report/ui/PainterCanvas.h"
#include "setup/CalibrationSheet.h"
#include "widgets/Controls.h"
#include "widgets/ElidedLabel.h"
#include "widgets/HelpRequest.h"
#include "widgets/PaperColours.h"
#include "workspace/Dialogs.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr QSize kPictureRoom(400, 380);
constexpr QSize kLeastRoom(280, 260); // of a picture on a small screen
constexpr double kMostPixels = 1e6;   // further off nothing is seen
constexpr int kArrowSize = 32;
constexpr int kStepLetters = 60;
constexpr int kStepGap = 10;

Qt::Key ArrowKey(MarginArrow arrow) {
    switch (arrow) {
    case MarginArrow::Left: return Qt::Key_Left;
    case MarginArrow::Right: return Qt::Key_Right;
    case MarginArrow::Up: return Qt::Key_Up;
    case MarginArrow::Down: return Qt::Key_Down;
    }
    return Qt::Key_unknown;
}

} // namespace

SheetPicture::SheetPicture(Sheet sheet, QWidget* parent)
    : QWidget(parent), sheet_(std::move(sheet)), size_(ToRect(sheet_.paper.AsRead()).size()),
      columns_(static_cast<std::size_t>(std::count_if(sheet_.tabs.begin(), sheet_.tabs.end(),
                                                      [&](const Box& tab) { return tab.top == sheet_.tabs[0].top; }))),
      paper_(new QWidget(this)) {
    setMinimumSize(size_.scaled(kLeastRoom, Qt::KeepAspectRatio).toSize());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    paper_->installEventFilter(this);
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        frames_[i] = new QLabel(paper_);
        frames_[i]->setObjectName(QString("famPreview%1").arg(i + 1));
        frames_[i]->setFrameShape(QFrame::Box);
        frames_[i]->setAutoFillBackground(true);
        frames_[i]->setBackgroundRole(QPalette::Highlight);
    }
}

QSize SheetPicture::sizeHint() const {
    return size_.scaled(kPictureRoom, Qt::KeepAspectRatio).toSize();
}

void SheetPicture::Place(const std::array<SamplePosition, 4>& samples) {
    samples_ = samples;
    PlaceFrames();
    paper_->update();
}

QRect SheetPicture::Pixels(const Box& box) const {
    const double scale = paper_->width() / size_.width();
    const auto pixel = [&](double twips) {
        return static_cast<int>(std::lround(std::clamp(twips * scale, -kMostPixels, kMostPixels)));
    };
    return {QPoint(pixel(box.left), pixel(box.top)), QPoint(pixel(box.Right()) - 1, pixel(box.Bottom()) - 1)};
}

const Box& SheetPicture::SampleTab(std::size_t sample) const {
    return sheet_.tabs[sample / 2 * columns_ + sample % 2];
}

Box SheetPicture::Moved(const Box& tab) const {
    return tab.Moved(samples_[0].left - Calibration::kUnshifted[0].left,
                     samples_[0].top - Calibration::kUnshifted[0].top);
}

void SheetPicture::PlaceFrames() {
    for (std::size_t i = 0; i < frames_.size(); ++i)
        frames_[i]->setGeometry(Pixels(Moved(SampleTab(i))));
}

void SheetPicture::resizeEvent(QResizeEvent*) {
    const QSize paper = size_.scaled(size(), Qt::KeepAspectRatio).toSize();
    paper_->setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, paper, rect()));
    PlaceFrames();
}

bool SheetPicture::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint)
        PaintPaper();
    return QWidget::eventFilter(watched, event);
}

/// The frames lie over their own tabs, in the same colours.
void SheetPicture::PaintPaper() {
    QPainter painter(paper_);
    QColor line = kInk;
    line.setAlphaF(0.5F);
    painter.setPen(line);
    painter.setBrush(kPaper);
    painter.drawRect(paper_->rect().adjusted(0, 0, -1, -1));
    painter.setPen(QPen(line, 1, Qt::DashLine));
    for (const Box& tab : sheet_.tabs)
        painter.drawRect(Pixels(tab).adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.setBrush(palette().color(QPalette::Highlight));
    for (const Box& tab : sheet_.tabs)
        painter.drawRect(Pixels(Moved(tab)).adjusted(0, 0, -1, -1));
}

frmFix3::frmFix3(PrintModule& print, QWidget* parent)
    : PlacedDialog(print.main.settings, "fix3", parent), print_(print), calibration_(print.main) {
    setObjectName("frmFix3");
    setWindowTitle(tr("Margin Setup"));
    BuildUi();
    ShowMargins();
    picture_->Place(calibration_.Samples());
}

/// Steps as long as it is held, by its key too wherever no box needs that.
QToolButton* frmFix3::ArrowButton(const char* name, const QString& word, Qt::ArrowType look, MarginArrow arrow) {
    auto* button = Named(new QToolButton, name);
    button->setArrowType(look);
    button->setShortcut(ArrowKey(arrow));
    button->setToolTip(word);
    button->setAccessibleName(word);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMinimumSize(kArrowSize, kArrowSize);
    connect(button, &QToolButton::clicked, this, [this, arrow] {
        calibration_.Arrow(arrow);
        ShowMargins();
    });
    return button;
}

QLayout* frmFix3::BuildDrawing() {
    DrawnSheet drawn = calibration_.Drawing();
    picture_ = new SheetPicture(std::move(drawn.sheet), this);
    auto* arrows = new QGridLayout;
    arrows->addWidget(ArrowButton("cmdUp", tr("Up"), Qt::UpArrow, MarginArrow::Up), 0, 1, Qt::AlignHCenter);
    arrows->addWidget(ArrowButton("cmdLeft", tr("Left"), Qt::LeftArrow, MarginArrow::Left), 1, 0);
    arrows->addWidget(ArrowButton("cmdRht", tr("Right"), Qt::RightArrow, MarginArrow::Right), 1, 2);
    arrows->addWidget(ArrowButton("cmdDown", tr("Down"), Qt::DownArrow, MarginArrow::Down), 2, 1, Qt::AlignHCenter);
    arrows->addWidget(picture_, 1, 1);
    arrows->setRowStretch(1, 1);
    arrows->setColumnStretch(1, 1);
    auto* column = new QVBoxLayout;
    column->addLayout(arrows, 1);
    QString hint = tr("An arrow moves the print by one millimetre. The dashed tabs show margins of 0.");
    if (!drawn.problem.empty())
        hint = tr("%1. The drawing shows the usual place of the tabs.").arg(QString::fromStdString(drawn.problem));
    AddText(*column, hint, picture_->minimumWidth() + 2 * kArrowSize)->setObjectName("lblHint");
    return column;
}

/// Wrapped, and whole: a window may become no smaller than its texts.
QLabel* frmFix3::AddText(QBoxLayout& column, const QString& text, int width) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    label->setMinimumHeight(label->heightForWidth(width));
    column.addWidget(label);
    return label;
}

QPushButton* frmFix3::AddButton(QBoxLayout& row, const char* name, const QString& caption,
                                const std::function<void()>& work) {
    auto* button = Named(new QPushButton(caption), name);
    button->setAutoDefault(false);
    row.addWidget(button, 0, Qt::AlignLeft);
    connect(button, &QPushButton::clicked, this,
            [this, name, work] { Trapped(print_.main.ui, std::string("Called from Sub: ") + name, work); });
    return button;
}

/// With what came of it beside the button: the window's status line lies behind.
QPushButton* frmFix3::AddSheet(QBoxLayout& column, const char* name, const QString& caption,
                               const std::function<std::optional<std::string>()>& print) {
    auto* row = new QHBoxLayout;
    auto* label = Named(new ElidedLabel(true, Elided::Middle), "lblSheet");
    auto* button = AddButton(*row, name, caption, [this, label, print] {
        const QString done = QString::fromStdString(print().value_or(""));
        label->Show(done);
        printed_.Give(focusWidget(), done);
    });
    row->addWidget(label, 1);
    column.addLayout(row);
    return button;
}

AnswerLabel* frmFix3::AddAnswer(QBoxLayout& column, const char* name, int lines) {
    auto* label = Named(new AnswerLabel, name);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setMinimumHeight(lines * fontMetrics().lineSpacing());
    column.addWidget(label);
    return label;
}

QLayout* frmFix3::BuildEntries() {
    txtMarLeft_ = Named(new QLineEdit, "txtMarLeft");
    txtMarTop_ = Named(new QLineEdit, "txtMarTop");
    auto* row = new QHBoxLayout;
    const auto addEntry = [&](const QString& caption, QLineEdit* box, MarginBox margin) {
        connect(box, &QLineEdit::textChanged, this, [this, margin](const QString& text) {
            calibration_.Typed(margin, text.toStdString());
            picture_->Place(calibration_.Samples());
            ShowMove();
        });
        auto* label = new QLabel(caption);
        label->setBuddy(box);
        row->addWidget(label);
        row->addWidget(box, 1);
        row->addWidget(new QLabel(tr("mm")));
    };
    addEntry(tr("&Left margin:"), txtMarLeft_, MarginBox::Left);
    row->addSpacing(kStepGap);
    addEntry(tr("&Top margin:"), txtMarTop_, MarginBox::Top);
    return row;
}

/// The four steps, from the sheet to print to the sheet that shows whether it was right.
QWidget* frmFix3::BuildSteps() {
    auto* steps = new QWidget;
    const int width = kStepLetters * fontMetrics().averageCharWidth();
    steps->setFixedWidth(width);
    auto* column = new QVBoxLayout(steps);
    column->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString& text) { AddText(*column, text, width); };
    add(tr("1. Print the calibration sheet on the stationery, or on plain paper to hold against it."));
    AddSheet(*column, "cmdCalibrationSheet", tr("&Print calibration sheet"),
             [this] { return PrintCalibrationSheet(print_); });
    column->addSpacing(kStepGap);
    add(tr(
        "2. Find where each of its two rulers meets the cut edge of a tab. One shows there the left margin, the other "
        "the top margin."));
    column->addSpacing(kStepGap);
    add(tr("3. Type the two numbers."));
    column->addLayout(BuildEntries());
    lblMove_ = AddAnswer(*column, "lblMove", 2);
    column->addSpacing(kStepGap);
    add(tr("4. Print once more: now each outline lies on the cut edge of its tab."));
    cmdCheckSheet_ = AddSheet(*column, "cmdCheckSheet", tr("Print &check sheet"),
                              [this] { return PrintCheckSheet(print_, calibration_.Margins()); });
    column->addStretch();
    add(QString::fromStdString(calibration_.OwnerText()));
    column->addSpacing(kStepGap);
    AddDefaults(*column);
    return steps;
}

void frmFix3::AddDefaults(QBoxLayout& column) {
    auto* defaults = new QHBoxLayout;
    AddButton(*defaults, "cmdLoadDefaults", tr("Loa&d Defaults"), [this] {
        calibration_.LoadDefaults();
        ShowMargins();
    });
    AddButton(*defaults, "cmdSaveDefaults", tr("&Save as Defaults"),
              [this] { lblDefaults_->Say(QString::fromStdString(calibration_.SaveDefaults())); });
    defaults->addStretch();
    column.addLayout(defaults);
    lblDefaults_ = AddAnswer(column, "lblDefaults", 2);
    lblDefaults_->setText(QString::fromStdString(calibration_.DefaultsText()));
}

void frmFix3::BuildUi() {
    auto* buttons = MakeButtons();
    auto* cmdOk = Named(buttons->addButton(QDialogButtonBox::Ok), "cmdOk");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(2 * kStepGap);
    layout->addLayout(BuildDrawing(), 0, 0);
    layout->addWidget(BuildSteps(), 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 1);
    cmdOk->setDefault(true);                       // in the dialog by now
    findChild<QToolButton*>("cmdRht")->setFocus(); // so that all four keys step at once
    connect(buttons, &QDialogButtonBox::accepted, this, &frmFix3::Ok);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmFix3::ShowMargins() {
    txtMarLeft_->setText(QString::fromStdString(calibration_.LeftText()));
    txtMarTop_->setText(QString::fromStdString(calibration_.TopText()));
}

void frmFix3::ShowMove() {
    lblMove_->Say(QString::fromStdString(calibration_.MoveText()));
    cmdCheckSheet_->setEnabled(calibration_.AreNumbers());
}

void frmFix3::Ok() {
    if (Trapped(print_.main.ui, "Called from Sub: cmdOk", [this] { calibration_.Ok(); }))
        accept();
}

} // namespace velmora
