// Find and replace, driven through its controls.
#include "editor/ui/frmFind.h"
#include "editor/ui/frmGrid2a4.h"
#include "tests/forms/RunningProgram.h"

#include <QComboBox>
#include <QPushButton>

namespace {

using namespace velmora;

/// An editor that is told what to show.
struct SheetWithMarks : GridEditor {
    void ShowText(TabBox place, std::size_t, std::size_t) override { shown = place; }
    void HighlightMatches(const MatchFinder& matches) override { find = matches; }
    TabBox shown;
    MatchFinder find;
};

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
        RunningProgram running(0, 2, 3);
        Type(running, "TextA2(3)", "\u00c9t\u00e9 B");
        running.Trigger("mnuFind");
        auto* form = running.window->findChild<frmFind*>();
        QVERIFY(!Get<QPushButton>(*form, "cmdFindNext").isEnabled());
        const auto set = [&](const char* box, const QString& text) { Get<QLineEdit>(*form, box).setText(text); };
        const auto find = [&](const QString& text) { set("txtFind", text); };
        const auto focused = [&] { return running.Focused() + " " + running.Panel(5); };
        const auto after = [&](const char* button) {
            Click(*form, button);
            return Get<QLabel>(*form, "lblResult").text();
        };
        find("\u00e9T\u00c9");
        Click(*form, "cmdFindNext");
        QCOMPARE(focused(), QString("TextA2(3) No of tabs: 3 of 72"));
        QCOMPARE(running.Box("TextA2(3)")->selectedText(), QString("\u00c9t\u00e9"));
        find("A72");
        running.Trigger("mnuFindNext");
        QCOMPARE(focused(), QString("TextA1(24) No of tabs: 72 of 72"));
        Click(*form, "chkMatchCase");
        QCOMPARE(after("cmdFindNext"), QString("Not found."));
        find("B");
        Get<QComboBox>(*form, "cboField").setCurrentIndex(2);
        set("txtReplace", "C");
        QCOMPARE(after("cmdReplace"), QString("1 of 1, from the first tab on"));
        Click(*form, "cmdReplace");
        QCOMPARE(running.Box("TextA2(3)")->text(), QString("\u00c9t\u00e9 C"));

        find("b");
        set("txtReplace", QString(21, 'x'));
        std::string preview;
        for (const int tab : {1, 2, 4, 5, 6, 7, 8, 9, 10, 11})
            preview += "Tab " + std::to_string(tab) + ", field B: " + std::string(20, 'x') + "[x]\r\n";
        running.test.ui.Expect("Texts that would become longer than their field allows, by what is in brackets, and "
                               "stay as they are: 71\r\n" +
                                   preview + "and 61 more\r\nDo you want to replace the others?",
                               Icon::Question, Buttons::YesNo, Answer::No);
        Click(*form, "cmdReplaceAll");
        set("txtReplace", "bb");
        QCOMPARE(after("cmdReplaceAll"), QString("Texts replaced: 71"));
        QCOMPARE(running.program.main.document.FieldB(72), std::string("bb"));
        QCOMPARE(running.program.main.document.FieldA(2), std::string("a2"));
        running.Trigger("mnuUndo");
        QCOMPARE(running.program.main.document.FieldB(72), std::string("b"));
        running.Trigger("mnuUndo"); // one replaced, which goes back to where it was
        running.Trigger("mnuUndo"); // typing: its box is shown again
        QCOMPARE(running.Focused(), QString("TextA2(3)"));
        QVERIFY(!running.window->isWindowModified());
        Click(*form, "cmdFindNext");
        const QString found = running.Focused();
        Click(*form, "cmdReplace");
        QVERIFY2(running.Focused() != found, "what stands there now holds it, too");
    }

    void findCountsMarksAndGoesOnOverPages() {
        RunningProgram running(0, 2, 3);
        SheetWithMarks marks;
        running.program.main.editor.Take(marks);
        running.Trigger("mnuFind");
        auto* form = running.window->findChild<frmFind*>();
        Get<QLineEdit>(*form, "txtFind").setText("A2");
        running.program.main.document.FieldB(24) = "a2 A2a2";
        int number = 0;
        for (const int tab : {2, 20, 21, 22, 23, 24, 24, 24, 24, 25}) {
            form->FindNext();
            QCOMPARE(Get<QLabel>(*form, "lblResult").text(), QString("%1 of 14").arg(++number));
            QCOMPARE(marks.shown.tab, tab);
            running.program.main.document.CurrentTab = static_cast<std::int16_t>(tab);
        }
        const std::vector<TextSpan> three = {{0, 2}, {3, 2}, {5, 2}};
        QVERIFY(marks.find(1, "a2 A2a2") == three);
        Get<QComboBox>(*form, "cboField").setCurrentIndex(1);
        QVERIFY(marks.find(1, "a2").empty() && marks.find(0, "xa2").size() == 1);
        form->close();
        QVERIFY(!marks.find);
        running.program.main.editor.Take(*running.window->findChild<frmGrid2a4*>());
        const auto isMarked = [&](const char* name) {
            const QLineEdit& box = *running.Box(name);
            return box.parentWidget()->grab(box.geometry()).toImage().pixelColor(box.rect().center()) != Qt::white;
        };
        QVERIFY(!isMarked("TextA1(20)"));
        form->show();
        QVERIFY(isMarked("TextA1(20)") && !isMarked("TextA1(19)"));
    }

    void theWindowDoesNotHideItsMatch() {
        const QRect screen(0, 0, 1000, 800);
        const QRect frame(300, 300, 400, 200);
        const auto placed = [&](const QRect& spot) { return QRect(PlaceBeside(frame, spot, screen), frame.size()); };
        QCOMPARE(placed({0, 0, 100, 30}), frame);
        for (const QRect spot : {QRect(350, 310, 100, 30), QRect(350, 470, 100, 30), QRect(650, 380, 100, 30),
                                 QRect(290, 380, 30, 30), QRect(0, 500, 1000, 300), QRect(0, 0, 320, 800)}) {
            const QRect place = placed(spot);
            QVERIFY(!place.intersects(spot) && screen.contains(place));
        }
        QCOMPARE(placed(screen), frame); // nowhere to go
        RunningProgram running(0, 1, 1);
        running.Trigger("mnuFind");
        auto* form = running.window->findChild<frmFind*>();
        const QWidget& box = *running.Box("TextA1(11)");
        form->move(box.mapToGlobal(QPoint()));
        Get<QLineEdit>(*form, "txtFind").setText("a11");
        form->FindNext();
        QVERIFY(!form->frameGeometry().intersects({box.mapToGlobal(QPoint()), box.size()}));
    }
};

} // namespace

FORMS_TESTS(FindFormsTest)

#include "find_forms_test.moc"
