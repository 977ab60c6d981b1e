#include "app/ui/mdiVelmora.h"

#include "app/Commands.h"
#include "app/ui/CommandBar.h"
#include "app/ui/HelpDesk.h"
#include "app/ui/MainMenu.h"
#include "app/ui/StatusLine.h"
#include "app/ui/frmStart.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "editor/ui/PageStrip.h"
#include "editor/ui/frmGrid2a4.h"
#include "widgets/FormPlace.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Globals.h"
#include "workspace/Margins.h"
#include "workspace/Pages.h"
#include "workspace/RecentFiles.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>

#include <algorithm>

namespace velmora {

namespace {

constexpr QSize kFirstSize(1100, 760);
constexpr const char* kPositionKey = "mdiVelmora";
constexpr int kKeepAfterMs = 3000;
constexpr int kPagePanel = 4;      ///< is set anew whenever the document or the page in view is another
constexpr int kRoomForStrip = 120; ///< the least width of a window that shows the strip unasked, in letters

/// "&1 text" for the first nine entries of a menu.
QString Numbered(const QMenu& menu, const std::string& text) {
    const qsizetype number = menu.actions().size() + 1;
    const QString caption = QString::fromStdString(text).replace('&', "&&");
    return number > 9 ? caption : QString("&%1   %2").arg(number).arg(caption);
}

/// Every key that the desktop has for the command whose shortcut this is.
QList<QKeySequence> ShortcutsLike(const QKeySequence& shortcut) {
    for (const auto standard : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Cut, QKeySequence::Copy,
                                QKeySequence::Paste, QKeySequence::ZoomIn}) {
        QList<QKeySequence> keys = QKeySequence::keyBindings(standard);
        if (!keys.contains(shortcut))
            continue;
        keys.removeAll(shortcut);
        keys.prepend(shortcut); // the menu shows the first
        return keys;
    }
    if (shortcut == QKeySequence(Qt::Key_Delete))
        return {shortcut, Qt::Key_Backspace}; // which marked tabs leave to the window
    return {shortcut};
}

QAction* Separator(QObject* parent) {
    auto* separator = new QAction(parent);
    separator->setSeparator(true);
    return separator;
}

} // namespace

mdiVelmora::mdiVelmora(Program& program) : program_(program) {
    setObjectName("mdiVelmora");
    setAcceptDrops(true);
    keepTimer_.setObjectName("keepTimer");
    keepTimer_.setSingleShot(true);
    keepTimer_.setInterval(kKeepAfterMs);
    connect(&keepTimer_, &QTimer::timeout, this, &mdiVelmora::KeepBeside);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { KeepLastRecoveryCopy(program_.main); });
    BuildMenus();
    BuildToolBar();
    BuildStatusLine();
    BuildStrip();
    grid_ = new frmGrid2a4(program_.main, program_.fontCatalogue, this);
    auto* middle = new QWidget(this);
    auto* row = new QHBoxLayout(middle);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(strip_);
    row->addWidget(grid_, 1);
    setCentralWidget(middle);
    connect(grid_, &frmGrid2a4::BoxTold, status_, &StatusLine::ShowBox);
    connect(grid_, &frmGrid2a4::Changed, this, [this] {
        status_->ForgetUndo();
        strip_->ShowTyping();
        EnableCommands();
    });
    WatchEditMenu(findChild<QMenu*>("mnuEdit"));
    resize(kFirstSize);
    RestorePlace(*this, program_.main.settings, kPositionKey, program_.beside);
    ShowStrip();
    program_.main.status.Take(*this);
    program_.main.dialogs.Take(importForms_);
    // Deliberate: the stored page count starts empty with every run.
    Write(program_.main.settings, kNoOfPages, "");
    ApplyTabType(program_.main);
    ShowCaption(program_.main);
    grid_->BringUp();
    program_.print.viewer.Take(viewer_);
    new HelpDesk(program_.main, this);
}

