// A person who does anything in any order: every command of the menus and the toolbar, whatever they may be, typing,
// keys, find and replace, with dialogs answered by chance, and the program ended and started again. Whatever happens,
// the document stays whole, every state can be had back, and no window is left behind. The seed is fixed;
// VELMORA_WALK_STEPS and VELMORA_WALK_SEED make the walk longer or another one.
#include "app/ui/frmStart.h"
#include "document/TabFile.h"
#include "editor/ui/PageStrip.h"
#include "editor/ui/frmFind.h"
#include "editor/ui/frmGrid2a4.h"
#include "fuzz/WalkingProgram.h"
#include "workspace/DocumentStatus.h"
#include "workspace/TakePageBack.h"

#include <QCheckBox>
#include <QClipboard>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>

#include <map>
#include <set>

namespace {

using namespace velmora;

/// What a person would call the document. The printer, which comes first in the header, is the machine's.
struct State {
    std::array<FieldTexts, 3> texts;
    std::int16_t pages;
    std::int16_t fields;
    std::int16_t type;
    std::string header;
    bool operator==(const State&) const = default;
};

State StateOf(MainModule& main) {
    const TabDocument& document = main.document;
    SettingsBatch batch(main.settings);
    const std::string header = SaveData(main.settings);
    batch.Discard();
    return {{document.FieldA, document.FieldB, document.FieldC},
            document.NoOfPages,
            document.setup.NoOfFields,
            document.setup.OptType,
            header.substr(header.find(','))};
}

std::string Difference(const State& a, const State& b) {
    return a.header != b.header ? a.header + "instead of " + b.header
           : a.pages != b.pages ? std::to_string(a.pages) + " pages instead of " + std::to_string(b.pages)
           : a.texts != b.texts ? "other texts"
                                : "other fields or tab type";
}

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// After these the document may be another one, or the saved one.
const std::set<QString> kReplacing = {"mnuNew",     "mnuOpen",    "mnuImport", "mnuRecent",
                                      "mnuRecover", "mnuOptions", "mnuExit"};
const std::set<QString> kSaving = {"mnuSave", "mnuSaveAs"};

class Walk {
public:
    explicit Walk(unsigned seed) : chance_(seed) { Start(); }

    void Step() {
        ran_.clear();
        switch (chance_.Below(18)) {
        case 0: MoveInHistory(); break;
        case 1: Find(); break;
        case 2: PasteOrCut(); break;
        case 3: AllTheWayBack(); break;
        case 4:
        case 5: meddler_.PressKey(*running_->window); break;
        case 6: MeddleBeside(); break;
        case 7:
        case 8:
        case 9: Type(); break;
        case 10: GoInStrip(); break;
        case 11: PressDone(); break;
        default: Command(); break;
        }
        meddler_.Settle();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (!running_->window->isVisible())
            Restart();
        Check();
    }

private:
    MainModule& Main() { return running_->program.main; }
    TabDocument& Document() { return Main().document; }
    UndoHistory& History() { return running_->program.main.history; }

    void Start() {
        trail_.Note("\nstart");
        running_ = std::make_unique<WalkingProgram>(machine_, chance_, trail_);
        meddler_.Settle();
        Need(QTest::qWaitForWindowActive(running_->window), "the start");
        for (QAction* action : running_->window->findChildren<QAction*>())
            QObject::connect(action, &QAction::triggered, &meddler_,
                             [this, name = action->objectName()] { ran_.insert(name); });
        for (QMenu* menu : running_->window->findChildren<QMenu*>())
            QObject::connect(menu, &QMenu::triggered, &meddler_,
                             [this, name = menu->objectName()] { ran_.insert(name); });
        for (auto* page : running_->window->findChildren<frmStart*>()) { // its buttons that are no commands
            QObject::connect(page, &frmStart::FileWanted, &meddler_, [this] { ran_.insert("mnuRecent"); });
            QObject::connect(page, &frmStart::Begun, &meddler_, [this] { ran_.insert("mnuNew"); });
        }
        Begin();
    }
    /// The page set-up at the start may have made a step already.
    void Begin() {
        const auto lookWhetherSaved = [this] {
            if (!Document().DocChanged)
                saved_ = StateOf(Main());
        };
        saved_.reset();
        lookWhetherSaved();
        const int steps = UndoAll();
        start_ = StateOf(Main());
        lookWhetherSaved();
        Redo(steps);
    }
    /// What was not saved, and not given up either, comes back as it was.
    void Restart() {
        const State left = StateOf(Main());
        running_.reset();
        Start();
        if (running_->person.restored)
            NeedSame(StateOf(Main()), left, "what came back");
    }

