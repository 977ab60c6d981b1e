// What stands around the sheet: the page strip at its left, the toolbar above and the status line below.
#include "editor/ui/PageStrip.h"
#include "tests/forms/RunningProgram.h"
#include "tests/support/FakePrinters.h"
#include "widgets/ElidedLabel.h"
#include "workspace/ArrangePages.h"
#include "workspace/Pages.h"
#include "workspace/SortTabs.h"

#include <QAbstractItemDelegate>
#include <QAccessible>
#include <QPushButton>

namespace {

using namespace velmora;

/// Passes on what a view asks its delegate, and counts.
class CountingDelegate : public QAbstractItemDelegate {
public:
    explicit CountingDelegate(QAbstractItemDelegate& real) : real_(real) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        ++paints;
        real_.paint(painter, option, index);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        ++sizes;
        return real_.sizeHint(option, index);
    }
    mutable int paints = 0;
    mutable int sizes = 0;

private:
    QAbstractItemDelegate& real_;
};

struct FakeDesktop : Desktop {
    bool OpenFile(const std::filesystem::path& file) override {
        opened = file;
        return false;
    }
    std::filesystem::path opened;
};

class StripFormsTest : public QObject {
    Q_OBJECT

    static PageStrip& Strip(const RunningProgram& running) { return *running.window->findChild<PageStrip*>(); }
    /// "2 of 3: Page 2, filled", as it is shown and as it is read out.
    static QString InView(const RunningProgram& running) {
        const PageStrip& strip = Strip(running);
        const QAccessibleInterface& list = *QAccessible::queryAccessibleInterface(&Strip(running));
        const int row = strip.currentIndex().row();
        return QString("%1 of %2: ").arg(row + 1).arg(strip.model()->rowCount()) +
               list.child(row)->text(QAccessible::Name);
    }
    static QString Done(const RunningProgram& running) {
        const auto* button = running.window->findChild<QPushButton*>("cmdDone");
        return running.window->findChild<QLabel*>("lblDone")->text() +
               (button->isVisible() ? " [" + button->text() + "]" : QString());
    }
    static void ClickDone(RunningProgram& running) { running.window->findChild<QPushButton*>("cmdDone")->click(); }

private slots:
    void init() { FailOnWarnings(); }

    void theStripFollowsTheDocument() {
        RunningProgram running(0, 1, 2);
        QCOMPARE(InView(running), QString("1 of 2: Page 1, filled"));
        running.Trigger("mnuNewPage");
        QCOMPARE(InView(running), QString("3 of 3: Page 3, empty"));
        QTest::keyClicks(running.Box("TextA1(2)"), "x");
        QCOMPARE(InView(running), QString("3 of 3: Page 3, partly filled"));
        running.Trigger("mnuUndo");
        running.Trigger("mnuUndo");
        QCOMPARE(InView(running), QString("1 of 2: Page 1, filled"));
    }

    void keysInTheStripStayThereAndAClickLeavesTheBoxInUse() {
        RunningProgram running(0, 1, 4);
        PageStrip& strip = Strip(running);
        QTest::keyClicks(running.Enter("TextA1(5)"), "typed");
        QTest::keyClick(running.window, Qt::Key_F6);
        const std::pair<Qt::Key, int> moves[] = {
            {Qt::Key_Down, 2}, {Qt::Key_End, 4}, {Qt::Key_Up, 3}, {Qt::Key_PageUp, 2}, {Qt::Key_Home, 1}};
        for (const auto& [key, page] : moves) {
            running.Press(key);
            QCOMPARE(running.Panel(4), QString("Pg No: %1 of 4").arg(page));
            QVERIFY(strip.hasFocus());
        }
        QCOMPARE(running.program.main.document.FieldA(5), std::string("typeda5"));
        running.DeletePage();
        QVERIFY(strip.hasFocus());
        QTest::keyClick(&strip, Qt::Key_Down);
        QTest::keyClick(&strip, Qt::Key_Return);
        QCOMPARE(running.Focused() + " " + running.Panel(5), QString("TextA1(1) No of tabs: 25 of 72"));
        running.Enter("TextA1(3)");
        QTest::mouseClick(strip.viewport(), Qt::LeftButton, {}, strip.visualRect(strip.model()->index(2, 0)).center());
        QCOMPARE(running.Panel(4), QString("Pg No: 3 of 3"));
        QCOMPARE(running.Focused(), QString("TextA1(3)"));
    }

    void thousandsOfPagesOfAnotherShapeAreDrawnWhereTheyAreSeen() {
        RunningProgram running(0, 1, 1);
        PageStrip& strip = Strip(running);
        const auto height = [&] { return strip.visualRect(strip.currentIndex()).height(); };
        const auto open = [&](std::size_t tabs) {
            ReplaceFile(running.test.folder / "dl.csv",
                        "Version 8\r\nP,DL_v,5,1\r\n0,0\r\nA\r\nB\r\nC\r" + std::string(tabs + 1, '\n'));
            running.program.main.document.DocFileName.clear(); // which it does not ask about
            running.test.ui.ExpectChooser("Open", running.test.folder / "dl.csv");
            running.Trigger("mnuOpen");
        };
        const int before = height();
        open(1);
        QTRY_COMPARE(height(), strip.sizeHintForRow(0));
        QVERIFY(height() < before);

        CountingDelegate counting(*strip.itemDelegate());
        strip.setItemDelegate(&counting);
        open(32760);
        QTRY_VERIFY(counting.paints > 0);
        QCOMPARE(strip.model()->rowCount(), 2730);
        QVERIFY(counting.paints + counting.sizes < 100);
        QCoreApplication::processEvents();
        counting.paints = 0;
        QTest::keyClicks(running.Box("TextA1(1)"), "x");
        QTRY_VERIFY(counting.paints > 0);
        QCOMPARE(counting.paints, 1); // the page in view
    }

