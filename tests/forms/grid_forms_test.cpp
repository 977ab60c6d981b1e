// The sheet of tabs on the offscreen platform: typing over pages, marking, what is painted and what it says.
#include "editor/ui/frmGrid2a4.h"
#include "report/PrepareReport.h"
#include "report/SheetPainter.h"
#include "report/ui/PainterCanvas.h"
#include "tests/forms/RunningProgram.h"
#include "tests/support/RightToLeft.h"
#include "widgets/Contrast.h"
#include "workspace/TakePageBack.h"

#include <QImage>

namespace {

using namespace velmora;

class GridFormsTest : public QObject {
    Q_OBJECT

    static frmGrid2a4& Grid(RunningProgram& running) { return *running.window->findChild<frmGrid2a4*>(); }
    static void StartEmpty(RunningProgram& running, int type, int fields, int pages) {
        running.Start(type, fields, pages);
        for (int tab = 1; tab <= running.program.main.document.TabCount; ++tab)
            for (int field = 0; field < fields; ++field)
                running.program.main.document.Field(field)(tab).clear();
        Grid(running).BringUp();
    }
    static void ExpectPageQuestion(RunningProgram& running, Answer answer) {
        running.test.ui.Expect("You are at the last page of this document.  Do you want to add a page?", Icon::Question,
                               Buttons::YesNo, answer, Answer::No);
    }
    /// The columns, in device-independent pixels of the sheet, that hold ink as dark as a text's.
    static QRect InkIn(QWidget& sheet, const QRect& box) {
        const QImage image = sheet.grab(box).toImage();
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 80)
                    ink |= QRect(x, y, 1, 1);
        return ink;
    }

    static void CompareWithPaper(int type) {
        RunningProgram running(type, 2, 1);
        running.window->resize(1400, 1000);
        MainModule& module = running.program.main;
        module.fonts[1] = {"Arial", 12, true, false, true, static_cast<std::int16_t>(type % 3), kAlignMiddle};
        module.document.FieldB(3) = "Hil";
        running.Enter("TextA1(1)");
        Grid(running).BringUp();
        QWidget& sheet = *running.Box("TextA2(3)")->parentWidget();
        const QRect box = running.Box("TextA2(3)")->geometry();
        const QRect ink = InkIn(sheet, box);
        LayoutValues layout;
        rptVelmor report =
            MakeReport(layout, DocumentRequest(module.document), {module.document, module.settings, module.fonts});
        Sheet paper;
        report.LayOutSheet(1, paper);
        const auto isTheText = [](const PlacedText& text) { return text.tab == 3 && text.field == 1; };
        const auto found = std::find_if(paper.texts.begin(), paper.texts.end(), isTheText);
        QVERIFY(found != paper.texts.end());
        const PlacedText& placed = *found;
        TextShaper shaper(running.fonts, module.fonts);
        const ShapedText& shaped = shaper.Shape(placed.text, 1);
        const double scale = box.width() / placed.box.width;
        const double left = (PlaceLine(placed, shaped, module.fonts).left - placed.box.left) * scale;
        const double right = left + shaped.width * scale;
        QVERIFY2(std::abs(ink.left() - left) < 3 && std::abs(ink.right() - right) < 3,
                 qPrintable(QString("type %1: %2 to %3").arg(type).arg(ink.left() - left).arg(ink.right() - right)));
        QVERIFY(ink.height() > box.height() / 4);
    }

private slots:
    void init() { FailOnWarnings(); }