    /// Everything in the menus and the toolbar, as they stand when they open.
    std::vector<QAction*> Commands() {
        std::vector<QAction*> commands;
        const auto add = [&](const QWidget& row) {
            for (QAction* action : row.actions())
                if (!action->isSeparator())
                    commands.push_back(action);
        };
        for (QAction* action : running_->window->menuBar()->actions()) {
            emit action->menu()->aboutToShow();
            add(*action->menu());
            emit action->menu()->aboutToHide();
        }
        for (const auto* bar : running_->window->findChildren<QToolBar*>())
            add(*bar);
        return commands;
    }
    void Command() {
        QAction* command = chance_.Of(Commands());
        if (kReplacing.contains(command->menu() ? command->menu()->objectName() : command->objectName()) &&
            !chance_.OneIn(3))
            return; // so that histories grow
        if (command->menu() && !command->menu()->isEmpty())
            command = chance_.Of(command->menu()->actions());
        Trigger(*command);
    }
    void Trigger(QAction& command) {
        trail_.Note("\n" + (command.objectName().isEmpty() ? command.text() : command.objectName()).toStdString());
        if (command.isEnabled() && !command.menu())
            command.trigger();
    }
    void Trigger(const char* name) { Trigger(*running_->Item(name)); }
    void MoveInHistory() { Trigger(chance_.Of(std::array{"mnuUndo", "mnuUndo", "mnuRedo"})); }
    QLineEdit* EnterAnyBox() {
        QLineEdit* box = running_->window->findChild<frmGrid2a4*>()->Box(
            chance_.Below(Document().setup.NoOfFields), chance_.Below(Document().setup.TabsPerPage) + 1);
        running_->window->activateWindow();
        box->setFocus();
        trail_.Note("\n" + box->objectName().toStdString());
        return box;
    }
    void Type() {
        QLineEdit* box = EnterAnyBox();
        if (chance_.OneIn(2))
            box->selectAll();
        const QString text = AnyText();
        trail_.Note("types " + text.toStdString());
        TypeInto(*box, text);
    }
    void PasteOrCut() {
        QLineEdit* box = EnterAnyBox();
        if (chance_.OneIn(3)) {
            box->selectAll();
            return Trigger("mnuCut");
        }
        QApplication::clipboard()->setText(
            QString::fromUtf8(chance_.Of(std::array{"p", "p\tq\nr\n\ns\tt\tu", "\n\n\n", "line\n", "\xc3\xa9\t"})));
        Trigger("mnuPaste");
    }
    void Find() {
        if (!running_->window->findChild<frmFind*>())
            Trigger("mnuFind");
        auto* form = running_->window->findChild<frmFind*>();
        form->findChild<QLineEdit*>("txtFind")->setText(AnyText());
        form->findChild<QLineEdit*>("txtReplace")->setText(AnyText());
        form->findChild<QComboBox*>("cboField")->setCurrentIndex(chance_.Below(4));
        form->findChild<QCheckBox*>("chkMatchCase")->setChecked(chance_.OneIn(2));
        for (int count = chance_.Below(4); count >= 0; --count) {
            const char* button = chance_.Of(std::array{"cmdFindNext", "cmdReplace", "cmdReplace", "cmdReplaceAll"});
            trail_.Note(std::string("\n") + button);
            form->findChild<QPushButton*>(button)->click();
        }
    }
    /// The windows that stay open beside the main window.
    void MeddleBeside() {
        const auto beside = VisibleWindows();
        if (beside.size() < 2)
            return;
        QWidget& window = *std::next(beside.begin(), chance_.Below(static_cast<int>(beside.size())))->second;
        trail_.Note("\nbeside {" + window.objectName().toStdString() + "}");
        if (chance_.OneIn(3) && &window != running_->window)
            window.close();
        else
            meddler_.Meddle(window);
    }
    void GoInStrip() {
        auto* strip = running_->window->findChild<PageStrip*>();
        const QModelIndex page = strip->model()->index(chance_.Below(strip->model()->rowCount()), 0);
        trail_.Note("\nstrip " + std::to_string(page.row() + 1));
        strip->setFocus();
        strip->setCurrentIndex(page);
    }
    /// What the status line offers after what was done; PDFs have no program here.
    void PressDone() {
        if (auto* button = running_->window->findChild<QPushButton*>("cmdDone"); button->isVisible())
            button->click();
    }
    void AllTheWayBack() {
        if (!chance_.OneIn(8))
            return;
        trail_.Note("\nundo all, redo all");
        TakePageBack(Main());
        const State now = StateOf(Main());
        const int steps = UndoAll();
        NeedSame(StateOf(Main()), start_, "undo to the start");
        Redo(steps);
        NeedSame(StateOf(Main()), now, "redo");
    }
    int UndoAll() {
        int steps = 0;
        for (; History().CanUndo(); ++steps)
            running_->Item("mnuUndo")->trigger();
        return steps;
    }
    void Redo(int steps) {
        for (; steps > 0; --steps)
            running_->Item("mnuRedo")->trigger();
    }
    /// By name.
    static std::map<QString, QWidget*> VisibleWindows() {
        std::map<QString, QWidget*> windows;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible())
                windows[window->objectName()] = window;
        return windows;
    }
    bool RanAny(const std::set<QString>& names) const {
        return std::any_of(ran_.begin(), ran_.end(), [&](const QString& name) { return names.contains(name); });
    }

