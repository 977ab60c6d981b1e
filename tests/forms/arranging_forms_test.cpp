// The commands that arrange tabs and pages, driven through menus, keys and dialogs.
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/RunningProgram.h"

#include <QClipboard>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>

namespace {

using namespace velmora;

class ArrangingFormsTest : public QObject {
    Q_OBJECT

    struct Step {
        const char* command;
        const char* name;        ///< of the undo step
        std::vector<int> places; ///< of which field A is looked at
        const char* texts;
        const char* dialog = nullptr;
        std::vector<const char*> controls = {}; ///< that are clicked, or set to 1, before OK
    };
    static QString Texts(RunningProgram& running, const std::vector<int>& places) {
        QStringList texts;
        for (const int tab : places)
            texts << QString::fromStdString(running.program.main.document.FieldA(tab));
        return texts.join(' ');
    }
    static void Run(RunningProgram& running, const Step& step) {
        std::optional<DialogAnswer> answer;
        if (step.dialog)
            answer.emplace(step.dialog, [&](const QDialog& dialog) {
                for (const char* name : step.controls)
                    if (auto* number = dialog.findChild<QSpinBox*>(name))
                        number->setValue(1);
                    else
                        Click(dialog, name);
                Click(dialog, "cmdOk");
            });
        running.Trigger(step.command);
    }

private slots:
    void init() { FailOnWarnings(); }

    /// Of 48 tabs "a1" to "a48" with the 26th in use.
    void everyCommandIsOneStep() {
        const Step steps[] = {
            {"mnuInsertTab", "Insert Tab", {25, 26, 27, 49}, "a25  a26 a48"},
            {"mnuRemoveTab", "Remove Tab", {25, 26, 48}, "a25 a27 "},
            {"mnuMoveUp", "Move Up", {25, 26, 27}, "a26 a25 a27"},
            {"mnuMoveDown", "Move Down", {25, 26, 27}, "a25 a27 a26"},
            {"mnuFillDown", "Fill Down", {25, 26, 27}, "a25 a25 a27"},
            {"mnuInsertPage", "Insert Page", {24, 25, 48, 49}, "a24   a25"},
            {"mnuDuplicatePage", "Duplicate Page", {25, 49, 72}, "a25 a25 a48"},
            {"mnuMovePage", "Move Page", {1, 24, 25}, "a25 a48 a1", "frmMovePage", {"txtPage"}},
            {"mnuSort", "Sort", {24, 25, 48}, "a24 a48 a25", "frmSort", {"optDescending", "optThisPage"}},
            {"mnuSort", "Sort", {1, 2, 48}, "a48 a47 a1", "frmSort", {"optDescending"}},
            {"mnuRemoveDuplicates", "Remove Duplicates", {1, 2}, "a1 ", "frmRemoveDuplicates", {"chkField1"}},
        };
        RunningProgram running(0, 2, 2);
        const TabDocument& document = running.program.main.document;
        running.Trigger("mnuLastPage");
        running.Enter("TextA1(2)");
        const auto texts = [&] { return std::array{document.FieldA, document.FieldB, document.FieldC}; };
        const auto start = texts();
        for (const Step& step : steps) {
            Run(running, step);
            QCOMPARE(Texts(running, step.places), QString(step.texts));
            QCOMPARE(running.window->findChild<QAction*>("mnuUndo")->text(), QString("&Undo ") + step.name);
            QCOMPARE(running.test.Stored("Settings", "No Of Pages"), std::to_string(document.NoOfPages));
            QVERIFY(running.window->isWindowModified());
            running.Trigger("mnuUndo");
            QVERIFY(texts() == start && !running.window->isWindowModified());
            QCOMPARE(running.Panel(4), QString("Pg No: 2 of 2"));
            running.Enter("TextA1(2)");
        }
    }

    void keysMoveATabAndTheFieldInUseStays() {
        RunningProgram running(0, 2, 2);
        running.Enter("TextA2(24)");
        running.Press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(running.Panel(4), QString("Pg No: 2 of 2"));
        QCOMPARE(running.Focused(), QString("TextA2(1)"));
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("a24"));
        running.Press(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(Texts(running, {23, 24, 25}), QString("a23 a24 a25"));
        running.Press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(Texts(running, {24}), QString("a23"));
    }

