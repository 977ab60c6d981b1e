// The wizard's font page, and the tabs painted beside its pages.
#include "tests/forms/WizardRun.h"
#include "widgets/Contrast.h"
#include "widgets/PaperColours.h"

#include <QComboBox>
#include <QToolButton>

namespace {

using namespace velmora;

/// Where the painted tab is marked; empty: nowhere.
QRect Mark(WizardRun& run) {
    auto* tab = run.Find<QWidget>("imgTab");
    const QImage image = tab->grab().toImage();
    const QColor colour = StandingOut(tab->palette().color(QPalette::Highlight), kPaper);
    QRect mark;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour)
                mark |= QRect(x, y, 1, 1);
    return mark;
}

class WizardLookFormsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void theFieldAtWorkIsMarkedOnEveryPage() {
        WizardRun run(3);
        run.Open("1");
        QVERIFY(Mark(run).isEmpty());
        std::vector<QRect> marks;
        for (const char* field : {"cmdFieldA", "cmdFieldB", "cmdFieldC"}) {
            run.Press(field);
            marks.push_back(Mark(run));
            for (const auto& [option, pages] :
                 {std::pair("optNum", 1), std::pair("optMth", 2), std::pair("optDay", 2), std::pair("optText", 1)}) {
                run.Find<QRadioButton>(option)->click();
                for (int page = 0; page < pages; ++page) {
                    run.Press("cmdNext");
                    QCOMPARE(Mark(run), marks.back());
                }
                for (int page = 0; page < pages; ++page)
                    run.Press("cmdPrevious");
            }
            run.Press("cmdPrevious");
        }
        QVERIFY(!marks[0].isEmpty() && marks[0].bottom() < marks[1].center().y());
        QVERIFY(marks[1].right() < marks[2].center().x() && marks[1].center().y() == marks[2].center().y());
    }

    void fontsFromTheToolbarAreStoredByFinishAlone() {
        WizardRun run(3);
        const FontSettings before = run.program.main.fonts;
        const auto change = [&] {
            run.Trigger("mnuFonts");
            QCOMPARE(run.Page(), std::string("frmAutoRepWiz7"));
            QVERIFY(run.Find<QPushButton>("cmdNext")->isHidden() && run.Find<QPushButton>("cmdPrevious")->isHidden());
            auto* size = run.Find<QComboBox>("cboSize(1)");
            size->setCurrentIndex(size->findText("14"));
            auto* font = run.Find<QComboBox>("cboFont(3)");
            font->setCurrentIndex(font->findText("DejaVu Serif"));
            run.Find<QWidget>("Toolbar1(2)")->findChild<QToolButton*>("Button(4)")->click();
            run.Find<QWidget>("Toolbar2(1)")->findChild<QToolButton*>("Button(2)")->click();
            run.Find<QWidget>("Toolbar3(1)")->findChild<QToolButton*>("Button(1)")->click();
            auto* sample = run.Find<QLineEdit>("Text1");
            QCOMPARE(sample->font().pointSize(), 14);
            QVERIFY(sample->text().endsWith("a1"));
            size->setCurrentIndex(size->findText("72"));
            QVERIFY(sample->height() >= sample->fontMetrics().height());
            size->setCurrentIndex(size->findText("14"));
            QVERIFY(run.Find<QLineEdit>("Text2")->width() < sample->width()); // as the fields are on paper
            QVERIFY(run.Find<QLineEdit>("Text2")->font().italic());
            QCOMPARE(run.Find<QLineEdit>("Text3")->font().family(), QString("DejaVu Serif"));
            QVERIFY(run.Find<QLineEdit>("Text1")->alignment().testFlag(Qt::AlignHCenter));
        };
        change();
        run.AnswerCancel("  Are you sure you want to cancel?", Answer::Yes);
        run.Press("cmdCancel");
        QVERIFY(run.program.main.fonts == before && !run.window->isWindowModified());
        QTest::keyClicks(run.Box("TextA1(1)"), "Z");
        change();
        run.Press("cmdFinish");
        QCOMPARE(run.Page(), std::string("closed"));
        QVERIFY(run.test.Stored("Form Position", "Font Settings").find(',') != std::string::npos);
        FontSettings wanted = before;
        wanted[0].Size = 14;
        wanted[0].HorizontalAlignment = 2;
        wanted[0].VerticalAlignment = 0;
        wanted[1].Italic = true;
        wanted[2].Name = "DejaVu Serif";
        QVERIFY(run.program.main.fonts == wanted);
        QCOMPARE(run.test.Stored("Font Settings", "Horizontal Alignment 1"), std::string("2"));
        QVERIFY(run.Box("TextA1(5)")->alignment().testFlag(Qt::AlignHCenter));
        QCOMPARE(run.Box("TextA1(1)")->text(), QString("Za1"));
        QCOMPARE(run.window->findChild<QAction*>("mnuUndo")->text(), QString("&Undo Fonts"));
        run.Trigger("mnuUndo");
        QVERIFY(run.program.main.fonts == before);
    }

    void cancellingTheWizardTakesItsFontsBack() {
        WizardRun run(1);
        const FontSettings before = run.program.main.fonts;
        run.Open("2");
        run.Number("cmdFieldA");
        run.Find<QWidget>("Toolbar1(1)")->findChild<QToolButton*>("Button(3)")->click();
        run.Press("cmdNext");
        QVERIFY(run.program.main.fonts[0].Bold && run.program.main.document.DocChanged);
        run.Press("cmdNext");
        run.Press("cmdNext"); // stored again, but as it was
        run.AnswerCancel(" Are you sure you want to cancel ?", Answer::Yes);
        run.Press("cmdCancel");
        QVERIFY(run.program.main.fonts == before && !run.window->isWindowModified());
        QCOMPARE(run.test.Stored("Font Settings", "Font Bold 1"), std::string("False"));
    }
};

} // namespace

FORMS_TESTS(WizardLookFormsTest)

#include "wizard_look_forms_test.moc"
