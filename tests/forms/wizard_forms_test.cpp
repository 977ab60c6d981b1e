// The auto-fill wizard and the font page, driven through their controls.
#include "tests/forms/WizardRun.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

namespace {

using namespace velmora;

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
        QCOMPARE(run.Find<QWidget>("imgTab")->accessibleName(), QString("Tab 2: No.007, b, c; Tab 31: No.036"));
        run.Press("cmdNext");
        QCOMPARE(run.Focus(), std::string("cmdFieldB"));
        QCOMPARE(run.Find<QPushButton>("cmdFieldA")->palette().color(QPalette::Button), QColor(255, 0, 255));
        run.Choose("cmdFieldA", "optNum");
        QCOMPARE(run.Find<QComboBox>("cboNumberFormat")->currentIndex(), 2);
        run.Press("cmdNext");
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
            {"5", ""},     {"", ""},           {"0", range},   {"32766", ""},     {"32767", range},  {"12x", numerics},
            {"-3", range}, {"32766.4", range}, {"0.9", range}, {"1,5", numerics}, {"1.5", numerics}, {" 7 ", ""}};
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
        run.Find<QCheckBox>("chkUpperCase")->click();
        run.Press("cmdNext");
        run.Press("cmdPrevious");
        run.Choose("cmdFieldA", "optDay");
        run.Press("cmdNext"); // back, and all is as it was left
        QCOMPARE(run.Preview(), std::string("MONDAY, WEDNESDAY, THURSDAY ... THURSDAY"));
        QVERIFY(run.Find<QCheckBox>("chkUpperCase")->isChecked() && run.Find<QCheckBox>("chkDay(3)")->isChecked());
    }

    void anotherCountKeepsEveryEntry() {
        WizardRun run(2);
        run.Open("5");
        run.Choose("cmdFieldA", "optNum");
        run.Type("txtFirstNumber", "7");
        run.Type("Text1", "No.");
        run.Find<QCheckBox>("chkTexts")->setChecked(true);
        run.Find<QSpinBox>("txtRepeat")->setValue(2);
        run.Press("cmdNext");
        run.Choose("cmdFieldB", "optText");
        run.Type("txtInput", "draft");
        for (const char* page : {"2b", "2a", "2", "1"}) {
            run.Press("cmdPrevious");
            QCOMPARE(run.Page(), std::string("frmAutoRepWiz") + page);
        }
        run.Press("cmdNext");
        QCOMPARE(run.Find<QLineEdit>("txtNoOfPages")->text(), QString("5"));
        run.Type("txtNoOfPages", "6");
        run.Press("cmdNext");
        QCOMPARE(run.Shown("lblFieldA") + "|" + run.Shown("lblFieldB"), std::string("No.7 ... No.9|keeps its texts"));
        run.Choose("cmdFieldA", "optNum");
        QCOMPARE(run.Find<QSpinBox>("txtRepeat")->value(), 2);
        run.Press("cmdNext");
        run.Press("cmdFieldB");
        QVERIFY(run.Find<QRadioButton>("optText")->isChecked());
        run.Press("cmdNext");
        QCOMPARE(run.Find<QLineEdit>("txtInput")->text(), QString("draft"));
        run.Press("cmdNext");
        QCOMPARE(run.Find<QLineEdit>("Text1")->text(), QString("No.7")); // the sample of the fonts
        run.Press("cmdFinish");
        QCOMPARE(run.Page(), std::string("closed"));
        QCOMPARE(run.Saved(5, 7), QString("No.9,draft,c|No.9,draft,c|a7,b,c|"));
    }

    void whatNoDocumentCanHoldIsRefusedOnTheCountPage() {
        WizardRun run(1);
        run.Trigger("mnuAutoRepWiz");
        run.Press("cmdNext");
        run.Find<QRadioButton>("optBehindLast")->click();
        run.Type("txtNoOfPages", "32760");
        const std::string words = "The maximum number of pages for this type on label is: 1365";
        QVERIFY(run.Shown("lblReplaced").starts_with(words));
        run.test.ui.Expect(words + "\r\nPlease change your number of labels to 32736", Icon::Information);
        run.Press("cmdNext");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz2"));
        run.Type("txtNoOfPages", "2");
        run.Find<QRadioButton>("optFromCurrent")->click();
        QCOMPARE(run.Shown("lblReplaced"), std::string("2 of them hold texts, which will be replaced."));
        QVERIFY(run.Frame()->focusWidget()->accessibleDescription().contains("which will be replaced"));
        run.Press("cmdNext");
        run.Number("cmdFieldA");
        run.Press("cmdFinish");
        QCOMPARE(run.Saved(1, 3), QString("1,b,c|2,b,c|a3,b,c|"));
    }

    void theMonthlyJobIsTakenFromTheLastRun() {
        WizardRun run(3);
        run.Open("3");
        run.Fill("txtFirstA", "2026/0001");
        QVERIFY(run.Find<QPushButton>("cmdFinish")->isDefault());
        QTest::keyClick(run.Find<QLineEdit>("txtFirstA"), Qt::Key_Return); // leads on, and fills nothing
        QCOMPARE(run.Focus(), std::string("txtFirstB"));
        run.Fill("txtFirstB", "March");
        run.Fill("txtFirstC", "Meyer and Sons");
        QVERIFY(run.Shown("lblWarning").starts_with("Field C: The field takes 10 letters"));
        run.Fill("txtFirstC", "Meyer");
        QCOMPARE(run.Shown("lblWarning"), std::string());
        run.Press("cmdNext");
        auto* size = run.Find<QComboBox>("cboSize(1)");
        size->setCurrentIndex(size->count() - 1);
        run.Press("cmdPrevious");
        QCOMPARE(run.Shown("lblWarning"), std::string()); // what was not stored is not printed
        QTest::keyClick(run.Find<QLineEdit>("txtFirstC"), Qt::Key_Return);
        QCOMPARE(run.Focus(), std::string("cmdFinish"));
        run.Press("cmdFinish");
        run.Trigger("mnuAutoRepWiz");
        run.Press("cmdNext");
        QCOMPARE(run.Find<QLineEdit>("txtNoOfPages")->text(), QString("3"));
        run.Find<QRadioButton>("optBehindLast")->click();
        run.Press("cmdNext");
        run.Press("cmdLastRun");
        QCOMPARE(run.Find<QLineEdit>("txtFirstA")->text(), QString("2026/0004"));
        run.Fill("txtFirstB", "April");
        QCOMPARE(run.Find<QWidget>("imgTab")->accessibleName(),
                 QString("Tab 25: 2026/0004, April, Meyer; Tab 27: 2026/0006, April, Meyer"));
        run.Press("cmdFinish");
        QCOMPARE(run.program.main.document.CurrentTab, std::int16_t{25});
        QCOMPARE(run.Saved(2, 4), QString("2026/0002,March,Meyer|2026/0003,March,Meyer|a4,b,c|"));
        QCOMPARE(run.Saved(24, 28),
                 QString("a24,b,c|2026/0004,April,Meyer|2026/0005,April,Meyer|2026/0006,April,Meyer|,,|"));
    }

    void recipesAreSavedChosenAndDeleted() {
        WizardRun run(1);
        run.Open("2");
        run.Fill("txtFirstA", "Box 1");
        auto* recipe = run.Find<QComboBox>("cboRecipe");
        QVERIFY(!run.Enabled("cmdSaveRecipe") && !run.Enabled("cmdDeleteRecipe"));
        recipe->setEditText("a=b");
        run.test.ui.Expect("A recipe's name has 1 to 40 characters, no \"=\", and begins with no \";\" or \"[\".",
                           Icon::Information);
        run.Press("cmdSaveRecipe");
        recipe->setEditText("Boxes");
        run.Press("cmdSaveRecipe");
        run.Fill("txtFirstA", "other");
        run.test.ui.Expect("Do you want to replace the recipe \"Boxes\"?", Icon::Question, Buttons::YesNo, Answer::No,
                           Answer::No);
        run.Press("cmdSaveRecipe");
        QTest::keyClick(recipe->lineEdit(), Qt::Key_Return); // takes it, and fills nothing
        QCOMPARE(run.Shown("lblFieldA"), std::string("Box 1, Box 2"));
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            run.test.ui.Expect("Do you want to delete the recipe \"Boxes\"?", Icon::Question, Buttons::YesNo, answer,
                               Answer::No);
            run.Press("cmdDeleteRecipe"); // not to be pressed any more where No deletes it
        }
        QCOMPARE(recipe->count(), 0);
        run.Fill("txtFirstA", "");
        QTest::keyClick(run.Find<QLineEdit>("txtFirstA"), Qt::Key_Delete);
        QVERIFY(!run.Enabled("cmdFinish"));
    }

    void tabLeadsFromTheLastEntryToTheWayOn() {
        WizardRun run(1);
        run.Open("2");
        run.Choose("cmdFieldA", "optText");
        for (const char* next : {"cmdNext", "cmdPrevious", "cmdCancel"}) {
            QTest::keyClick(run.Frame()->focusWidget(), Qt::Key_Tab);
            QCOMPARE(run.Focus(), std::string(next));
        }
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
        for (const char* first : {"2147483646", "2147483648"}) {
            run.Type("txtFirstNumber", "7"); // whose tabs must not stay
            run.Type("txtFirstNumber", first);
            QCOMPARE(run.Find<QWidget>("imgTab")->accessibleName(), QString("Tab 1: b; Tab 3: b"));
            run.test.ui.Expect(run.Preview(), Icon::Critical);
            run.Press("cmdNext");
            QCOMPARE(run.Page(), std::string("frmAutoRepWiz5a"));
        }
        run.Press("cmdPrevious");
        run.Press("cmdPrevious");
        run.Fill("txtFirstA", "2147483646");
        QVERIFY(!run.Enabled("cmdFinish"));
    }
};

} // namespace

FORMS_TESTS(WizardFormsTest)

#include "wizard_forms_test.moc"
