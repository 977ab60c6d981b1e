// A person who does anything in any order: enabled commands, typing, find and replace, with answers by chance. Whatever
// happens, the document stays whole, and every state can be had back. The seed is fixed; VELMORA_WALK_STEPS and
// VELMORA_WALK_SEED make the walk longer or another one.
#include "app/Commands.h"
#include "editor/ui/frmFind.h"
#include "editor/ui/frmGrid2a4.h"
#include "tests/forms/RunningProgram.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPushButton>

#include <random>

namespace {

using namespace velmora;

/// What a person would call the document.
struct State {
    std::array<FieldTexts, 3> texts;
    std::int16_t pages;
    std::int16_t fields;
    std::int16_t type;
    bool operator==(const State&) const = default;
};

State StateOf(const TabDocument& document) {
    return {
        {document.FieldA, document.FieldB, document.FieldC}, document.NoOfPages, document.NoOfFields, document.OptType};
}

class Chance {
public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    int Below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
    template <typename Row> const auto& Of(const Row& row) {
        return row[static_cast<std::size_t>(Below(static_cast<int>(std::size(row))))];
    }

private:
    std::mt19937 engine_;
};

/// Answers what its buttons allow, and chooses one of a few files, or none.
class AnyAnswer : public UserInterface {
public:
    AnyAnswer(Chance& chance, std::filesystem::path folder) : chance_(chance), folder_(std::move(folder)) {}

    Answer Show(const Message& message) override {
        saved = saved || message.text == "File saved successfully";
        if (message.icon == Icon::Critical)
            qFatal("an error was shown: %s", message.text.c_str());
        switch (message.buttons) {
        case Buttons::YesNo: return chance_.Of(std::array{Answer::Yes, Answer::No});
        case Buttons::YesNoCancel: return chance_.Of(std::array{Answer::Yes, Answer::No, Answer::Cancel});
        case Buttons::RetryCancel: return Answer::Cancel;
        case Buttons::Ok: break;
        }
        return Answer::Ok;
    }
    void Beep() override {}
    std::unique_ptr<Progress> StartProgress(const std::string&, int) override { return std::make_unique<Silent>(); }
    std::unique_ptr<Progress> StartCancellable(const std::string&, int) override { return std::make_unique<Silent>(); }
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override {
        if (request.title == "Save as PDF" || chance_.Below(4) == 0)
            return std::nullopt;
        return folder_ / chance_.Of(std::array{"a.csv", "b.csv", "in.csv"});
    }
    std::optional<std::filesystem::path> ChooseFolder(const std::string&, const std::filesystem::path&) override {
        return std::nullopt;
    }

    bool saved = false; ///< said so since this was cleared last

private:
    struct Silent : Progress {
        void Advance(int) override {}
    };

    Chance& chance_;
    std::filesystem::path folder_;
};

/// Takes a list as it is offered, or cancels.
struct AnyImport : ImportDialogs {
    explicit AnyImport(Chance& chance) : chance_(chance) {}
    std::string SelectSheet(const std::vector<std::string>&) override { return ""; }
    std::optional<ImportChoice> ChooseImport(const ImportRequest&, const ImportChoice& choice) override {
        return chance_.Below(3) > 0 ? std::optional(choice) : std::nullopt;
    }

private:
    Chance& chance_;
};

/// A started program whose person answers by chance.
class WalkingProgram : public Forms {
public:
    explicit WalkingProgram(Chance& chance) : person(chance, test.folder.Path()), imports(chance) {
        std::filesystem::create_directory(test.folder / "Images");
        std::filesystem::create_directory(test.folder / "Tabs");
        Main(program, "", *this);
        program.main.dialogs = &imports;
    }
    void ShowMainWindow() override {
        window = std::make_unique<mdiVelmora>(program);
        window->show();
        window->activateWindow();
    }
    void ShowPrinterSetup() override {}
    void ShowMarginSetup() override {}
    LoadOutcome ShowPageSetup() override { return LoadOutcome::Loaded; }
    void ShowSettingsEditor() override {}
    QAction* Item(const char* name) { return window->findChild<QAction*>(name); }

    FontconfigCatalogue fonts;
    TestProgram test{[](const std::string& text) { qFatal("%s", text.c_str()); }};
    AnyAnswer person;
    AnyImport imports;
    Program program{{test.settings, person, test.printers, test.workbooks, {}, {}, {}}, {}, fonts, {}, {}, {}};
    std::unique_ptr<mdiVelmora> window;
};

class Walk {
public:
    Walk(WalkingProgram& running, Chance& chance)
        : running_(running), chance_(chance), document_(running.program.main.document),
          history_(running.program.history), start_(StateOf(document_)), saved_(start_) {}