    void goToShowsWhereItLeads() {
        RunningProgram running(0, 2, 3);
        const std::tuple<const char*, int, const char*> places[] = {{"3", 0, "TextA1(1) No of tabs: 49 of 72: a49"},
                                                                    {"3", 1, "TextA1(3) No of tabs: 3 of 72: a3"},
                                                                    {"A7", 1, "TextA1(22) No of tabs: 70 of 72: a7"}};
        for (const auto& [typed, downs, reached] : places) {
            {
                const DialogAnswer answer("frmGoTo", [typed = typed, downs = downs](QDialog& dialog) {
                    QVERIFY(!Get<QPushButton>(dialog, "cmdGo").isEnabled());
                    auto& entry = Get<QLineEdit>(dialog, "txtPlace");
                    entry.setText("zzz");
                    QCOMPARE(Get<QLabel>(dialog, "lblResult").text(), QString("Nowhere."));
                    entry.setText(typed);
                    for (int i = 0; i < downs; ++i)
                        QTest::keyClick(&entry, Qt::Key_Down);
                    QTest::keyClick(&entry, Qt::Key_Return);
                });
                running.Trigger("mnuGoTo");
            }
            const auto* box = qobject_cast<QLineEdit*>(running.window->focusWidget());
            QCOMPARE(running.Focused() + " " + running.Panel(5) + ": " + box->selectedText(), QString(reached));
        }
    }

    void markedTabsGoToTheClipboardAndBack() {
        RunningProgram running(0, 2, 2);
        const auto press = [&](int key) { running.Press(key, Qt::ControlModifier); };
        running.Enter("TextA2(2)");
        running.program.main.editor->MarkTabs({2, 4});
        press(Qt::Key_C);
        QCOMPARE(QApplication::clipboard()->text(), QString("a2\tb\na4\tb\n"));
        for (const int key : {Qt::Key_Delete, Qt::Key_Backspace}) {
            running.Press(key);
            QCOMPARE(Texts(running, {1, 2, 3, 4}), QString("a1  a3 "));
            running.Trigger("mnuUndo");
            running.program.main.editor->MarkTabs({2, 4});
        }
        press(Qt::Key_X);
        QCOMPARE(Texts(running, {2, 3, 4}), QString(" a3 "));
        running.program.main.editor->MarkTabs({24});
        press(Qt::Key_V);
        QCOMPARE(Texts(running, {24, 25, 26}), QString("a2 a4 a26"));
        QCOMPARE(running.program.main.editor->MarkedTabs(), (TabNumbers{24, 25}));
        QApplication::clipboard()->setText("x");
        press(Qt::Key_V);
        QCOMPARE(Texts(running, {23, 24, 25}), QString("a23 a2 a4"));
        QCOMPARE(running.program.main.document.FieldB(25), std::string("x")); // the field in use
    }

    void whatTheEditMenuGreysWorksOnceItIsClosed() {
        RunningProgram running(0, 1, 1);
        QApplication::clipboard()->clear();
        auto* menu = running.window->findChild<QMenu*>("mnuEdit");
        const auto* paste = running.window->findChild<QAction*>("mnuPaste");
        menu->popup({});
        QVERIFY(!paste->isEnabled());
        menu->hide();
        QTRY_VERIFY(paste->isEnabled());
    }

    void whatIsPastedOrDeletedWithoutMarksIsText() {
        RunningProgram running(0, 1, 1);
        running.Enter("TextA1(24)");
        QApplication::clipboard()->setText("x\r\ny\r\n");
        running.test.ui.Expect("Add 1 page?", Icon::Question, Buttons::YesNo, Answer::Yes);
        running.Trigger("mnuPaste");
        QCOMPARE(Texts(running, {23, 24, 25}), QString("a23 x y"));
        running.Trigger("mnuUndo");
        QCOMPARE(running.program.main.editor->MarkedTabs(), TabNumbers{24}); // none that is gone
        running.Box("TextA1(24)")->setSelection(0, 1);
        running.Trigger("mnuDelete");
        QCOMPARE(Texts(running, {24}), QString("24"));
        QApplication::clipboard()->setText("plain\r\n");
        running.Trigger("mnuPaste");
        QCOMPARE(Texts(running, {24}), QString("plain24"));
    }
};

} // namespace

FORMS_TESTS(ArrangingFormsTest)

#include "arranging_forms_test.moc"
