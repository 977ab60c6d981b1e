// The auto-fill wizard and the font page, driven through their controls.
#include "tests/forms/RunningProgram.h"
#include "widgets/WizardFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace {

using namespace velmora;

const std::string kQuestion = "If you cancel this wizard, none of the settings will be saved.";

/// A program with a document of 24 tabs, and its wizard.
struct WizardRun : RunningProgram {
    explicit WizardRun(int fields) {
        for (const char* name : {"tab", "blk1", "blk2", "blk3"}) {
            QPixmap picture(8, 2);
            picture.fill(Qt::blue);
            picture.save(QString::fromStdString((test.folder / "Images" / name).string() + ".gif"), "PNG");
        }
        Start(0, fields, 1);
    }

    /// The window while it is open.
    WizardFrame* Frame() {
        for (auto* frame : window->findChildren<WizardFrame*>())
            if (frame->isVisible())
                return frame;
        return nullptr;
    }
    std::string Page() { return Frame() ? Frame()->Page()->objectName().toStdString() : "closed"; }
    template <typename Control> Control* Find(const char* name) {
        auto* control = Frame()->findChild<Control*>(name);
        if (!control)
            FailAndEnd(std::string(name) + " is not on " + Page());
        return control;
    }
    bool Enabled(const char* button) { return Find<QPushButton>(button)->isEnabled(); }
    void Press(const char* button) {
        if (!Enabled(button))
            FailAndEnd(std::string(button) + " is disabled on " + Page());
        Find<QPushButton>(button)->click();
    }
    void Type(const char* entry, const char* text) { Find<QLineEdit>(entry)->setText(QString::fromUtf8(text)); }
    std::string Preview() { return Find<QLabel>("lblPreview")->text().toStdString(); }
    std::string Focus() { return Frame()->focusWidget()->objectName().toStdString(); }
    void AnswerCancel(const std::string& words, Answer answer) {
        test.ui.Expect(kQuestion + words, Icon::Question, Buttons::YesNo, answer, Answer::No);
    }

    void Open(const char* count = "30") {
        Trigger("mnuAutoRepWiz");
        Press("cmdNext");
        Type("txtNoOfPages", count);
        Press("cmdNext");
    }
    void Choose(const char* field, const char* option) {
        Press(field);
        Find<QRadioButton>(option)->click();
        Press("cmdNext");
    }
    void Number(const char* field) {
        Choose(field, "optNum");
        Press("cmdNext");
    }
    void Months(const char* field) {
        Choose(field, "optMth");
        Find<QRadioButton>("OptDayMon(3)")->click();
        Press("cmdNext");
    }
};

class WizardFormsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void aWholeRunFillsTheFieldsInUse() {
        WizardRun run(3);
        run.Box("TextA1(2)")->setFocus();
        QTest::keyClicks(run.Box("TextA1(1)"), "Z"); // on screen alone when the wizard starts
        run.Box("TextA1(2)")->setFocus();
        run.Open();
        QVERIFY(!run.Enabled("cmdNext") && !run.Enabled("cmdFinish"));
        run.Choose("cmdFieldA", "optNum");
        run.Type("txtFirstNumber", "7");
        run.Find<QComboBox>("cboNumberFormat")->setCurrentIndex(2);
        run.Type("Text1", "No.");
        QCOMPARE(run.Preview(), std::string("No.007, No.008, No.009 ... No.036"));
        run.Press("cmdNext");
        QCOMPARE(run.Focus(), std::string("cmdFieldB"));
        QCOMPARE(run.Find<QPushButton>("cmdFieldA")->palette().color(QPalette::Button), QColor(255, 0, 255));
        run.Months("cmdFieldB");
        run.Find<QCheckBox>("chkMonth(3)")->click();
        run.Find<QCheckBox>("chkMonth(6)")->click();
        QCOMPARE(run.Preview(), std::string("Mar., Jun., Mar. ... Jun."));
        run.Press("cmdNext");
        run.Choose("cmdFieldC", "optText");
        run.Type("txtInput", "  Much longer ");
        QCOMPARE(run.Preview(), std::string("Much longe on every tab"));
        run.Press("cmdNext");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz7"));
        run.Press("cmdNext");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz2a"));
        QVERIFY(run.Enabled("cmdNext") && run.Find<QPushButton>("cmdFinish")->isDefault());
        QTest::keyClick(run.Frame(), Qt::Key_Return);
        QCOMPARE(run.Page(), std::string("closed"));

