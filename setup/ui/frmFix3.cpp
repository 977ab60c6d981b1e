#include "setup/ui/frmFix3.h"

#include "report/ui/PainterCanvas.h"
#include "setup/CalibrationSheet.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kWidthOfSample = 2600; // twips; samples stand 2880 apart
constexpr QSize kPictureSize(420, 290);
constexpr int kArrowSize = 32;

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

SheetPicture::SheetPicture(const Sheet& sheet, QWidget* parent)
    : QWidget(parent), paper_(ToRect(sheet.paper.AsRead()).size()),
      tab_(std::min(sheet.tabs.front().width, kWidthOfSample), sheet.tabs.front().height) {
    setMinimumSize(kPictureSize);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        frames_[i] = new QLabel(tr("Tab %1").arg(i + 1), this);
        frames_[i]->setObjectName(QString("famPreview%1").arg(i + 1));
        frames_[i]->setFrameShape(QFrame::Box);
        frames_[i]->setAlignment(Qt::AlignCenter);
        frames_[i]->setAutoFillBackground(true);
        frames_[i]->setBackgroundRole(QPalette::Highlight);
        frames_[i]->setForegroundRole(QPalette::HighlightedText);
    }
}

void SheetPicture::Place(const std::array<SamplePosition, 4>& samples) {
    samples_ = samples;
    PlaceFrames();
}

QRect SheetPicture::Pixels(const SamplePosition& sample) const {
    const double scale = width() / paper_.width();
    const auto pixel = [&](double twips) { return static_cast<int>(std::lround(twips * scale)); };
    return {QPoint(pixel(sample.left), pixel(sample.top)),
            QPoint(pixel(sample.left + tab_.width()) - 1, pixel(sample.top + tab_.height()) - 1)};
}

void SheetPicture::PlaceFrames() {
    for (std::size_t i = 0; i < frames_.size(); ++i)
        frames_[i]->setGeometry(Pixels(samples_[i]));
}

void SheetPicture::resizeEvent(QResizeEvent*) {
    PlaceFrames();
}

/// The lower edge only where it is in sight.
void SheetPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int bottom = static_cast<int>(std::lround(paper_.height() * width() / paper_.width()));
    QColor line = palette().color(QPalette::Text);
    line.setAlphaF(0.5F);
    painter.setPen(line);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(QRect(0, 0, width() - 1, bottom - 1));
    painter.setPen(QPen(line, 1, Qt::DashLine));
    for (const SamplePosition& sample : Calibration::kUnshifted)
        painter.drawRect(Pixels(sample).adjusted(0, 0, -1, -1));
}

frmFix3::frmFix3(PrintModule& print, QWidget* parent)
    : PlacedDialog(print.main.settings, "fix3", parent), print_(print), calibration_(print.main) {
    setObjectName("frmFix3");
    setWindowTitle(tr("Margin Setup"));
    const TabDocument& document = print.main.document;
    BuildUi(LayOutCalibrationSheet(print.main.settings, document.setup.OptType, document.setup.StationeryType));
    ShowMargins();
    ShowSamples();
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

QLayout* frmFix3::BuildEntries() {
    txtMarLeft_ = Named(new QLineEdit, "txtMarLeft");
    txtMarTop_ = Named(new QLineEdit, "txtMarTop");
    auto* form = new QFormLayout;
    const auto addRow = [&](const QString& caption, QLineEdit* box, MarginBox margin) {
        connect(box, &QLineEdit::textChanged, this, [this, margin](const QString& text) {
            calibration_.Typed(margin, text.toStdString());
            ShowSamples();
        });
        auto* row = new QHBoxLayout;
        row->addWidget(box);
        row->addWidget(new QLabel(tr("mm")));
        auto* label = new QLabel(caption);
        label->setBuddy(box);
        form->addRow(label, row);
    };
    addRow(tr("&Left margin:"), txtMarLeft_, MarginBox::Left);
    addRow(tr("&Top margin:"), txtMarTop_, MarginBox::Top);
    return form;
}

void frmFix3::BuildUi(const Sheet& sheet) {
    picture_ = new SheetPicture(sheet, this);
    auto* arrows = new QGridLayout;
    arrows->addWidget(ArrowButton("cmdUp", tr("Up"), Qt::UpArrow, MarginArrow::Up), 0, 1, Qt::AlignHCenter);
    arrows->addWidget(ArrowButton("cmdLeft", tr("Left"), Qt::LeftArrow, MarginArrow::Left), 1, 0);
    arrows->addWidget(ArrowButton("cmdRht", tr("Right"), Qt::RightArrow, MarginArrow::Right), 1, 2);
    arrows->addWidget(ArrowButton("cmdDown", tr("Down"), Qt::DownArrow, MarginArrow::Down), 2, 1, Qt::AlignHCenter);
    arrows->addWidget(picture_, 1, 1);
    arrows->setRowStretch(1, 1);
    arrows->setColumnStretch(1, 1);

    auto* cmdLoadDefaults = Named(new QPushButton(tr("Loa&d Defaults")), "cmdLoadDefaults");
    auto* cmdSaveDefaults = Named(new QPushButton(tr("&Save as Defaults")), "cmdSaveDefaults");
    auto* cmdCalibrationSheet = Named(new QPushButton(tr("&Print calibration sheet")), "cmdCalibrationSheet");
    auto* hint = new QLabel(tr("An arrow moves the print by one millimetre. The dashed tabs show margins of 0."));
    hint->setWordWrap(true);
    auto* side = new QVBoxLayout;
    side->addLayout(BuildEntries());
    side->addWidget(hint);
    side->addStretch();
    for (QPushButton* button : {cmdLoadDefaults, cmdSaveDefaults, cmdCalibrationSheet})
        side->addWidget(button);

    auto* buttons = new QDialogButtonBox;
    auto* cmdOk = Named(buttons->addButton(QDialogButtonBox::Ok), "cmdOk");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    AddHelpButton(*buttons);
    auto* layout = new QGridLayout(this);
    layout->addLayout(arrows, 0, 0);
    layout->addLayout(side, 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    cmdOk->setDefault(true);                       // in the dialog by now
    findChild<QToolButton*>("cmdRht")->setFocus(); // so that all four keys step at once

    connect(buttons, &QDialogButtonBox::accepted, this, &frmFix3::Ok);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(cmdLoadDefaults, &QPushButton::clicked, this, [this] {
        calibration_.LoadDefaults();
        ShowMargins();
    });
    connect(cmdSaveDefaults, &QPushButton::clicked, this, [this] {
        Trapped(print_.main.ui, "Called from Sub: cmdSaveDefaults", [this] { calibration_.SaveDefaults(); });
    });
    connect(cmdCalibrationSheet, &QPushButton::clicked, this, [this] { PrintCalibrationSheet(print_); });
}

void frmFix3::ShowMargins() {
    txtMarLeft_->setText(QString::fromStdString(calibration_.LeftText()));
    txtMarTop_->setText(QString::fromStdString(calibration_.TopText()));
}

void frmFix3::Ok() {
    if (Trapped(print_.main.ui, "Called from Sub: cmdOk", [this] { calibration_.Ok(); }))
        accept();
}

} // namespace velmora
