#include "app/ui/frmStart.h"

#include "app/StartPage.h"
#include "base/Paths.h"
#include "base/Validate.h"
#include "editor/ui/frmGrid2a4.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "widgets/LineIcon.h"
#include "workspace/Dialogs.h"
#include "workspace/RecentFiles.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr const char* kStartPlace = "Called from Sub: frmStart";
constexpr int kColumns = 3;      ///< of pictures
constexpr int kPictureLines = 8; ///< the height of a picture, in lines of text
constexpr int kFewestLines = 3;  ///< in large letters on a small screen
constexpr int kFileLetters = 30; ///< of a recent file's name
constexpr int kCommandGap = 16;  ///< pixels between groups
constexpr int kColumnGap = 48;   ///< pixels between what is there and what begins

QLabel* Heading(const QString& text) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

/// Of icons beside a text.
QSize LetterSize(const QWidget& widget) {
    const int height = widget.fontMetrics().height();
    return {height, height};
}

/// In the middle of a room that is the same for all; the hairlines of a picture stay when it shrinks.
QIcon Fitted(const QImage& picture, QSize room, qreal scale) {
    QPixmap fitted(room * scale);
    fitted.fill(Qt::transparent);
    if (!picture.isNull()) {
        const QImage shrunk = picture.convertToFormat(QImage::Format_RGB32)
                                  .scaled(fitted.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QRect place = shrunk.rect();
        place.moveCenter(fitted.rect().center());
        QPainter(&fitted).drawImage(place, shrunk);
    }
    fitted.setDevicePixelRatio(scale);
    return fitted;
}

/// A letter of a text, and no command.
bool IsTyped(const QKeyEvent& key) {
    constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = key.text();
    return !text.isEmpty() && text[0].isPrint() && !text[0].isSpace() && !(key.modifiers() & kCommands);
}

} // namespace

frmStart::frmStart(MainModule& main, frmGrid2a4& grid, QWidget& window)
    : QScrollArea(grid.parentWidget()), main_(main), grid_(grid), window_(window) {
    setObjectName("frmStart");
    setAccessibleName(tr("Start page"));
    setAccessibleDescription(tr("Begin to type, or press Tab for files and stationery."));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAttribute(Qt::WA_InputMethodEnabled);
    BuildUi();
    grid.parentWidget()->layout()->addWidget(this);
    show();
    setFocus();
    grid.hide();
    connect(&grid, &frmGrid2a4::BoxTold, this, &frmStart::Close);
}

void frmStart::BuildUi() {
    auto* page = new QWidget;
    auto* chkStartPage = Named(new QCheckBox(tr("&Show this page at the start")), "chkStartPage");
    chkStartPage->setChecked(true);
    connect(chkStartPage, &QCheckBox::toggled, this, [this](bool wanted) { KeepStartPage(main_.settings, wanted); });
    auto* columns = new QHBoxLayout;
    columns->setSpacing(kColumnGap);
    columns->addWidget(BuildCommands());
    columns->addWidget(BuildStationeries());
    auto* rows = new QVBoxLayout;
    rows->setSpacing(kCommandGap);
    rows->addStretch();
    rows->addLayout(columns);
    auto* last = new QHBoxLayout;
    last->addWidget(chkStartPage);
    last->addStretch();
    last->addWidget(new QLabel(tr("Or just begin to type.")));
    rows->addLayout(last);
    rows->addStretch();
    auto* middle = new QHBoxLayout(page);
    middle->addStretch();
    middle->addLayout(rows);
    middle->addStretch();
    setWidget(page);
}

QWidget* frmStart::BuildCommands() {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins({});
    column->addWidget(Heading(tr("Go on with")));
    AddCommand(column, tr("Ope&n ..."), "cmdOpen", "open", "mnuOpen");
    AddCommand(column, tr("&Import a list ..."), "cmdImportList", "import", "mnuImport");
    AddRecentFiles(column);
    column->addStretch();
    column->addSpacing(kCommandGap);
    AddCommand(column, tr("&Calibrate the printer ..."), "cmdCalibrate", "margins", "mnuMarginSetup");
    AddCommand(column, tr("Hel&p"), "cmdHelp", "help", nullptr);
    return box;
}

/// A button for a command of the window, or for the page's help.
void frmStart::AddCommand(QVBoxLayout* column, const QString& caption, const char* name, const char* icon,
                          const char* command) {
    auto* button = Named(new QPushButton(LineIcon(icon), caption), name);
    button->setIconSize(LetterSize(*this));
    column->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, command] {
        if (command)
            window_.findChild<QAction*>(command)->trigger();
        else
            RequestHelp(*this);
    });
}

void frmStart::AddRecentFiles(QVBoxLayout* column) {
    const auto files = RecentFiles(main_.settings);
    if (files.empty())
        return;
    column->addSpacing(kCommandGap);
    column->addWidget(Heading(tr("Recent files")));
    for (const std::filesystem::path& file : files) {
        const QString name = QString::fromStdString(PathText(file.filename()));
        auto* button = Named(new QToolButton, "cmdRecent");
        button->setText(fontMetrics()
                            .elidedText(name, Qt::ElideMiddle, kFileLetters * fontMetrics().averageCharWidth())
                            .replace('&', "&&"));
        button->setToolTip(QString::fromStdString(PathText(file)));
        button->setAccessibleName(button->toolTip());
        button->setAutoRaise(true);
        button->setIcon(LineIcon("new"));
        button->setIconSize(LetterSize(*this));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        column->addWidget(button);
        connect(button, &QToolButton::clicked, this, [this, file] { emit FileWanted(file); });
    }
}