    void overTheEndOfAPageAndBack() {
        RunningProgram running(1, 2, 2);
        const auto at = [&] { return running.Focused() + " " + running.Panel(4); };
        running.Enter("TextA2(48)");
        const struct {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            const char* place;
        } moves[] = {
            {Qt::Key_Tab, Qt::NoModifier, "TextA1(1) Pg No: 2 of 2"},
            {Qt::Key_Backtab, Qt::ShiftModifier, "TextA2(48) Pg No: 1 of 2"},
            {Qt::Key_Return, Qt::NoModifier, "TextA2(1) Pg No: 2 of 2"},
            {Qt::Key_Return, Qt::ShiftModifier, "TextA2(48) Pg No: 1 of 2"},
            {Qt::Key_Down, Qt::NoModifier, "TextA2(6) Pg No: 2 of 2"},
            {Qt::Key_Up, Qt::NoModifier, "TextA2(48) Pg No: 1 of 2"},
            {Qt::Key_Home, Qt::ControlModifier, "TextA2(1) Pg No: 1 of 2"},
            {Qt::Key_Up, Qt::NoModifier, "TextA2(1) Pg No: 1 of 2"},
            {Qt::Key_Return, Qt::ShiftModifier, "TextA2(1) Pg No: 1 of 2"},
            {Qt::Key_Backtab, Qt::ShiftModifier, "TextA1(1) Pg No: 1 of 2"},
            {Qt::Key_Backtab, Qt::ShiftModifier, "TextA1(1) Pg No: 1 of 2"},
            {Qt::Key_End, Qt::NoModifier, "TextA1(1) Pg No: 1 of 2"}, // of the text
            {Qt::Key_End, Qt::NoModifier, "TextA1(6) Pg No: 1 of 2"},
            {Qt::Key_Home, Qt::NoModifier, "TextA1(6) Pg No: 1 of 2"},
            {Qt::Key_Home, Qt::NoModifier, "TextA1(1) Pg No: 1 of 2"},
            {Qt::Key_Right, Qt::NoModifier, "TextA1(1) Pg No: 1 of 2"}, // leaves the selection first
            {Qt::Key_Right, Qt::NoModifier, "TextA1(2) Pg No: 1 of 2"},
            {Qt::Key_Home, Qt::NoModifier, "TextA1(2) Pg No: 1 of 2"},
            {Qt::Key_Left, Qt::NoModifier, "TextA1(1) Pg No: 1 of 2"},
            {Qt::Key_End, Qt::ControlModifier, "TextA1(48) Pg No: 2 of 2"},
            {Qt::Key_Down, Qt::NoModifier, "TextA1(48) Pg No: 2 of 2"}, // an arrow asks for no page
        };
        for (const auto& move : moves) {
            running.Press(move.key, move.modifiers);
            QCOMPARE(at(), QString(move.place));
        }
        QTest::keyClicks(running.window->focusWidget(), "typed");
        ExpectPageQuestion(running, Answer::No);
        running.Press(Qt::Key_Return);
        QCOMPARE(at(), QString("TextA1(48) Pg No: 2 of 2"));
        ExpectPageQuestion(running, Answer::Yes);
        running.Press(Qt::Key_Tab); // to the second field
        running.Press(Qt::Key_Tab);
        QCOMPARE(at(), QString("TextA1(1) Pg No: 3 of 3"));
        QCOMPARE(running.program.main.document.FieldA(96), std::string("typed"));
        running.Press(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(at(), QString("TextA1(48) Pg No: 2 of 3")); // the last that is filled
    }

    void tabsAreMarkedByKeysAndMouse() {
        RunningProgram running(0, 2, 2);
        frmGrid2a4& grid = Grid(running);
        const auto box = [&](int slot) { return running.Box(qPrintable(QString("TextA1(%1)").arg(slot))); };
        const auto click = [&](int slot, Qt::KeyboardModifiers modifiers) {
            QTest::mouseClick(box(slot), Qt::LeftButton, modifiers);
        };
        box(2)->setFocus();
        const std::pair<Qt::Key, TabNumbers> keys[] = {{Qt::Key_Shift, {2}},
                                                       {Qt::Key_Down, {2, 3, 4, 5}},
                                                       {Qt::Key_Right, {2, 3, 4, 5, 6}},
                                                       {Qt::Key_Left, {2, 3, 4, 5}}};
        for (const auto& [key, tabs] : keys) {
            running.Press(key, Qt::ShiftModifier);
            QCOMPARE(grid.MarkedTabs(), tabs);
        }
        running.Press(Qt::Key_Escape);
        QVERIFY(!grid.HasMarks());
        click(3, Qt::NoModifier);
        click(5, Qt::ControlModifier);
        click(7, Qt::ControlModifier);
        click(5, Qt::ControlModifier);
        QCOMPARE(grid.MarkedTabs(), (TabNumbers{3, 7}));
        click(8, Qt::ShiftModifier);
        QCOMPARE(grid.MarkedTabs(), (TabNumbers{5, 6, 7, 8}));
        click(2, Qt::NoModifier);
        QVERIFY(!grid.HasMarks());
        QTest::mousePress(box(2), Qt::LeftButton);
        const QPoint over = box(2)->mapFromGlobal(box(4)->mapToGlobal(box(4)->rect().center()));
        QMouseEvent drag(QEvent::MouseMove, over, box(2)->mapToGlobal(over), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(box(2), &drag);
        QTest::mouseRelease(box(2), Qt::LeftButton);
        QCOMPARE(grid.MarkedTabs(), (TabNumbers{2, 3, 4}));
        QTest::keyClicks(running.window->focusWidget(), "x");
        QVERIFY2(!grid.HasMarks(), "typing is for the box in use");
        QTest::mousePress(box(2), Qt::LeftButton);
        const QPoint inside = box(2)->rect().center();
        QMouseEvent select(QEvent::MouseMove, inside, box(2)->mapToGlobal(inside), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(box(2), &select);
        QTest::mouseRelease(box(2), Qt::LeftButton);
        QVERIFY2(!grid.HasMarks(), "within its tab the mouse selects text");
        box(1)->setFocus();
        box(1)->selectAll();
        running.Press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(grid.MarkedTabs().size(), 48U);
        running.Trigger("mnuNextPage");
        QCOMPARE(grid.MarkedTabs().size(), 48U);
        running.Enter("TextA1(1)");
        running.Press(Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(running.Panel(4), QString("Pg No: 1 of 2"));
        grid.MarkTabs({30, 31});
        QCOMPARE(running.Panel(5), QString("No of tabs: 30 of 48"));
        QCOMPARE(grid.MarkedTabs(), (TabNumbers{30, 31}));
    }

    void aPageThatComesUpAnewStartsAtItsFirstTab() {
        RunningProgram running(0, 2, 2);
        MainModule& module = running.program.main;
        const auto bringUpAnew = [&](const char* inUse) {
            running.Enter(inUse);
            module.editor->TakeDown();
            QVERIFY(module.editor->ShownTexts().empty());
            module.document.CurrentPage = 2;
            module.document.FieldA(26) = "other";
            QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason); // from a question in between
            QCoreApplication::sendEvent(running.Box("TextA1(9)"), &back);
            QCOMPARE(module.editor->MarkedTabs(), TabNumbers{});
            module.editor->BringUp();
        };
        for (const char* inUse : {"TextA1(1)", "TextA2(5)"}) {
            bringUpAnew(inUse);
            QCOMPARE(running.Focused(), QString("TextA1(1)"));
            running.Press(Qt::Key_Down, Qt::ShiftModifier);
            QCOMPARE(module.editor->MarkedTabs(), (TabNumbers{25, 26, 27, 28}));
            running.Press(Qt::Key_Escape);
        }
        QCOMPARE(running.Box("TextA1(2)")->text(), QString("other"));
    }

    void aTextStandsInItsBoxWhereItStandsOnPaper() {
        for (int type = 0; type < 6; ++type)
            CompareWithPaper(type);
    }

    void linesThatRunToTheLeftAreThoseOfThePaper() {
        RunningProgram running;
        StartEmpty(running, 0, 1, 1);
        MainModule& module = running.program.main;
        for (std::size_t line = 0; line < std::size(kRightToLeft); ++line)
            module.document.FieldA(static_cast<int>(line) + 1) = kRightToLeft[line].first;
        Grid(running).BringUp();
        module.editor->ShowText({24, 0}, 0, 0); // an empty one: where one types, the box itself is seen
        LayoutValues layout;
        rptVelmor report =
            MakeReport(layout, DocumentRequest(module.document), {module.document, module.settings, module.fonts});
        Sheet sheet;
        report.LayOutSheet(1, sheet);
        PainterFonts glyphs;
        for (const PlacedText& placed : sheet.texts) {
            QLineEdit& box = *running.Box(qPrintable(QString("TextA1(%1)").arg(placed.slot)));
            QImage paper(box.size(), QImage::Format_RGB32);
            paper.fill(Qt::white);
            QPainter onto(&paper);
            onto.scale(box.width() / placed.box.width, box.height() / placed.box.height);
            onto.translate(-placed.box.left, -placed.box.top);
            PainterCanvas canvas(onto, glyphs);
            SheetPainter(running.fonts, module.fonts).Paint({sheet.paper, {placed}, {}, {}}, canvas);
            const auto coarse = [](const QImage& image) { // too coarse for the edges of a letter
                const QImage inner = image.copy(image.rect().adjusted(4, 4, -4, -4));
                return inner.scaled(inner.size() / 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            };
            const QImage seen = coarse(box.parentWidget()->grab(box.geometry()).toImage()), printed = coarse(paper);
            for (int i = 0; i < seen.width() * seen.height(); ++i) {
                const QPoint at(i % seen.width(), i / seen.width());
                QVERIFY2(std::abs(qGray(seen.pixel(at)) - qGray(printed.pixel(at))) < 60, placed.text.data());
            }
        }
    }

    void whatWillBeCutIsMarkedAndSaid() {
        RunningProgram running;
        StartEmpty(running, 1, 1, 1);
        QString told;
        connect(&Grid(running), &frmGrid2a4::BoxTold, this, [&](const QString& text) { told = text; });
        QLineEdit* box = running.Box("TextA1(1)");
        for (const auto& [count, fault] : {std::pair{"8 of 20", ""}, {"16 of 20; ", "will be cut off"}}) {
            QTest::keyClicks(box, "WWWWWWWW");
            QCOMPARE(told, QString(count) + fault);
            QCOMPARE(box->accessibleDescription(), QString(fault));
        }
        const auto amber = [&] {
            const QImage image = box->parentWidget()->grab(box->geometry()).toImage();
            return QColor(image.pixel(image.width() / 2, 0)) == QColor(0xc0, 0x6c, 0x00);
        };
        QVERIFY(amber());
        running.Press(Qt::Key_Tab);
        QVERIFY2(amber(), "also where nobody types");
        box->setFocus();
        box->selectAll();
        QInputMethodEvent typed;
        typed.setCommitString(QString::fromUcs4(U"\U0010FFFD"));
        QApplication::sendEvent(box, &typed);
        QCOMPARE(told, QString("1 of 20; no font has one of its characters"));
    }

    void theMarkOfTheTabInUseStandsOutOnEveryPalette() {
        for (const QColor& highlight : {QColor(0xff, 0xff, 0x80), QColor(0x30, 0x8c, 0xc6), QColor(0, 0, 0)}) {
            QPalette palette;
            palette.setColor(QPalette::Highlight, highlight);
            QApplication::setPalette(palette);
            RunningProgram running;
            StartEmpty(running, 0, 2, 1);
            QCoreApplication::processEvents();
            const QRect box = running.Box("TextA1(1)")->geometry();
            const QImage image = running.Box("TextA1(1)")->parentWidget()->grab().toImage();
            double best = 0;
            for (int above = 1; above < 8; ++above)
                best = std::max(best, Contrast(image.pixelColor(box.center().x(), box.top() - above), Qt::white));
            QVERIFY(best >= kMarkContrast);
            QApplication::setPalette(QPalette());
        }
    }

    void theSheetIsZoomedByKeysAndWheelAndRemembersIt() {
        RunningProgram running(0, 1, 1);
        const auto width = [&] { return running.Box("TextA1(1)")->width(); };
        const int fitting = width();
        running.Trigger("mnuZoomIn");
        const int larger = width();
        running.Trigger("mnuZoomOut");
        QVERIFY(larger > fitting && width() < larger);
        const QPointF at(5, 5);
        QWheelEvent wheel(at, Grid(running).mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(Grid(running).viewport(), &wheel);
        QCOMPARE(width(), larger);
        QVERIFY(running.test.Stored("Settings", "Editor Zoom").find_first_not_of("0123456789") == std::string::npos);
        running.Trigger("mnuFitSheet");
        QCOMPARE(width(), fitting);
        running.Trigger("mnuFitWidth");
        QVERIFY(width() >= fitting);
        QCOMPARE(running.test.Stored("Settings", "Editor Zoom"), std::string("Width"));
    }

    void theBoxInUseHasTheFontOfItsFieldAndNoLetterOfAnAltKey() {
        RunningProgram running(0, 1, 1);
        QLineEdit* box = running.Box("TextA1(1)");
        const QString before = box->font().family();
        running.program.main.fonts[0].Name = "Courier New";
        Grid(running).BringUp();
        QVERIFY2(box->font().family() != before, qPrintable(before));
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Z, Qt::AltModifier);
        QCOMPARE(box->text(), QString("a1"));
        QTest::keyClick(box, 'q', Qt::ControlModifier | Qt::AltModifier); // a level of the keyboard
        QTest::keyClicks(box, "z");
        QVERIFY(box->text().endsWith("z"));
    }
};

} // namespace

FORMS_TESTS(GridFormsTest)

#include "grid_forms_test.moc"
