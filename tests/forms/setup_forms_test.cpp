// The set-up dialogs, driven through the window's own commands and the controls' names.
#include "setup/PrinterWizard.h"
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/RunningProgram.h"
#include "widgets/WizardFrame.h"

#include <QAbstractButton>
#include <QDialog>
#include <QListWidget>
#include <QTimer>

namespace {

using namespace velmora;

/// The dialog in front, by its controls.
struct Shown {
    QWidget& dialog;

    template <typename Control> Control* Find(const char* name) const {
        auto* control = dialog.findChild<Control*>(name);
        if (!control)
            FailAndEnd(std::string("no control ") + name);
        return control;
    }
    void Click(const char* name) const { Find<QAbstractButton>(name)->click(); }
    QLineEdit& Box(const char* name) const { return *Find<QLineEdit>(name); }
    QString Text(const char* name) const { return Find<QLabel>(name)->text(); }
};

class SetupFormsTest : public QObject {
    Q_OBJECT

    using Work = std::function<void(const Shown&)>;

    /// Opens a modal dialog and works in it.
    static void Within(const std::function<void()>& open, const char* name, const Work& work) {
        const DialogAnswer answer(name, [&](QDialog& dialog) { work({dialog}); });
        open();
    }
    static void Within(RunningProgram& running, const char* command, const char* name, const Work& work) {
        Within([&] { running.Trigger(command); }, name, work);
    }
    static void CopyPictures(const RunningProgram& running) {
        std::filesystem::copy(VELMORA_IMAGES, running.test.folder / "Images");
    }
    static std::string Margins(RunningProgram& running) {
        return running.test.Stored("Settings", "Margin Value Left") + "/" +
               running.test.Stored("Settings", "Margin Value Top");
    }

private slots:
    void init() { FailOnWarnings(); }

    void theSamplesFollowTheMargins() {
        RunningProgram running;
        running.test.Store("Settings", "Tab Top A4_1", "x"); // which keeps nobody from the dialog
        running.Start(0, 1, 1);
        Within(running, "mnuMarginSetup", "frmFix3", [](const Shown& form) {
            QVERIFY(form.Text("lblHint").startsWith("Type mismatch: Tab Top A4_1."));
            struct Row {
                const char* typed;
                bool moves;
            };
            const auto* sample = form.Find<QWidget>("famPreview2");
            for (const Row& row : {Row{"2,5", true}, Row{"-10", true}, Row{"abc", false}, Row{"1E999", false},
                                   Row{"251", true}, Row{"252", false}, Row{"0", true}}) {
                for (const char* box : {"txtMarLeft", "txtMarTop"}) {
                    const QPoint before = sample->pos();
                    form.Box(box).setText(row.typed);
                    QVERIFY2((sample->pos() != before) == row.moves, row.typed);
                }
            }
            // One scale for the whole sheet: tabs of 60 x 10 mm, 33 mm apart, the first 23 mm below the edge.
            const double mm = sample->parentWidget()->height() / 297.0;
            const auto is = [&](int pixels, double size) { return std::abs(pixels - size * mm) <= 1; };
            const QRect last = form.Find<QWidget>("famPreview4")->geometry();
            QVERIFY(is(sample->parentWidget()->width(), 210) && is(last.x(), 60) && is(last.y(), 23 + 33));
            QVERIFY(is(last.width(), 60) && is(last.height(), 10));
            for (const auto& [left, top, move] :
                 {std::tuple("0", "0", "The print does not move."),
                  {"1,5", "0", "The print moves 1.5 mm to the right."},
                  {"-2", "3", "The print moves 2 mm to the left and 3 mm down."},
                  {"0", "-1", "The print moves 1 mm up."},
                  {"x", "1", "The left margin is no number: nothing can be printed."}}) {
                form.Box("txtMarLeft").setText(left);
                form.Box("txtMarTop").setText(top);
                QCOMPARE(form.Text("lblMove"), QString(move));
                QCOMPARE(form.Find<QWidget>("cmdCheckSheet")->isEnabled(), *left != 'x');
            }
            form.Click("cmdCancel");
        });
        QVERIFY(!running.window->isWindowModified());
    }

    void arrowsStepByOneMillimetreAndReturnStores() {
        RunningProgram running;
        running.Start(0, 1, 1);
        Within(running, "mnuMarginSetup", "frmFix3", [](const Shown& form) {
            form.Click("cmdUp");
            QCOMPARE(form.Box("txtMarTop").text(), QString("-1"));
            const std::tuple<const char*, const char*, const char*> steps[] = {
                {"2,5", "cmdLeft", "1.5"}, {"1.1", "cmdLeft", "0.1"}, {"", "cmdLeft", "-1"}, {"abc", "cmdRht", "1"}};
            for (const auto& [typed, arrow, shown] : steps) {
                form.Box("txtMarLeft").setText(typed);
                form.Click(arrow);
                QCOMPARE(form.Box("txtMarLeft").text(), QString(shown));
            }
            QTest::keyClick(&form.dialog, Qt::Key_Left);
            QTRY_COMPARE(form.Box("txtMarLeft").text(), QString("0"));
            QTest::keyClick(&form.dialog, Qt::Key_Escape);
        });
        QCOMPARE(Margins(running), std::string("0/0"));
        Within(running, "mnuMarginSetup", "frmFix3", [](const Shown& form) {
            form.Box("txtMarLeft").setText("2,5");
            form.Click("cmdSaveDefaults");
            QCOMPARE(form.Text("lblDefaults"),
                     QString("Saved for A4 (8 rows). Defaults are whole millimetres: left 2, top 0 mm."));
            QTest::keyClick(&form.dialog, Qt::Key_Return);
        });
        QCOMPARE(running.test.Stored("Margin Settings", "Default Left Margin - A4_8"), std::string("2.5"));
        QCOMPARE(Margins(running), std::string("2.5/0"));
    }