mdiVelmora::~mdiVelmora() {
    program_.print.viewer.Leave();
    delete grid_; // before the panels that it writes to
    program_.main.status.Leave();
    program_.main.dialogs.Leave();
}

void mdiVelmora::BuildMenus() {
    for (const Menu& row : Menus()) {
        QMenu* menu = menuBar()->addMenu(tr(row.caption));
        menu->setObjectName(row.name);
        for (const MenuItem& item : row.items)
            menu->addAction(item.name ? MakeAction(item) : Separator(menu));
        if (menu->objectName() == "mnuFile") {
            AddRecentFiles(menu);
            AddRecovered(menu);
        }
    }
}

/// A submenu before the last item, filled when it is about to show.
void mdiVelmora::AddRecentFiles(QMenu* menu) {
    QAction* last = menu->actions().last();
    auto* recent = new QMenu(tr("Recent &Files"), menu);
    recent->setObjectName("mnuRecent");
    menu->insertMenu(last, recent);
    menu->insertSeparator(last);
    connect(menu, &QMenu::aboutToShow, this, [this, recent] {
        recent->clear();
        for (const std::filesystem::path& path : RecentFiles(program_.main.settings))
            recent->addAction(Numbered(*recent, PathText(path)), this, [this, path] { OpenAnother(path); });
        recent->setEnabled(!recent->isEmpty());
    });
}

void mdiVelmora::OpenAnother(const std::filesystem::path& path) {
    Trapped(program_.main.ui, "Called from Sub: mnuRecent", [&] {
        if (OpenInstead(program_.main, path) == OpenOutcome::NoPrinter)
            QApplication::exit();
    });
}

/// The documents that were replaced or left unsaved, before the last item.
void mdiVelmora::AddRecovered(QMenu* menu) {
    QAction* exit = menu->actions().last();
    auto* recovered = new QMenu(tr("&Recover ..."), menu);
    recovered->setObjectName("mnuRecover");
    menu->insertMenu(menu->actions().at(menu->actions().indexOf(exit) - 1), recovered);
    connect(menu, &QMenu::aboutToShow, this, [this, recovered] {
        recovered->clear();
        for (const RecoveredDocument& document : program_.main.recovery.List())
            recovered->addAction(
                Numbered(*recovered, LocalTime(document.Time) + "   " + document.Name() + "   (" +
                                         Counted(static_cast<std::size_t>(document.TabsFilled), "tab") + ")"),
                this, [this, document] { Restore(document); });
        recovered->setEnabled(!recovered->isEmpty());
    });
}

void mdiVelmora::Restore(const RecoveredDocument& document) {
    Trapped(program_.main.ui, "Called from Sub: mnuRecover", [&] { RestoreCommand(program_.main, document); });
}

/// While the menu is open, commands that could do nothing are grey; their shortcuts work whenever they can.
void mdiVelmora::WatchEditMenu(QMenu* menu) {
    connect(menu, &QMenu::aboutToShow, this, [this] {
        const auto* box = qobject_cast<QLineEdit*>(focusWidget());
        const bool forTabs = IsForTabs({program_, *this});
        for (const char* name : {"mnuCut", "mnuCopy", "mnuDelete"})
            findChild<QAction*>(name)->setEnabled(forTabs || (box && box->hasSelectedText()));
        findChild<QAction*>("mnuPaste")->setEnabled((forTabs || box) && !QApplication::clipboard()->text().isEmpty());
    });
    connect(
        menu, &QMenu::aboutToHide, this,
        [this] {
            for (const char* name : {"mnuCut", "mnuCopy", "mnuPaste", "mnuDelete"})
                findChild<QAction*>(name)->setEnabled(true);
        },
        Qt::QueuedConnection); // after the chosen command was looked up
    connect(grid_, &frmGrid2a4::MenuWanted, menu, [menu](const QPoint& place) { menu->popup(place); });
}

