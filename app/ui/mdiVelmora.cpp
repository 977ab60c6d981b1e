#include "app/ui/mdiVelmora.h"

#include "app/Commands.h"
#include "app/ui/HelpDesk.h"
#include "app/ui/LineIcon.h"
#include "app/ui/MainMenu.h"
#include "document/Dialogs.h"
#include "document/RecentFiles.h"
#include "document/ui/FormPlace.h"
#include "editor/ui/frmGrid2a4.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

namespace velmora {

namespace {

constexpr QSize kFirstSize(1100, 760);
constexpr const char* kPositionKey = "mdiVelmora";
constexpr int kKeepAfterMs = 3000;

} // namespace

mdiVelmora::mdiVelmora(Program& program) : program_(program) {
    setObjectName("mdiVelmora");
    setAcceptDrops(true);
    keepTimer_.setSingleShot(true);
    connect(&keepTimer_, &QTimer::timeout, this, [this] { KeepRecoveryCopy(program_.main); });
    BuildMenus();
    BuildToolBar();
    BuildStatusBar();
    grid_ = new frmGrid2a4(program_.main, this);
    setCentralWidget(grid_);
    connect(grid_, &frmGrid2a4::Changed, this, [this] { EnableCommands(); });
    resize(kFirstSize);
    RestorePlace(*this, program_.main.settings, kPositionKey);
    program_.main.status = this;
    // Deliberate: the stored page count starts empty with every run.
    Write(program_.main.settings, kNoOfPages, "");
    ApplyTabType(program_.main);
    ShowCaption(program_.main);
    grid_->BringUp();
    new HelpDesk(program_.main, this);
}

mdiVelmora::~mdiVelmora() {
    delete grid_; // before the panels that it writes to
    program_.main.status = nullptr;
}

void mdiVelmora::BuildMenus() {
    for (const Menu& row : Menus()) {
        QMenu* menu = menuBar()->addMenu(tr(row.caption));
        menu->setObjectName(row.name);
        for (const MenuItem& item : row.items)
            AddItem(menu, item);
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
            recent->addAction(QString::fromStdString(path.string()).replace('&', "&&"), this,
                              [this, path] { OpenInstead(program_.main, path); });
        recent->setEnabled(!recent->isEmpty());
    });
}

/// The documents that were replaced or left unsaved, before the last item.
void mdiVelmora::AddRecovered(QMenu* menu) {
    QAction* exit = menu->actions().last();
    auto* recovered = new QMenu(tr("Recover ..."), menu);
    recovered->setObjectName("mnuRecover");
    menu->insertMenu(menu->actions().at(menu->actions().indexOf(exit) - 1), recovered);
    connect(menu, &QMenu::aboutToShow, this, [this, recovered] {
        recovered->clear();
        for (const RecoveredDocument& document : program_.recovery->List())
            recovered->addAction(QString::fromStdString(LocalTime(document.Time) + "   " + document.Name() + "   (" +
                                                        std::to_string(document.TabsFilled) + " tabs)")
                                     .replace('&', "&&"),
                                 this, [this, document] { RestoreCommand(program_.main, document); });
        recovered->setEnabled(!recovered->isEmpty());
    });
}

/// Unsaved work is on disk some seconds after it was typed.
void mdiVelmora::KeepSoon() {
    if (program_.main.document.DocChanged && !keepTimer_.isActive())
        keepTimer_.start(kKeepAfterMs);
}

/// No error leaves a command: what a procedure has not trapped itself is reported here.
void mdiVelmora::AddItem(QMenu* menu, const MenuItem& item) {
    if (!item.name) {
        menu->addSeparator();
        return;
    }
    QAction* action = menu->addAction(tr(item.caption), QKeySequence(item.shortcut), this, [this, item] {
        Trapped(program_.main, std::string("Called from Sub: ") + item.name, [&] {
            CommandContext context{program_, *this};
            item.command(context);
        });
        EnableCommands();
    });
    action->setObjectName(item.name);
    action->setEnabled(item.command != nullptr);
}

void mdiVelmora::BuildToolBar() {
    QToolBar* bar = addToolBar(tr("Commands"));
    bar->setObjectName("Toolbar2");
    bar->setMovable(false);
    for (const ToolButton& button : ToolButtons()) {
        if (!button.icon) {
            bar->addSeparator();
            continue;
        }
        auto* action = findChild<QAction*>(button.item);
        if (!action) {
            action = new QAction(tr(button.caption), this);
            action->setObjectName(button.item);
            action->setEnabled(false);
        }
        action->setIcon(LineIcon(button.icon));
        action->setIconVisibleInMenu(false);
        const QString shortcut = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(action->text().remove('&') + (shortcut.isEmpty() ? "" : " (" + shortcut + ")"));
        bar->addAction(action);
    }
}

/// "Undo Typing": the menu names what would be taken back.
void mdiVelmora::ShowHistory() {
    const UndoHistory& history = program_.history;
    const auto show = [&](const char* item, const QString& word, bool enabled, const std::string& step) {
        auto* action = findChild<QAction*>(item);
        action->setText(enabled ? word + " " + QString::fromStdString(step) : word);
        action->setEnabled(enabled);
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
    setWindowModified(document.DocChanged);
    ShowHistory();
    KeepSoon();
}

void mdiVelmora::BuildStatusBar() {
    statusBar()->setObjectName("StatusBar1");
    statusBar()->setSizeGripEnabled(false);
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = new QLabel(statusBar());
        panels_[i]->setObjectName(QString("Panel%1").arg(i + 1));
        panels_[i]->setMargin(4);
        statusBar()->addWidget(panels_[i], 1);
    }
}

void mdiVelmora::SetPanel(int panel, const std::string& text) {
    panels_.at(static_cast<std::size_t>(panel - 1))->setText(QString::fromStdString(text));
    EnableCommands();
}

void mdiVelmora::SetCaption(const std::string& caption) {
    setWindowTitle(QString::fromStdString(caption).replace("[*]", "[*][*]") + "[*]"); // Qt's place for unsaved changes
    EnableCommands();
}

void mdiVelmora::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    event->setAccepted(urls.size() == 1 && urls.first().isLocalFile());
}

/// A dropped file is opened.
void mdiVelmora::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty())
        OpenInstead(program_.main, urls.first().toLocalFile().toStdString());
}

void mdiVelmora::closeEvent(QCloseEvent* event) {
    Trapped(program_.main, "Called from Sub: mnuExit", [&] { event->setAccepted(CloseCommand(program_.main)); });
    if (event->isAccepted())
        SavePlace(*this, program_.main.settings, kPositionKey);
}

} // namespace velmora