    void Step() {
        running_.person.saved = false;
        switch (chance_.Below(12)) {
        case 0: return Check(&Walk::Replace);
        case 1: return Check(&Walk::Save);
        case 2: return Check(&Walk::MoveInHistory);
        case 3:
        case 4: return Check(&Walk::ChangePages);
        case 5: return Check(&Walk::Find);
        case 6: return Check(&Walk::PasteOrCut);
        case 7: return Check(&Walk::AllTheWayBack);
        case 8:
        case 9: return Check(&Walk::PressKey);
        default: return Check(&Walk::Type);
        }
    }

private:
    bool Trigger(const char* name) {
        done_ += std::string(" ") + name;
        const bool enabled = running_.Item(name)->isEnabled();
        if (enabled)
            running_.Item(name)->trigger();
        return enabled;
    }
    /// Seldom, so that histories grow.
    void Replace() {
        if (chance_.Below(6) != 0)
            return;
        const auto kept = running_.program.recovery->List();
        if (chance_.Below(3) != 0 || kept.empty()) {
            Trigger(chance_.Of(std::array{"mnuNew", "mnuOpen"}));
        } else {
            done_ += " recover";
            RestoreCommand(running_.program.main,
                           kept[static_cast<std::size_t>(chance_.Below(static_cast<int>(kept.size())))]);
        }
        if (running_.person.saved) // and then perhaps no other was chosen
            saved_ = StateOf(document_);
        if (history_.CanUndo() || history_.CanRedo())
            return;
        start_ = StateOf(document_);
        saved_ = document_.DocChanged ? std::nullopt : std::optional(start_);
    }
    void Save() {
        if (Trigger(chance_.Of(std::array{"mnuSave", "mnuSaveAs", "mnuExport"})) && !document_.DocChanged &&
            done_ != " mnuExport")
            saved_ = StateOf(document_);
    }
    void MoveInHistory() { Trigger(chance_.Of(std::array{"mnuUndo", "mnuUndo", "mnuRedo"})); }
    void ChangePages() {
        Trigger(chance_.Of(std::array{"mnuFirstPage", "mnuPreviousPage", "mnuNextPage", "mnuLastPage", "mnuNewPage",
                                      "mnuDeletePage", "mnuDeletePage", "mnuDeleteEmpries"}));
    }
    QLineEdit* EnterAnyBox() {
        QLineEdit* box = running_.window->findChild<frmGrid2a4*>()->Box(chance_.Below(document_.NoOfFields),
                                                                        chance_.Below(document_.TabsPerPage) + 1);
        running_.window->activateWindow();
        box->setFocus();
        done_ += " " + box->objectName().toStdString();
        return box;
    }
    void Type() {
        QLineEdit* box = EnterAnyBox();
        if (chance_.Below(2) == 0)
            box->selectAll();
        QInputMethodEvent typed;
        typed.setCommitString(AnyText());
        done_ += " types " + typed.commitString().toStdString();
        QApplication::sendEvent(box, &typed);
    }
    void PressKey() {
        QWidget* focused = running_.window->focusWidget();
        const Qt::Key key = chance_.Of(std::array{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Up,
                                                  Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Backspace,
                                                  Qt::Key_Delete, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_X});
        done_ += " key " + std::to_string(key);
        if (focused)
            QTest::keyClick(
                focused, key,
                chance_.Of(std::array{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}));
    }
    void PasteOrCut() {
        QLineEdit* box = EnterAnyBox();
        if (chance_.Below(3) == 0) {
            box->selectAll();
            Trigger("mnuCut");
            return;
        }
        QApplication::clipboard()->setText(
            QString::fromUtf8(chance_.Of(std::array{"p", "p\tq\nr\n\ns\tt\tu", "\n\n\n", "line\n", "\xc3\xa9\t"})));
        Trigger("mnuPaste");
    }
    void Find() {
        if (!running_.window->findChild<frmFind*>())
            Trigger("mnuFind");
        auto* form = running_.window->findChild<frmFind*>();
        form->findChild<QLineEdit*>("txtFind")->setText(AnyText());
        form->findChild<QLineEdit*>("txtReplace")->setText(AnyText());
        form->findChild<QComboBox*>("cboField")->setCurrentIndex(chance_.Below(4));
        form->findChild<QCheckBox*>("chkMatchCase")->setChecked(chance_.Below(2) == 0);
        for (int count = chance_.Below(4); count >= 0; --count) {
            const char* button = chance_.Of(std::array{"cmdFindNext", "cmdReplace", "cmdReplace", "cmdReplaceAll"});
            done_ += std::string(" ") + button;
            form->findChild<QPushButton*>(button)->click();
        }
    }
    void AllTheWayBack() {
        if (chance_.Below(8) != 0)
            return;
        done_ += " undo all, redo all";
        const State now = StateOf(document_);
        int steps = 0;
        for (; history_.CanUndo(); ++steps)
            running_.Item("mnuUndo")->trigger();
        Need(start_ == StateOf(document_), "undo to the start");
        for (; steps > 0; --steps)
            running_.Item("mnuRedo")->trigger();
        Need(now == StateOf(document_), "redo");
    }