/// Unsaved work is on disk some seconds after it was typed, and its copy goes when nothing is unsaved any more.
void mdiVelmora::KeepSoon() {
    if (program_.main.recovery.IsPaused())
        return;
    unkept_ = true;
    if (keepTimer_.isActive())
        return;
    if (program_.main.document.DocChanged)
        keepTimer_.start();
    else
        program_.main.recovery.Drop();
}

/// Looks after each copy once more: it may have failed, or take longer than the time between two.
void mdiVelmora::KeepBeside() {
    MainModule& main = program_.main;
    if (!main.recovery.IsWriting()) {
        if (!std::exchange(unkept_, false))
            return FinishRecoveryCopy(main);
        KeepRecoveryCopyBeside(main);
    }
    keepTimer_.start();
}

/// No error leaves a command: what a procedure has not trapped itself is reported here.
QAction* mdiVelmora::MakeAction(const MenuItem& item) {
    auto* action = new QAction(tr(item.caption), this);
    action->setObjectName(item.name);
    action->setShortcuts(ShortcutsLike(QKeySequence(item.shortcut)));
    action->setEnabled(item.command != nullptr);
    connect(action, &QAction::triggered, this, [this, item, action] {
        const bool inStrip = strip_->hasFocus() && strip_->actions().contains(action);
        Trapped(program_.main.ui, std::string("Called from Sub: ") + item.name, [&] {
            status_->Forget();
            CommandContext context{program_, *this};
            item.command(context);
        });
        if (inStrip)
            strip_->setFocus(); // the sheet takes it where its boxes are made anew
        EnableCommands();
    });
    return action;
}

void mdiVelmora::BuildToolBar() {
    auto* bar = new CommandBar(this);
    addToolBar(bar);
    for (const ToolButton& button : ToolButtons()) {
        if (!button.icon) {
            bar->addSeparator();
            continue;
        }
        auto* action = findChild<QAction*>(button.item);
        if (!action)
            action = MakeAction({button.item, button.caption, button.shortcut, button.command});
        bar->AddCommand(*action, button.icon, button.worded);
    }
}

/// "Undo Typing": the menu names what would be taken back.
void mdiVelmora::ShowHistory() {
    const UndoHistory& history = program_.main.history;
    const auto show = [&](const char* item, const QString& word, bool enabled, const std::string& step) {
        auto* action = findChild<QAction*>(item);
        action->setText(enabled ? word + " " + QString::fromStdString(step) : word);
        action->setEnabled(enabled);
        CommandBar::ShowToolTip(*action);
    };
    show("mnuUndo", tr("&Undo"), history.CanUndo(), history.UndoName());
    show("mnuRedo", tr("&Redo"), history.CanRedo(), history.RedoName());
}

/// Commands that could do nothing are disabled.
void mdiVelmora::EnableCommands() {
    const TabDocument& document = program_.main.document;
    for (const char* name : {"mnuFirstPage", "mnuPreviousPage"})
        findChild<QAction*>(name)->setEnabled(document.CurrentPage > 1);
    findChild<QAction*>("mnuLastPage")->setEnabled(document.CurrentPage < document.NoOfPages);
    findChild<QAction*>("mnuMovePage")->setEnabled(document.NoOfPages > 1);
    setWindowModified(document.DocChanged);
    ShowHistory();
    KeepSoon();
}

void mdiVelmora::BuildStatusLine() {
    status_ = new StatusLine(this);
    setStatusBar(status_);
    connect(status_, &StatusLine::UndoWanted, findChild<QAction*>("mnuUndo"), &QAction::trigger);
    connect(status_, &StatusLine::PrinterMarginsWanted, this, [this] {
        Trapped(program_.main.ui, "Called from Sub: cmdDone", [&] { TakePrinterMargins(program_.main); });
    });
    connect(status_, &StatusLine::OpenWanted, this, [this](const std::filesystem::path& file) {
        if (!program_.desktop->OpenFile(file))
            velmora::Tell(program_.main.ui,
                          "There is no program that opens the following file.\r\n[" + PathText(file) + "]");
    });
}

