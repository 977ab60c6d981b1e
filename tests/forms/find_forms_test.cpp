// Find and replace, driven through its controls.
#include "editor/ui/frmFind.h"
#include "tests/forms/RunningProgram.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace {

using namespace velmora;

class FindFormsTest : public QObject {
    Q_OBJECT

    /// As an input method types it, so that it may be any letter.
    static void Type(RunningProgram& running, const char* box, const char* text) {
        running.Box(box)->selectAll();
        QInputMethodEvent typed;
        typed.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(running.Box(box), &typed);
    }

private slots:
    void init() { FailOnWarnings(); }

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

FORMS_TEST_MAIN(FindFormsTest)

#include "find_forms_test.moc"
