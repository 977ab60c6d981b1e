// The auto-fill wizard and the font page, driven through their controls.
#include "tests/forms/RunningProgram.h"
#include "widgets/WizardFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <algorithm>
#include <functional>
#include <vector>

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
            qFatal("%s is not on %s", name, Page().c_str());
        return control;
    }
    bool Enabled(const char* button) { return Find<QPushButton>(button)->isEnabled(); }
    void Press(const char* button) {
        if (!Enabled(button))
            qFatal("%s is disabled on %s", button, Page().c_str());
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

    void aWholeRunFillsTheFieldsInUse_data() {
        QTest::addColumn<int>("fields");
        for (const int fields : {1, 2, 3})
            QTest::addRow("%d", fields) << fields;
    }
    void aWholeRunFillsTheFieldsInUse() {
        QFETCH(int, fields);
        WizardRun run(fields);
        run.Box("TextA1(2)")->setFocus();
        QTest::keyClicks(run.Box("TextA1(1)"), "Z"); // on screen alone when the wizard starts
        run.Box("TextA1(2)")->setFocus();
        run.Open();
        for (int field = 1; field <= 3; ++field)
            QCOMPARE(run.Enabled(QString("cmdField%1").arg(QChar('@' + field)).toLatin1()), field <= fields);
        QVERIFY(!run.Enabled("cmdNext") && !run.Enabled("cmdFinish"));
        run.Choose("cmdFieldA", "optNum");
        run.Type("txtFirstNumber", "7");
        run.Find<QComboBox>("cboNumberFormat")->setCurrentIndex(2);
        run.Type("Text1", "No.");
        QCOMPARE(run.Preview(), std::string("No.007, No.008, No.009 ... No.036"));
        run.Press("cmdNext");
        if (fields > 1) {
            QCOMPARE(run.Focus(), std::string("cmdFieldB"));
            QCOMPARE(run.Find<QPushButton>("cmdFieldA")->palette().color(QPalette::Button), QColor(255, 0, 255));
            run.Months("cmdFieldB");
            run.Find<QCheckBox>("chkMonth(3)")->click();
            run.Find<QCheckBox>("chkMonth(6)")->click();
            QCOMPARE(run.Preview(), std::string("Mar., Jun., Mar. ... Jun."));
            run.Press("cmdNext");
        }
        if (fields > 2) {
            run.Choose("cmdFieldC", "optText");
            run.Type("txtInput", "  Much longer ");
            QCOMPARE(run.Preview(), std::string("Much longe, Much longe, Much longe ... Much longe"));
            run.Press("cmdNext");
        }
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
        QCOMPARE(document.FieldB(2), std::string(fields > 1 ? "Mar." : "b"));
        QCOMPARE(document.FieldC(31), std::string(fields > 2 ? "Much longe" : ""));
        QCOMPARE(run.Box("TextA1(2)")->text(), QString("No.007"));
        QCOMPARE(run.Panel(4), QString("Pg No: 1 of 2"));
        QVERIFY(run.window->isWindowModified());
        QCOMPARE(run.window->findChild<QAction*>("mnuUndo")->text(), QString("&Undo AutoRepeat Wizard"));
        run.Trigger("mnuUndo");
        QCOMPARE(run.Box("TextA1(2)")->text(), QString("a2"));
    }

    void everyPageLeadsBackAndAsksInItsOwnWordsBeforeCancelling() {
        using Way = std::function<void(WizardRun&)>;
        const auto choosing = [](const char* option) -> Way {
            return [option](WizardRun& run) {
                run.Open();
                run.Choose("cmdFieldA", option);
            };
        };
        const std::string once = " Are you sure you want to cancel ?", twice = " " + once,
                          close = "  Are you sure you want to cancel?";
        struct Row {
            std::string page, words, previous, positionKey;
            Way way;
        };
        const std::vector<Row> rows = {
            {"frmAutoRepWiz1", twice, "", "autowiz1", [](WizardRun& run) { run.Trigger("mnuAutoRepWiz"); }},
            {"frmAutoRepWiz2", once, "frmAutoRepWiz1", "autowiz2",
             [](WizardRun& run) { run.Trigger("mnuAutoRepWiz"), run.Press("cmdNext"); }},
            {"frmAutoRepWiz2a", once, "frmAutoRepWiz2", "autowiz2a", [](WizardRun& run) { run.Open(); }},
            {"frmAutoRepWiz2b", once, "frmAutoRepWiz2a", "autowiz2b",
             [](WizardRun& run) { run.Open(), run.Press("cmdFieldA"); }},
            {"frmAutoRepWiz5a", once, "frmAutoRepWiz2b", "autowiz5a", choosing("optNum")},
            {"frmAutoRepWiz5b", close, "frmAutoRepWiz2b", "autowiz5b", choosing("optDay")},
            {"frmAutoRepWiz6a", twice, "frmAutoRepWiz5b", "autowiz6a",
             [](WizardRun& run) { run.Open(), run.Months("cmdFieldA"); }},
            {"frmAutoRepWiz5d", twice, "frmAutoRepWiz2b", "autowiz5d", choosing("optText")},
            {"frmAutoRepWiz7", close, "frmAutoRepWiz2a", "Font Settings",
             [](WizardRun& run) { run.Open(), run.Number("cmdFieldA"); }}};
        WizardRun run(1);
        const std::string before = run.program.main.document.FieldA(1);
        for (const Row& row : rows) {
            row.way(run);
            QCOMPARE(run.Page(), row.page);
            run.AnswerCancel(row.words, Answer::No);
            QTest::keyClick(run.Frame(), Qt::Key_Escape);
            QCOMPARE(run.Page(), row.page);
            run.AnswerCancel(row.words, Answer::Yes);
            run.Frame()->close();
            QCOMPARE(run.Page(), std::string("closed"));
            QVERIFY(run.test.Stored("Form Position", row.positionKey).find(',') != std::string::npos);
            QVERIFY(!run.program.main.document.DocChanged && !run.program.main.history.CanUndo());
            if (row.previous.empty())
                continue;
            row.way(run);
            run.Press("cmdPrevious");
            QCOMPARE(run.Page(), row.previous);
            run.AnswerCancel(
                std::find_if(rows.begin(), rows.end(), [&](const Row& other) { return other.page == row.previous; })
                    ->words,
                Answer::Yes);
            run.Press("cmdCancel");
        }
        QCOMPARE(run.program.main.document.FieldA(1), before);
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
        run.Find<QCheckBox>("chkTagAll")->click();
        run.Find<QCheckBox>("chkUpperCase")->click();
        QCOMPARE(run.Preview(), std::string("Monday, Tuesday, Wednesday ... Tuesday"));
        run.Find<QCheckBox>("chkTagAll")->click();
        QCOMPARE(run.Preview(), std::string());
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
        run.Type("txtFirstNumber", "2147483645");
        run.Press("cmdNext");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz2a"));
    }

    void aRefusedRunStaysAtTheChooser() {
        WizardRun run(1);
        run.Open("32766");
        run.Number("cmdFieldA");
        run.Press("cmdNext");
        run.test.ui.Expect("The maximum number of pages for this type on label is: 1365\r\n"
                           "Please change your number of labels to 32760",
                           Icon::Information);
        run.Press("cmdFinish");
        QCOMPARE(run.Page(), std::string("frmAutoRepWiz2a"));
        QCOMPARE(run.program.main.document.NoOfPages, 1);
    }

    void fontsFromTheToolbarAreStoredByFinishAlone() {
        WizardRun run(3);
        const FontSettings before = run.program.main.fonts;
        const auto change = [&] {
            run.Trigger("tbrFonts");
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

QTEST_MAIN(WizardFormsTest)
#include "wizard_forms_test.moc"