/// The strip of pages beside the sheet.
void mdiVelmora::BuildStrip() {
    strip_ = new PageStrip(program_.main.document, this);
    for (const char* item :
         {"mnuInsertPage", "mnuDuplicatePage", "mnuMovePage", "mnuNewPage", "mnuDeletePage", "mnuPrintPage"})
        strip_->addAction(findChild<QAction*>(item));
    connect(strip_, &PageStrip::PageWanted, this, [this](int page) {
        Trapped(program_.main.ui, "Called from Sub: PageStrip",
                [&] { ShowPage(program_.main, static_cast<std::int16_t>(page)); });
    });
    connect(strip_, &PageStrip::TypingWanted, this, &mdiVelmora::FocusSheet);
    // Tab stays in the sheet.
    connect(new QShortcut(Qt::Key_F6, strip_), &QShortcut::activated, this, [this] {
        if (strip_->hasFocus())
            FocusSheet();
        else
            strip_->setFocus(Qt::ShortcutFocusReason);
    });
}

/// As it was chosen, else where the window has room for it.
void mdiVelmora::ShowStrip() {
    const auto chosen = Probe(program_.main.settings, kPageStrip);
    const bool shown =
        chosen && IsFlag(*chosen) ? ToFlag(*chosen) : width() >= fontMetrics().averageCharWidth() * kRoomForStrip;
    strip_->setVisible(shown);
    auto* item = findChild<QAction*>("mnuPageStrip");
    item->setCheckable(true);
    item->setChecked(shown);
}

/// At the tab in use.
void mdiVelmora::FocusSheet() {
    const TabDocument& document = program_.main.document;
    TakePageBack(program_.main);
    program_.main.editor->ShowText({std::max<std::int32_t>(1, document.CurrentTab), 0}, 0, std::string::npos);
}

void mdiVelmora::ShowStartPage() {
    auto* page = new frmStart(program_.main, *grid_, *this);
    connect(page, &frmStart::FileWanted, this, &mdiVelmora::OpenAnother);
    connect(page, &frmStart::Begun, this, &mdiVelmora::EnableCommands);
}

void mdiVelmora::SetPanel(int panel, const std::string& text) {
    status_->SetPanel(panel, text);
    if (panel == kPagePanel) {
        status_->Forget();
        strip_->Follow();
    }
    EnableCommands();
}

void mdiVelmora::Tell(const DoneMessage& done) {
    status_->Tell(done);
}

void mdiVelmora::SetCaption(const std::string& caption) {
    setWindowTitle(QString::fromStdString(caption).replace("[*]", "[*][*]") + "[*]"); // Qt's place for unsaved changes
    EnableCommands();
}

void mdiVelmora::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    event->setAccepted(!urls.isEmpty() &&
                       std::all_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); }));
}

/// Dropped files are opened when the drop is over: the program that they come from waits for that, and opening asks.
void mdiVelmora::dropEvent(QDropEvent* event) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : event->mimeData()->urls())
        files.push_back(PathOf(url.toLocalFile().toStdString()));
    if (files.empty())
        return;
    QTimer::singleShot(0, this, [this, files] {
        OpenAnother(files.front());
        OpenBeside(program_.main.ui, *program_.desktop, {files.begin() + 1, files.end()});
    });
}

/// That of the first window: the others stand beside it the next time, too.
void mdiVelmora::KeepPlace() {
    if (program_.beside == 0)
        SavePlace(*this, program_.main.settings, kPositionKey);
}

void mdiVelmora::Leave() {
    KeepLastRecoveryCopy(program_.main);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* dialog = dynamic_cast<PlacedDialog*>(window); dialog && dialog->isVisible())
            dialog->hide(); // which stores its place
    KeepPlace();
}

void mdiVelmora::closeEvent(QCloseEvent* event) {
    event->ignore(); // also after an error
    Trapped(program_.main.ui, "Called from Sub: mnuExit", [&] { event->setAccepted(CloseCommand(program_.main)); });
    if (!event->isAccepted())
        return;
    keepTimer_.stop();
    KeepPlace();
}

} // namespace velmora