QWidget* frmStart::BuildStationeries() {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins({});
    column->addWidget(Heading(tr("Begin a sheet of tabs")));
    auto* pictures = new QGridLayout;
    stationeries_ = new QButtonGroup(this);
    stationeries_->setExclusive(false);
    for (int type = 0; type < kTabTypes; ++type)
        pictures->addWidget(MakeStationery(type), type / kColumns, type % kColumns);
    column->addLayout(pictures);
    column->addLayout(BuildFields());
    column->addStretch();
    connect(stationeries_, &QButtonGroup::idClicked, this, [this](int type) {
        Trapped(main_.ui, kStartPlace, [&] { BeginDocument(main_, type, fields_->checkedId()); });
        emit Begun();
    });
    return box;
}

/// "A4 Alpha", and below it what is on a sheet.
QToolButton* frmStart::MakeStationery(int type) {
    const QString label = QString::fromStdString(std::string(FindTabType(type)->label));
    auto* button = Named(new QToolButton, "cmdStationery");
    button->setText(label.section(" (", 0, 0) + "\n" + label.section('(', 1).chopped(1));
    button->setAccessibleName(label);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIcon(Fitted({}, LetterSize(*this), 1)); // keeps its place
    stationeries_->addButton(button, type);
    return button;
}

QLayout* frmStart::BuildFields() {
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Fields per tab:")));
    fields_ = new QButtonGroup(this);
    const std::array<QString, kFieldsPerTab> captions = {tr("&1 field"), tr("&2 fields"), tr("&3 fields")};
    for (int fields = 1; fields <= kFieldsPerTab; ++fields) {
        auto* option = new QRadioButton(captions[static_cast<std::size_t>(fields) - 1]);
        option->setObjectName(QString("optFields%1").arg(fields));
        option->setChecked(fields == main_.document.setup.NoOfFields);
        fields_->addButton(option, fields);
        row->addWidget(option);
    }
    connect(fields_, &QButtonGroup::idToggled, this, [this](int fields, bool chosen) {
        if (chosen)
            ChooseFields(fields);
    });
    row->addStretch();
    return row;
}

/// At once: they are meant for whatever begins here, a sheet, a list or a page of the strip.
void frmStart::ChooseFields(int fields) {
    disconnect(&grid_, &frmGrid2a4::BoxTold, this, &frmStart::Close); // the sheet behind comes up anew
    Trapped(main_.ui, kStartPlace, [&] { BeginWithFields(main_, fields); });
    emit Begun();
    connect(&grid_, &frmGrid2a4::BoxTold, this, &frmStart::Close);
    fields_->checkedButton()->setFocus();
}

bool frmStart::HasRoom() const {
    const QSize needed = widget()->minimumSizeHint(), room = maximumViewportSize();
    return needed.width() <= room.width() && needed.height() <= room.height();
}

void frmStart::SizePictures(int lines) {
    for (QAbstractButton* button : stationeries_->buttons())
        button->setIconSize(LetterSize(*this) * lines);
    for (const QWidget* outer : {stationeries_->button(0)->parentWidget(), widget()})
        outer->layout()->activate(); // so that the page knows its new size
}

/// Pictures are as large as the page has room for; what is written stays whole.
void frmStart::FitPictures() {
    const QSize before = stationeries_->button(0)->iconSize();
    SizePictures(kPictureLines);
    for (int lines = kPictureLines; lines > kFewestLines && !HasRoom();)
        SizePictures(--lines);
    if (stationeries_->button(0)->iconSize() != before)
        QTimer::singleShot(0, this, &frmStart::ShowPictures);
}

void frmStart::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    FitPictures();
}

/// Once the page is up. A picture that is missing leaves its place empty: nothing is asked here.
void frmStart::ShowPictures() {
    for (QAbstractButton* button : stationeries_->buttons()) {
        const std::string name(FindTabType(stationeries_->id(button))->picture);
        if (const auto file = FindFile(main_.globals.ImagesPath, name))
            button->setIcon(
                Fitted(QImage(QString::fromStdString(PathText(*file))), button->iconSize(), devicePixelRatioF()));
    }
}

/// What is pasted is typed, too.
bool frmStart::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
        Close();
    return QScrollArea::event(event);
}

void frmStart::keyPressEvent(QKeyEvent* event) {
    if (IsTyped(*event))
        return PassOn(*event);
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (button && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        return button->click();
    QScrollArea::keyPressEvent(event);
}

void frmStart::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty())
        PassOn(*event);
}

/// Whoever begins to type is not held up: the first letter goes into the first tab.
void frmStart::PassOn(QEvent& event) {
    Close();
    QCoreApplication::sendEvent(grid_.focusWidget(), &event);
}

void frmStart::Close() {
    grid_.show();
    grid_.focusWidget()->setFocus();
    hide();
    deleteLater();
}

} // namespace velmora
