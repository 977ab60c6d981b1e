// Open, New, Save, pages and find, each flow driven through the window's own commands.
#include "editor/ui/frmFind.h"
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/RunningProgram.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace {

using namespace velmora;

const std::string kSaveQuestion = "Do you want to save the current document?";

class FlowsFormsTest : public QObject {
    Q_OBJECT

    static std::string Named(const RunningProgram& running, const char* name) {
        return "[" + (running.test.folder / name).string() + "]";
    }
    static void Ask(RunningProgram& running, const std::string& text, Answer answer) {
        running.test.ui.Expect(text, Icon::Question, Buttons::YesNoCancel, answer);
    }
    static void Tell(RunningProgram& running, const std::string& text, Icon icon = Icon::Information) {
        running.test.ui.Expect(text, icon);
    }
    /// As an input method types it, so that it may be any letter.
    static void Type(RunningProgram& running, const char* box, const char* text) {
        running.Box(box)->selectAll();
        QInputMethodEvent typed;
        typed.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(running.Box(box), &typed);
    }

private slots:
    void init() { FailOnWarnings(); }

    void openAsksAboutANamedDocument() {
        RunningProgram running;
        running.Start(0, 1, 1);
        const auto& in = running.test.folder;
        ReplaceFile(in / "other.csv", "Version 8\r\nP,A4,1,1\r\n0,0\r\nA\r\nB\r\nC\r\nother\r\n");
        Type(running, "TextA1(1)", "typed");
        Ask(running, kSaveQuestion, Answer::Cancel);
        running.Trigger("mnuOpen");
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("typed"));
        Ask(running, kSaveQuestion, Answer::Yes);
        Tell(running, "File saved successfully");
        running.test.ui.ExpectChooser("Open", in / "other.csv");
        running.Trigger("mnuOpen");
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("other"));
        QVERIFY(ReadFile(in / "in.csv").find("typed") != std::string::npos);
        Ask(running, kSaveQuestion, Answer::No);
        running.test.ui.ExpectChooser("Open", in / "in.csv");
        running.Trigger("mnuOpen");
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("typed"));
        QVERIFY(
            running.window->windowTitle().startsWith("Velmora " + QString::fromStdString(Named(running, "in.csv"))));
    }

    void openAnnouncesWhatIsNoVersion8File() {
        RunningProgram running;
        running.Start(); // untitled: nothing is asked
        ReplaceFile(running.test.folder / "plain.csv", "one\r\n");
        running.test.ui.ExpectChooser("Open", running.test.folder / "plain.csv",
                                      "OPEN|Velmora/csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls|Tabs.csv");
        Tell(running, "The file: " + Named(running, "plain.csv") +
                          " is not an Velmora version 7 or version 8 file.\r\n\r\nVelmora will attempt to import it!");
        {
            const DialogAnswer import("frmImport", [](QDialog& dialog) { dialog.accept(); });
            running.Trigger("mnuOpen");
        }
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("one"));

        ReplaceFile(running.test.folder / "seven.csv", "VERSION7\r\nP,A4,1,2\r\n0,0\r\nA\r\nB\r\nC\r\nold,,\r\n");
        Ask(running, kSaveQuestion, Answer::No);
        running.test.ui.ExpectChooser("Open", running.test.folder / "seven.csv");
        Tell(running, "The file: " + Named(running, "seven.csv") +
                          " is an Velmora version 7 file.\r\n\r\nVelmora will upgrade it to a version 8 file!");
        running.Trigger("mnuOpen");
        QCOMPARE(running.program.main.document.setup.OptType, 1);
        Tell(running, "File saved successfully");
        running.Trigger("mnuSave");
        QVERIFY(ReadFile(running.test.folder / "seven.csv").starts_with("Version 8\r\n"));
    }

    void savingAsksForANameAndBeforeOverwriting() {
        RunningProgram running;
        running.Start();
        const auto file = running.test.folder / "a.csv";
        Type(running, "TextA1(1)", "first");
        running.test.ui.ExpectChooser("Save as", file, "SAVE|Velmora file(*.csv)|*.csv|Tabs.csv");
        running.Trigger("mnuSave"); // a new name: saved without a word
        QCOMPARE(running.test.Stored("Paths", "Lables"), running.test.folder.Path().string() + "/");
        QVERIFY(!running.window->isWindowModified());
        const std::string question = "Do you want to overwrite the following file?\r\n" + Named(running, "a.csv");
        Type(running, "TextA1(1)", "second");
        running.test.ui.ExpectChooser("Save as", file);
        running.test.ui.Expect(question, Icon::Question, Buttons::YesNo, Answer::No, Answer::No);
        running.test.ui.ExpectChooser("Save as", std::nullopt);
        running.Trigger("mnuSaveAs");
        QVERIFY(running.window->isWindowModified());
        QVERIFY(ReadFile(file).find("first") != std::string::npos);
        running.test.ui.ExpectChooser("Save as", file);
        running.test.ui.Expect(question, Icon::Question, Buttons::YesNo, Answer::Yes, Answer::No);
        Tell(running, "File saved successfully");
        running.Trigger("mnuSaveAs");
        QVERIFY(ReadFile(file).find("second") != std::string::npos);
    }

    void aFailedCreationIsRetriedUntilItsCauseIsGone() {
        RunningProgram running;
        running.Start(0, 1, 1);
        const auto folder = running.test.folder / "gone";
        running.program.main.document.DocFileName = folder / "a.csv";
        Type(running, "TextA1(1)", "typed");
        const std::string failure =
            "The application encountered the following error when it attempted to save the following file: [" +
            (folder / "a.csv").string() + "]\r\nError Nommer:2\r\nError Description:No such file or directory";
        running.test.ui.Expect(failure, Icon::Critical, Buttons::RetryCancel, Answer::Retry);
        running.test.ui.Expect(failure, Icon::Critical, Buttons::RetryCancel, Answer::Cancel);
        Tell(running, "File was NOT saved succesfully!");
        Tell(running, "Could not finish process");
        running.Trigger("mnuSave");
        QVERIFY(running.window->isWindowModified());
        running.test.ui.Expect(failure, Icon::Critical, Buttons::RetryCancel, Answer::Retry, std::nullopt,
                               [&] { std::filesystem::create_directory(folder); });
        Tell(running, "File saved successfully");
        running.Trigger("mnuSave");
        QVERIFY(!running.window->isWindowModified());
    }

    void anExportIsACopyWithoutHeader() {
        RunningProgram running;
        running.Start(0, 1, 1);
        Type(running, "TextA1(2)", "typed");
        running.test.ui.ExpectChooser("Export", running.test.folder / "out.csv");
        running.Trigger("mnuExport");
        QVERIFY(ReadFile(running.test.folder / "out.csv").starts_with("a1,b,c\r\ntyped,b,c\r\n"));
        QVERIFY(running.window->windowTitle().contains("in.csv"));
        QVERIFY(running.window->isWindowModified());
        QVERIFY(ReadFile(running.test.folder / "in.csv").find("typed") == std::string::npos);
    }

    void newKeepsWhatACancelLeaves() {
        RunningProgram running;
        running.Start(0, 1, 1);
        Ask(running, kSaveQuestion, Answer::Cancel);
        running.Trigger("mnuNew");
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("a1"));
        QCOMPARE(running.window->windowTitle(), QString("Velmora [Untitled][*]"));
        running.Trigger("mnuNew"); // untitled now
        QCOMPARE(running.Box("TextA1(1)")->text(), QString());
    }

    void findGoesFromMatchToMatchAndReplaces() {
        RunningProgram running;
        running.Start(0, 2, 3);
        Type(running, "TextA2(3)", "\u00c9t\u00e9 B");
        running.Trigger("mnuFind");
        auto* form = running.window->findChild<frmFind*>();
        const auto button = [&](const char* name) { return form->findChild<QPushButton*>(name); };
        QVERIFY(!button("cmdFindNext")->isEnabled());
        const auto find = [&](const QString& text) { form->findChild<QLineEdit*>("txtFind")->setText(text); };
        const auto focused = [&] { return running.window->focusWidget()->objectName() + " " + running.Panel(5); };
        const auto result = [&] { return form->findChild<QLabel*>("lblResult")->text(); };
        find("\u00e9T\u00c9");
        button("cmdFindNext")->click();
        QCOMPARE(focused(), QString("TextA2(3) No of tabs: 3 of 72"));
        QCOMPARE(running.Box("TextA2(3)")->selectedText(), QString("\u00c9t\u00e9"));
        find("A72");
        running.Trigger("mnuFindNext");
        QCOMPARE(focused(), QString("TextA1(24) No of tabs: 72 of 72"));
        form->findChild<QCheckBox*>("chkMatchCase")->setChecked(true);
        button("cmdFindNext")->click();
        QCOMPARE(result(), QString("Not found."));
        find("B");
        form->findChild<QComboBox*>("cboField")->setCurrentIndex(2);
        form->findChild<QLineEdit*>("txtReplace")->setText("C");
        button("cmdReplace")->click();
        QCOMPARE(result(), QString("Found from the first tab on."));
        button("cmdReplace")->click();
        QCOMPARE(running.Box("TextA2(3)")->text(), QString("\u00c9t\u00e9 C"));

        find("b");
        form->findChild<QLineEdit*>("txtReplace")->setText(QString(21, 'x'));
        running.test.ui.Expect("Texts that would become longer than their field allows, and stay as they are: 71\r\n"
                               "Do you want to replace the others?",
                               Icon::Question, Buttons::YesNo, Answer::No);
        button("cmdReplaceAll")->click();
        form->findChild<QLineEdit*>("txtReplace")->setText("bb");
        button("cmdReplaceAll")->click();
        QCOMPARE(result(), QString("Texts replaced: 71"));
        QCOMPARE(running.program.main.document.FieldB(72), std::string("bb"));
        QCOMPARE(running.program.main.document.FieldA(2), std::string("a2"));
        running.Trigger("mnuUndo");
        QCOMPARE(running.program.main.document.FieldB(72), std::string("b"));
        running.Trigger("mnuUndo"); // one replaced, which goes back to where it was
        running.Trigger("mnuUndo"); // typing: its box is shown again
        QCOMPARE(running.window->focusWidget()->objectName(), QString("TextA2(3)"));
        QVERIFY(!running.window->isWindowModified());
    }
};

} // namespace

QTEST_MAIN(FlowsFormsTest)
#include "flows_forms_test.moc"