    void theCalibrationSheetIsWritten() {
        RunningProgram running;
        running.Start(4, 1, 1);
        running.program.main.globals.PrinterName = kPdfPrinter;
        const auto pdf = running.test.folder / "sheet.pdf";
        const auto check = running.test.folder / "check.pdf";
        running.test.ui.ExpectChooser("Save as PDF", pdf, "SAVE|PDF file (*.pdf)|*.pdf|Calibration sheet.pdf");
        for (const auto& chosen : {std::optional(check), std::optional<std::filesystem::path>()})
            running.test.ui.ExpectChooser("Save as PDF", chosen, "SAVE|PDF file (*.pdf)|*.pdf|Check sheet.pdf");
        Within(running, "mnuMarginSetup", "frmFix3", [](const Shown& form) {
            form.Click("cmdCalibrationSheet");
            form.Find<QAbstractButton>("cmdCheckSheet")->setFocus();
            form.Click("cmdCheckSheet");
            const auto labels = form.dialog.findChildren<QLabel*>("lblSheet");
            QVERIFY(labels[0]->text().endsWith("/sheet.pdf") && labels[1]->text().endsWith("/check.pdf"));
            QVERIFY(form.dialog.focusWidget()->accessibleDescription().endsWith("/check.pdf"));
            form.Click("cmdCheckSheet");
            QVERIFY(labels[1]->text().isEmpty());
            form.Click("cmdCancel");
        });
        QVERIFY(ReadFile(pdf).starts_with("%PDF-") && ReadFile(check).starts_with("%PDF-"));
    }

    void thePrintersMarginsAreOneClickAway() {
        RunningProgram running;
        RememberPrinterMargins(running.test.settings, "P", {}, {"3.5", "3.5"});
        running.Start(0, 1, 1);
        QCOMPARE(Margins(running), std::string("0/0"));
        auto* button = running.window->findChild<QAbstractButton*>("cmdDone");
        QCOMPARE(button->text(), QString("Use this &printer's"));
        QCOMPARE(running.window->findChild<QLabel*>("lblDone")->text(),
                 QString("Margins left 0, top 0 mm; P: left 3.5, top 3.5 mm"));
        button->click();
        QCOMPARE(Margins(running), std::string("3.5/3.5"));
        QCOMPARE(running.Panel(5), QString("No of tabs: 1 of 24"));
        QCOMPARE(button->text(), QString("&Undo"));
        QVERIFY(running.window->isWindowModified());
        running.Trigger("mnuFitSheet"); // which has nothing to tell
        QVERIFY(running.window->findChild<QLabel*>("lblDone")->minimumWidth() < 100);
    }

    void theStatusLineFollowsThePageSetupUntilCancel() {
        RunningProgram running;
        CopyPictures(running);
        running.Start(0, 3, 2);
        running.Trigger("mnuLastPage");
        const QString before = running.Panel(1) + running.Panel(2) + running.Panel(3);
        Within(running, "mnuPgSetup", "frmPageSetUp", [&](const Shown& form) {
            QVERIFY(form.Find<QAbstractButton>("optPgsize(0)")->isChecked());
            QVERIFY(form.Find<QAbstractButton>("optField3")->isChecked());
            QCOMPARE(form.Text("lblGridSize"), QString("8 Rows, 3 Colums"));
            form.Click("optPgsize(4)");
            QCOMPARE(form.Text("lblGridSize"), QString("3 Rows, 7 Colums"));
            QCOMPARE(running.Panel(2), QString("Tab Type: 3 rows, 7 Columns"));
            QCOMPARE(form.Find<QLabel>("Image1")->pixmap().size(), QSize(219, 111));
            QVERIFY(form.Text("lblTexts").startsWith("The texts flow on"));
            form.Click("optField2");
            QVERIFY(form.Box("txtField2").isVisible() && !form.Box("txtField3").isVisible());
            QCOMPARE(running.Panel(3), QString("No of fields: 2"));
            form.Click("cmdCancel");
        });
        QCOMPARE(running.Panel(1) + running.Panel(2) + running.Panel(3), before);
        QCOMPARE(running.Panel(4), QString("Pg No: 2 of 2"));
        QCOMPARE(running.test.Stored("Settings", "OptType"), std::string("0"));
        QVERIFY(!running.window->isWindowModified());
        Within(running, "tbrPageSetup", "frmPageSetUp", [](const Shown& form) { form.Click("cmdCancel"); });
        QCOMPARE(running.Panel(4), QString("Pg No: 1 of 2")); // the toolbar's way
    }