        const TabDocument& document = run.program.main.document;
        QCOMPARE(document.FieldA(1), std::string("Za1"));
        QCOMPARE(document.FieldA(2), std::string("No.007"));
        QCOMPARE(document.FieldA(31), std::string("No.036"));
        QCOMPARE(document.FieldB(2), std::string("Mar."));
        QCOMPARE(document.FieldC(31), std::string("Much longe"));
        QCOMPARE(run.Box("TextA1(2)")->text(), QString("No.007"));
        QCOMPARE(run.Panel(4), QString("Pg No: 1 of 2"));
        QVERIFY(run.window->isWindowModified());
        QCOMPARE(run.window->findChild<QAction*>("mnuUndo")->text(), QString("&Undo AutoRepeat Wizard"));
        run.Trigger("mnuUndo");
        QCOMPARE(run.Box("TextA1(2)")->text(), QString("a2"));
    }

    void cancellingAsksAndChangesNothing() {
        WizardRun run(1);
        run.Open();
        run.Months("cmdFieldA");
        const std::string words = "  Are you sure you want to cancel ?";
        run.AnswerCancel(words, Answer::No);
        QTest::keyClick(run.Frame(), Qt::Key_Escape);
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz6a"));
        for (const char* page : {"5b", "2b", "2a", "2", "1"}) {
            run.Press("cmdPrevious");
            QCOMPARE(run.Page(), std::string("frmAutoRepWiz") + page);
        }
        run.AnswerCancel(words, Answer::Yes);
        run.Frame()->close();
        QCOMPARE(run.Page(), std::string("closed"));
        QVERIFY(run.test.Stored("Form Position", "autowiz1").find(',') != std::string::npos);
        QVERIFY(!run.program.main.document.DocChanged && !run.program.main.history.CanUndo());
        QCOMPARE(run.program.main.document.FieldA(1), std::string("a1"));
    }

    void theCountIsCheckedWhileItIsTyped() {
        const std::string range = "The value must be between 1 and 32766", numerics = "Please use numerics only!";
        const std::pair<const char*, std::string> cases[] = {
            {"5", ""},     {"", ""},           {"0", range},   {"32766", ""},     {"32767", range}, {"12x", numerics},
            {"-3", range}, {"32766.4", range}, {"0.9", range}, {"1,5", numerics}, {" 7 ", ""}};
        WizardRun run(1);
        run.Trigger("mnuAutoRepWiz");
        run.Press("cmdNext");
        QCOMPARE(run.Focus(), std::string("txtNoOfPages"));
        QVERIFY(!run.Enabled("cmdNext"));
        for (const auto& [text, message] : cases) {
            if (!message.empty())
                run.test.ui.Expect(message, Icon::Information);
            run.Type("txtNoOfPages", text);
            QCOMPARE(run.Enabled("cmdNext"), message.empty() && *text != '\0');
        }
    }

    void aFieldCanBeConfiguredAnew() {
        WizardRun run(2);
        run.Open("2");
        run.Number("cmdFieldA");
        run.Choose("cmdFieldA", "optText");
        run.Type("txtInput", "again");
        run.Press("cmdNext");
        run.Press("cmdFieldB");
        run.Press("cmdPrevious"); // left without values
        run.Press("cmdFinish");   // one of two fields will do
        QCOMPARE(run.program.main.document.FieldA(2), std::string("again"));
        QCOMPARE(run.program.main.document.FieldB(2), std::string("b"));
    }

    void tickedNamesFollowTheirSwitches() {
        WizardRun run(1);
        run.Open("9");
        run.Choose("cmdFieldA", "optDay");
        run.Press("cmdNext");
        run.test.ui.Expect("Please make a selection before you click next or click on Cancel.", Icon::Critical);
        run.Press("cmdNext");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz6a"));
        run.Find<QCheckBox>("chkTagAll")->click();
        run.Find<QCheckBox>("chkUpperCase")->click();
        run.Find<QCheckBox>("chkDay(2)")->click();
        QCOMPARE(run.Preview(), std::string("MONDAY, WEDNESDAY, THURSDAY ... THURSDAY"));
        QVERIFY(!run.Find<QCheckBox>("chkTagAll")->isChecked());
        run.Find<QCheckBox>("chkUpperCase")->click();
        QCOMPARE(run.Preview(), std::string("Monday, Wednesday, Thursday ... Thursday"));
    }

    void numbersGoOnFromTheDocumentAndAnOverflowLeavesThePage() {
        WizardRun run(2);
        run.Open("3");
        run.Choose("cmdFieldB", "optNum");
        QVERIFY(!run.Enabled("cmdContinue")); // "b" is no number
        run.Press("cmdPrevious");
        run.Press("cmdPrevious");
        run.Choose("cmdFieldA", "optNum");
        run.Press("cmdContinue");
        QCOMPARE(run.Preview(), std::string("a25, a26, a27"));
        run.Type("txtFirstNumber", "2147483646");
        QCOMPARE(run.Preview(), std::string("The numbers would not all lie between -2147483648 and 2147483647."));
        run.test.ui.Expect("Overflow\r\nCalled from Sub: frmAutoRepWiz5a", Icon::Critical);
        run.Press("cmdNext");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz5a"));
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
            font->setCurrentIndex(font->findData("DejaVu Serif"));
            run.Find<QWidget>("Toolbar1(2)")->findChild<QToolButton*>("Button(4)")->click();
            run.Find<QWidget>("Toolbar2(1)")->findChild<QToolButton*>("Button(2)")->click();
            run.Find<QWidget>("Toolbar3(1)")->findChild<QToolButton*>("Button(1)")->click();
            QCOMPARE(run.Find<QLineEdit>("Text1")->font().pointSize(), 14);
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

FORMS_TEST_MAIN(WizardFormsTest)

#include "wizard_forms_test.moc"