    void whetherTheStripIsShownIsRemembered() {
        RunningProgram running(0, 1, 1);
        QVERIFY(Strip(running).isVisible());
        running.Trigger("mnuPageStrip");
        QVERIFY(!Strip(running).isVisible());
        QCOMPARE(running.test.Stored("Settings", "Page Strip"), std::string("False"));
        for (const char* stored : {"False", "True", "?"}) {
            RunningProgram next;
            next.test.Store("Settings", "Page Strip", stored);
            next.test.Store("Form Position", "mdiVelmora", "0,0,400,300");
            next.Start(0, 1, 1);
            QCOMPARE(Strip(next).isVisible(), *stored == 'T');
            QCOMPARE(next.window->findChild<QAction*>("mnuPageStrip")->isChecked(), *stored == 'T');
        }
    }

    void theStatusLineSaysWhatWasDoneAndOffersWhatFollows() {
        FakePrinters printers;
        RunningProgram running(&printers);
        FakeDesktop desktop;
        running.program.desktop.Take(desktop);
        running.Start(0, 1, 2);
        running.program.main.globals.PrinterName = "Office";
        QTest::keyClicks(running.Enter("TextA1(1)"), "typed");
        printers.waits = "the printer is stopped";
        running.Trigger("mnuPrint");
        QCOMPARE(Done(running), QString("2 sheets sent to Office; the job waits: the printer is stopped"));
        QCOMPARE(running.window->focusWidget()->accessibleDescription(), Done(running));
        const auto pdf = running.test.folder / "out.pdf";
        running.test.ui.ExpectChooser("Save as PDF", pdf);
        running.Trigger("mnuSavePdf");
        QCOMPARE(Done(running), QString::fromStdString("2 sheets saved as " + pdf.string() + " [&Open]"));
        QTest::keyClicks(running.Box("TextA1(1)"), "x");
        running.test.ui.Expect("There is no program that opens the following file.\r\n[" + pdf.string() + "]",
                               Icon::Information);
        ClickDone(running);
        QCOMPARE(desktop.opened, pdf);
        running.DeletePage();
        QCOMPARE(Done(running), QString("Page 1 deleted [&Undo]"));
        ClickDone(running);
        QCOMPARE(Done(running), QString());
        QCOMPARE(running.Panel(4), QString("Pg No: 1 of 2"));
        running.program.main.document.FieldA(30).clear(); // on the page not in view
        SortTabs(running.program.main, {});
        QCOMPARE(Done(running), QString("47 tabs sorted [&Undo]"));
        SortTabs(running.program.main, {});
        QCOMPARE(Done(running), QString("Sort: nothing changed"));
        CleanLabels(running.program.main);
        QCOMPARE(Done(running), QString("Empty tabs deleted, 47 tabs left [&Undo]"));
        DuplicatePage(running.program.main);
        QCOMPARE(Done(running), QString("Page 2 duplicated [&Undo]"));
        ClickDone(running);
        running.DeletePage();
        QTest::keyClicks(running.Box("TextA1(1)"), "x"); // which an undo would take back
        QCOMPARE(Done(running), QString());
        running.test.ui.Expect("File saved successfully", Icon::Information);
        running.Trigger("mnuSave");
        QCOMPARE(Done(running), QString::fromStdString("Saved: " + (running.test.folder / "in.csv").string()));
        const auto copy = running.test.folder / "a.xls";
        const QString left = " (no tab type, no fonts): " + QString::fromStdString(copy.string());
        running.test.ui.ExpectChooser("Export", copy);
        running.Trigger("mnuExport");
        QCOMPARE(Done(running), "Written" + left + " [&Open]");
        std::filesystem::remove(copy);
        running.test.ui.ExpectChooser("Save as", copy);
        running.Trigger("mnuSaveAs");
        QCOMPARE(Done(running), "Saved" + left);
        running.program.desktop.Leave();
    }

    void theStatusLineTellsAllWhereItIsCut() {
        ElidedLabel label(true, Elided::Caption);
        label.Show("Stationery: A4");
        const auto shown = [&](const char* room) {
            label.resize(label.fontMetrics().horizontalAdvance(room), 20);
            return label.Shown();
        };
        QCOMPARE(shown("Stationery: A4") + shown("A4"), QString("Stationery: A4A4"));
        QVERIFY(shown("Stati\u2026: A4").endsWith("\u2026: A4"));
        RunningProgram running(0, 2, 1);
        const auto* panel = running.window->findChild<QLabel*>("Panel2");
        QTRY_COMPARE(panel->toolTip(), QString());
        running.window->resize(300, 300);
        QTRY_COMPARE(panel->toolTip(), QString("Tab Type: 8 rows, 3  Columns"));
        running.window->resize(700, 300);
        running.Trigger("mnuNewPage");
        running.program.main.status->Tell({std::string(200, 'x'), true});
        const auto width = [&](const char* name) { return running.window->findChild<QWidget*>(name)->width(); };
        QTRY_VERIFY(width("lblDone") >= running.window->width() / 3);
        QCOMPARE(running.window->width(), 700);
        QCOMPARE(width("Panel4"), running.window->findChild<QLabel*>("Panel4")->sizeHint().width());
        running.Trigger("mnuFirstPage");
        QTest::keyClicks(running.Enter("TextA1(12)"), "four");
        QCOMPARE(running.window->findChild<QLabel*>("lblBox")->text().section(';', 0, 0), QString("7 of 20"));
    }
};

} // namespace

FORMS_TESTS(StripFormsTest)

#include "strip_forms_test.moc"