    void Check(void (Walk::*step)()) {
        (this->*step)();
        SaveLabel(running_.program.main, document_.CurrentPage, document_.TabsPerPage);
        for (int field = 0; field < kFieldsPerTab; ++field)
            Need(document_.Field(field).Count() == document_.TabCount, "array sizes");
        Need(document_.NoOfPages * document_.TabsPerPage == document_.TabCount, "whole pages");
        Need(document_.CurrentPage >= 1 && document_.CurrentPage <= document_.NoOfPages, "the page");
        Need(document_.CurrentTab >= 1 && document_.CurrentTab <= document_.TabCount, "the tab");
        Need((document_.CurrentTab - 1) / document_.TabsPerPage + 1 == document_.CurrentPage, "the tab on the page");
        Need(document_.DocChanged || saved_ == StateOf(document_), "unsaved changes");
        Need(document_.DocChanged == running_.window->isWindowModified(), "the caption's mark");
        Need(history_.CanUndo() == running_.Item("mnuUndo")->isEnabled(), "undo enabled");
        Need(history_.CanRedo() == running_.Item("mnuRedo")->isEnabled(), "redo enabled");
        Need((document_.CurrentPage > 1) == running_.Item("mnuFirstPage")->isEnabled(), "first page enabled");
        Need(running_.test.Stored("Settings", "No Of Pages") == std::to_string(document_.NoOfPages), "stored pages");
        NeedShown();
    }
    void NeedShown() {
        auto* grid = running_.window->findChild<frmGrid2a4*>();
        const int before = (document_.CurrentPage - 1) * document_.TabsPerPage;
        for (int slot = 1; slot <= document_.TabsPerPage; ++slot)
            for (int field = 0; field < document_.NoOfFields; ++field)
                Need(grid->Box(field, slot)->text().toStdString() == document_.Field(field)(before + slot),
                     "the boxes");
        const auto panel = [&](int number) {
            return running_.window->findChild<QLabel*>(QString("Panel%1").arg(number))->text();
        };
        Need(panel(4) == QString("Pg No: %1 of %2").arg(document_.CurrentPage).arg(document_.NoOfPages), "panel 4");
        Need(panel(5) == QString("No of tabs: %1 of %2").arg(document_.CurrentTab).arg(document_.TabCount), "panel 5");
    }
    void Need(bool holds, const char* what) {
        trail_ += done_.empty() ? "" : done_ + "\n";
        done_.clear();
        if (!holds)
            qFatal("%s is wrong at the end of\n%s", what,
                   trail_.substr(trail_.size() > 1500 ? trail_.size() - 1500 : 0).c_str());
    }
    QString AnyText() {
        return QString::fromUtf8(chance_.Of(std::array{"a", "A", "b", "", "\xc3\xa9t\xc3\x89", "\xc4\xb0", "12",
                                                       "aaaaaaaaaaaaaaaaaaaaaaaa", " ", "\xf0\x9f\x98\x80"}));
    }

    WalkingProgram& running_;
    Chance& chance_;
    TabDocument& document_;
    UndoHistory& history_;
    State start_;
    std::optional<State> saved_;
    std::string done_, trail_;
};

int FromEnvironment(const char* name, int otherwise) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

class WalkFormsTest : public QObject {
    Q_OBJECT

private slots:
    void nothingIsLostWhateverAPersonDoes() {
        FailOnWarnings();
        Chance chance(static_cast<unsigned>(FromEnvironment("VELMORA_WALK_SEED", 1)));
        WalkingProgram running(chance);
        for (const auto& [name, head] :
             {std::pair{"in.csv", "P,A4,1,3"}, {"a.csv", "P,DL_v,4,1"}, {"b.csv", "P,A4,2,2"}})
            ReplaceFile(running.test.folder / name,
                        std::string("Version 8\r\n") + head +
                            "\r\n0,0\r\nArial,10,False,False,False,0,1\r\nArial,10,False,False,False,2,1\r\n"
                            "Arial,10,False,False,False,1,1\r\n"
                            "a,b,c\r\nA,B,C\r\n");
        QVERIFY(QTest::qWaitForWindowActive(running.window.get()));
        Walk walk(running, chance);
        for (int step = FromEnvironment("VELMORA_WALK_STEPS", 3000); step > 0; --step)
            walk.Step();
    }
};

} // namespace

QTEST_MAIN(WalkFormsTest)
#include "walk_forms_test.moc"