    void Check() {
        const TabDocument& document = Document();
        TakePageBack(Main());
        for (int field = 0; field < kFieldsPerTab; ++field)
            Need(document.Field(field).Count() == document.TabCount, "array sizes");
        Need(document.NoOfPages * document.setup.TabsPerPage == document.TabCount, "whole pages");
        Need(document.CurrentPage >= 1 && document.CurrentPage <= document.NoOfPages, "the page");
        const bool none = document.CurrentTab == 0 && !InBox();
        Need(none || (document.CurrentTab - 1) / document.setup.TabsPerPage + 1 == document.CurrentPage,
             "tab " + std::to_string(document.CurrentTab) + " on page " + std::to_string(document.CurrentPage));
        Need(GetSetting(running_->settings, "Settings", "No Of Pages", "") == std::to_string(document.NoOfPages),
             "stored pages");
        CheckHistory();
        CheckShown();
        CheckWindows();
    }
    void CheckHistory() {
        const State now = StateOf(Main());
        if (RanAny(kReplacing) && !History().CanUndo() && !History().CanRedo())
            start_ = now;
        if ((RanAny(kReplacing) || RanAny(kSaving)) && !Document().DocChanged)
            saved_ = now;
        if (!History().CanUndo())
            NeedSame(now, start_, "with nothing to undo, the document");
        if (!Document().DocChanged)
            NeedSame(now, saved_.value_or(State{}), "without unsaved changes, the document");
    }
    void CheckShown() {
        const TabDocument& document = Document();
        auto* grid = running_->window->findChild<frmGrid2a4*>();
        const int before = (document.CurrentPage - 1) * document.setup.TabsPerPage;
        for (int slot = 1; slot <= document.setup.TabsPerPage; ++slot)
            for (int field = 0; field < document.setup.NoOfFields; ++field)
                Need(grid->Box(field, slot)->text().toStdString() == document.Field(field)(before + slot), "the boxes");
        const auto* strip = running_->window->findChild<PageStrip*>();
        Need(strip->model()->rowCount() == document.NoOfPages &&
                 strip->currentIndex().row() == document.CurrentPage - 1,
             "the strip");
        const std::array<QString, 5> panels = {
            QString::fromStdString("Stationery: " + document.setup.StationeryType),
            "Tab Type: " + Text(FindTabType(document.setup.OptType)->caption).section(" - ", 1).trimmed(),
            QString("No of fields: %1").arg(document.setup.NoOfFields),
            QString("Pg No: %1 of %2").arg(document.CurrentPage).arg(document.NoOfPages),
            InBox() ? QString("No of tabs: %1 of %2").arg(document.CurrentTab).arg(document.TabCount)
                    : QString("No of tabs: ")};
        for (std::size_t i = 0; i < panels.size(); ++i)
            Need(Panel(i + 1).startsWith(panels[i]), "status line, instead of " + panels[i].toStdString());
        Need(running_->window->windowTitle() ==
                 QString::fromStdString("Velmora [" + DocumentCaption(document) + "]") + "[*]",
             "the caption");
        Need(document.DocChanged == running_->window->isWindowModified(), "the caption's mark");
        Need(History().CanUndo() == running_->Item("mnuUndo")->isEnabled(), "undo enabled");
        Need(History().CanRedo() == running_->Item("mnuRedo")->isEnabled(), "redo enabled");
        Need((document.CurrentPage > 1) == running_->Item("mnuFirstPage")->isEnabled(), "first page enabled");
    }
    /// Elsewhere the status line may leave out the tab's number.
    static bool InBox() {
        return QApplication::focusWidget() && frmGrid2a4::FieldOf(*QApplication::focusWidget()) >= 0;
    }
    QString Panel(std::size_t panel) {
        return running_->window->findChild<QLabel*>(QString("Panel%1").arg(panel))->text();
    }
    void CheckWindows() {
        Need(!QTest::currentTestFailed(), "Qt warns");
        Need(!QApplication::overrideCursor(), "the hourglass");
        std::multiset<QString> dialogs;
        for (const auto* dialog : running_->window->findChildren<QDialog*>())
            dialogs.insert(dialog->objectName());
        Need(dialogs.size() == std::set<QString>(dialogs.begin(), dialogs.end()).size(), "a dialog was left behind");
        const auto boxes = Document().setup.TabsPerPage * Document().setup.NoOfFields;
        auto widgets = QApplication::allWidgets().size() - boxes;
        if (const auto* page = running_->window->findChild<QWidget*>("frmStart")) // has a button for each recent file
            widgets -= page->findChildren<QWidget*>().size() + 1;
        const auto first = widgets_.emplace(dialogs, widgets).first->second;
        Need(widgets == first, std::to_string(widgets) + " widgets, at first " + std::to_string(first));
    }
    void Need(bool holds, const std::string& what) {
        if (!holds)
            trail_.Fail("wrong: " + what);
    }
    void NeedSame(const State& is, const State& expected, const std::string& what) {
        if (is != expected)
            trail_.Fail("wrong: " + what + " (" + Difference(is, expected) + ")");
    }
    QString AnyText() {
        return QString::fromUtf8(chance_.Of(std::array{"a", "A", "b", "", "\xc3\xa9t\xc3\x89", "\xc4\xb0", "12",
                                                       "aaaaaaaaaaaaaaaaaaaaaaaa", " ", "\xf0\x9f\x98\x80"}));
    }

    Chance chance_;
    Trail trail_;
    Meddler meddler_{chance_, trail_};
    Machine machine_;
    std::unique_ptr<WalkingProgram> running_;
    State start_{};
    std::optional<State> saved_;
    std::set<QString> ran_;                               ///< in this step
    std::map<std::multiset<QString>, qsizetype> widgets_; ///< beside the boxes, by the dialogs that there are
};

#ifdef __SANITIZE_ADDRESS__
constexpr int kSteps = 1000; // each takes many times as long
#else
constexpr int kSteps = 3000;
#endif

int FromEnvironment(const char* name, int otherwise) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

class WalkTest : public QObject {
    Q_OBJECT

private slots:
    void nothingIsLostWhateverAPersonDoes() {
        FailOnWarnings();
        QApplication::setQuitOnLastWindowClosed(false);
        Walk walk(static_cast<unsigned>(FromEnvironment("VELMORA_WALK_SEED", 1)));
        for (int step = FromEnvironment("VELMORA_WALK_STEPS", kSteps); step > 0; --step)
            walk.Step();
    }
};

} // namespace

QTEST_MAIN(WalkTest)
#include "walk.moc"