    void thePrinterWizardAsksBeforeItForgets() {
        RunningProgram running;
        CopyPictures(running);
        running.Start(0, 1, 1);
        const auto ask = [&](Answer answer) {
            running.test.ui.Expect("Do you want to leave the wizard without keeping what you have chosen?",
                                   Icon::Question, Buttons::YesNo, answer);
        };
        const auto pdf = running.test.folder / "test.pdf";
        Within(running, "mnuPrinterSetup", "frmWizard", [](const Shown& form) { form.Click("cmdCancel"); });
        Within(running, "mnuPrinterSetupWiz", "frmWizard", [&](const Shown& form) {
            QCOMPARE(form.Find<QListWidget>("lstPrinters")->item(0)->text(), QString("Velmora PDF (default)"));
            QCOMPARE(form.Text("lblMargins").left(15), QString("Velmora PDF was"));
            form.Click("cmdNext");
            QVERIFY(!form.Find<QWidget>("optLayout(0)")->isEnabled());
            form.Click("optStationery(5)");
            QVERIFY(form.Text("lblMargins").startsWith("Velmora PDF was not calibrated on DL_v yet."));
            form.Click("optLayout(1)");
            ask(Answer::No);
            form.Click("cmdCancel");
            form.Click("cmdNext");
            running.test.ui.ExpectChooser("Save as PDF", pdf);
            form.Click("cmdTestPage");
            ask(Answer::Yes);
            form.Click("cmdCancel");
        });
        QVERIFY(ReadFile(pdf).starts_with("%PDF-"));
        QCOMPARE(running.test.Stored("Settings", "OptType"), std::string("0"));
    }

    void thePageSetupShowsWhatItsPrinterWizardChose() {
        RunningProgram running;
        CopyPictures(running);
        running.Start(0, 1, 1);
        running.test.ui.Expect(kEmptyingQuestion, Icon::Question, Buttons::YesNo, Answer::Yes, Answer::No);
        Within(running, "mnuPgSetup", "frmPageSetUp", [](const Shown& form) {
            Within([&] { form.Click("cmdPrtWiz"); }, "frmWizard",
                   [](const Shown& wizard) {
                       wizard.Click("cmdNext");
                       wizard.Click("optStationery(3)");
                       wizard.Click("cmdFinish");
                   });
            QVERIFY(form.Find<QAbstractButton>("optPgsize(3)")->isChecked());
            QCOMPARE(form.Text("lblGridSize"), QString("9 Rows, 6 Colums"));
            form.Click("cmdCancel");
        });
        QVERIFY(running.Box("TextA1(54)"));
        QCOMPARE(running.test.Stored("Settings", "OptType"), std::string("3"));
    }

    void troublesEndInAdvice() {
        RunningProgram running;
        CopyPictures(running);
        running.Start(0, 1, 1);
        running.test.ui.boxTitle = "Velmora - Information ...";
        Within(running, "mnuPrinterSetupWiz", "frmWizard", [&](const Shown& form) {
            for (int page = 1; page < 4; ++page)
                form.Click("cmdNext");
            running.test.ui.Expect("Well it is best now to call your network technician who will be able to fix your "
                                   "printing problem !",
                                   Icon::Information);
            Within([&] { form.Click("cmdFix1"); }, "frmFix1", [](const Shown& fix) { fix.Click("cmdNo"); });
            Within([&] { form.Click("cmdFix2"); }, "frmFix2",
                   [](const Shown& fix) { QTest::keyClick(&fix.dialog, Qt::Key_Escape); });
            form.Click("cmdNext");
            QVERIFY(!form.Find<QWidget>("cmdNext")->isVisible());
            form.Click("cmdCancel");
        });
    }

    void theStartLeadsToTheDialogs() {
        RunningProgram running;
        CopyPictures(running);
        running.test.Store("Settings", "OptType", "2"); // without default margins
        running.test.Store("Settings", "Ask for margins", "True");
        running.test.Store("Settings", "Start with setup", "True");
        running.test.ui.Expect("Every printer feeds its paper a little differently. With margins of its own, the texts "
                               "stand in the middle of the tabs. This can wait until the first sheet is printed: File "
                               "> Margin Setup.\r\n\r\nYou have to setup margins for the tabs.\r\nDo you want to do "
                               "it now?",
                               Icon::Question, Buttons::YesNo, Answer::Yes);
        QStringList came;
        QTimer closer;
        connect(&closer, &QTimer::timeout, this, [&] {
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                came.append(dialog->objectName());
                dialog->close();
            }
        });
        closer.start(0);
        running.Start();
        QCOMPARE(came, QStringList({"frmFix3", "frmPageSetUp"}));
    }
};

} // namespace

FORMS_TESTS(SetupFormsTest)

#include "setup_forms_test.moc"
