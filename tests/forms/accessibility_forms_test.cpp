// Every form for a person with a screen reader or without a mouse.
#include "app/ui/frmAbout.h"
#include "app/ui/frmHelp.h"
#include "app/ui/frmImport.h"
#include "app/ui/frmOptionsPage.h"
#include "app/ui/frmRecover.h"
#include "app/ui/frmSelectSheet.h"
#include "editor/ui/frmFind.h"
#include "platform/qt/QtUserInterface.h"
#include "print/ui/frmPreview.h"
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/FormFaults.h"
#include "tests/forms/RunningProgram.h"
#include "tests/support/FakePrinters.h"
#include "widgets/WizardFrame.h"

#include <QListView>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTimer>

namespace {

using namespace velmora;

class AccessibilityFormsTest : public QObject {
    Q_OBJECT

    FakePrinters printers_;
    QStringList faults_;

    static void Start(RunningProgram& running, int pages) {
        std::filesystem::copy(VELMORA_IMAGES, running.test.folder / "Images");
        running.Start(0, 3, pages);
        running.program.main.globals.PrinterName = "Office";
    }
    void Look(QWidget& form) {
        form.activateWindow(); // no window manager does it here
        QVERIFY(QTest::qWaitForWindowActive(&form));
        if (!QApplication::focusWidget())
            form.nextInFocusChain()->setFocus();
        QCoreApplication::processEvents(); // what the form does when it comes to the front
        faults_ += FormFaults::Of(form);
        AskForHelp(form);
    }
    /// The page of the help that is shown, which goes.
    static QString TakeHelp() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmHelp" && window->isVisible()) {
                QString page = Get<QTextBrowser>(*window, "txtPage").toPlainText();
                delete window;
                return page;
            }
        return {};
    }
    /// The Help button and F1 lead to a page that names the form, without the names of what is open in it.
    void AskForHelp(QWidget& form) {
        if (form.inherits("QMessageBox") || form.objectName() == "frmHelp")
            return;
        QString name = form.windowTitle().remove(QRegularExpression(" (list\\.csv|Velmora|\\.\\.\\.|\\[.*|- .*)$"));
        if (name == "Velmora" || name == QApplication::applicationName())
            name = form.objectName().mid(3);
        else if (!form.findChild<QPushButton*>("cmdHelp"))
            faults_ << name + " has no Help button";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        QStringList pages = {TakeHelp()};
        if (auto* help = form.findChild<QPushButton*>("cmdHelp")) {
            help->click();
            pages << TakeHelp();
        }
        for (const QString& page : pages)
            if (!QString(page).remove(' ').contains(QString(name).remove(' '), Qt::CaseInsensitive))
                faults_ << form.objectName() + ": \"" + name + "\" is not on the help page " + page.left(20);
    }
    /// Of a window that is not modal.
    void LookAndClose(QWidget& form) {
        form.show();
        Look(form);
        form.close();
    }
    /// Looks at what a wizard shows after each click.
    void LookAfter(QWidget& wizard, std::initializer_list<const char*> clicks) {
        Look(wizard);
        for (const char* name : clicks) {
            Click(wizard, name);
            Look(wizard);
        }
    }
    void LookAtModal(RunningProgram& running, const char* command, const char* name) {
        const DialogAnswer answer(name, [this](QDialog& dialog) {
            Look(dialog);
            dialog.reject();
        });
        running.Trigger(command);
    }
    void LookAtMessage() {
        QTimer::singleShot(0, this, [this] {
            QWidget* box = QApplication::activeModalWidget();
            Look(*box);
            box->findChildren<QPushButton*>().last()->click();
        });
        const Message message{"Text",     "Title", Icon::Question,  Buttons::YesNoCancel,
                              Answer::No, nullptr, "&Show the List"};
        QCOMPARE(QtUserInterface().Show(message), Answer::Other);
    }
    void LookAtPassword() {
        const DialogAnswer answer("frmPassword", [this](QDialog& form) {
            Look(form);
            form.reject();
        });
        QtUserInterface().AskForCredentials({"Office", "me", true});
    }
    void LookAtProgress() {
        const auto progress = QtUserInterface().StartCancellable("Work", 100);
        Look(ProgressWindow(*progress));
    }
    void LookAtHelp(RunningProgram& running) {
        frmHelp help(running.test.settings, nullptr);
        help.ShowPage("welcome");
        Look(help);
        Get<QLineEdit>(help, "txtSearch").setText("page");
        Look(help);
    }
    void LookAtPreview(RunningProgram& running) {
        const DialogAnswer answer("frmPreview", [this](QDialog& dialog) {
            auto* findings = dialog.findChild<QListView*>("lstFindings");
            if (!QTest::qWaitFor([&] { return findings->isVisible(); }))
                FailAndEnd("nothing is found");
            dialog.resize(dialog.width(), 1600); // nothing scrolls
            Look(dialog);
            Click(dialog, "chkPartlyUsed");
            Look(dialog);
            dialog.reject();
        });
        running.Trigger("mnuPreview");
    }
    void LookAtImport(RunningProgram& running) {
        using Rows = std::vector<std::vector<std::string>>;
        const ImportRequest request{"list.csv", {ListEncoding::Utf8}, [](const ImportChoice&) { return Rows{{"a"}}; }};
        frmImport import(running.program.main, request, {}, running.window);
        LookAndClose(import);
        running.test.ui.Expect("Please select the sheet to import", Icon::Question);
        frmSelectSheet select(running.program.main, {"one", "two"}, running.window);
        LookAndClose(select);
    }
    void LookAtPrinterWizard(RunningProgram& running) {
        const DialogAnswer answer("frmWizard", [this](QDialog& wizard) {
            LookAfter(wizard, {"cmdNext", "cmdNext", "cmdNext"});
            for (const char* fix : {"frmFix1", "frmFix2"}) {
                const DialogAnswer advice(fix, [this](QDialog& dialog) {
                    Look(dialog);
                    dialog.reject();
                });
                Click(wizard, QString(fix).replace("frm", "cmd"));
            }
            LookAfter(wizard, {"cmdNext"});
            wizard.reject();
        });
        running.Trigger("mnuPrinterSetupWiz");
    }
    /// Which stands alone.
    void LookAtSettingsEditor() {
        RunningProgram alone;
        const DialogAnswer answer("frmSettings", [this](QDialog& dialog) {
            Look(dialog);
            dialog.reject();
        });
        alone.forms.ShowSettingsEditor();
    }
    void LookAtWizard(RunningProgram& running) {
        running.Trigger("mnuAutoRepWiz");
        auto* wizard = running.window->findChild<WizardFrame*>();
        LookAfter(*wizard, {"cmdNext"});
        wizard->findChild<QLineEdit*>("txtNoOfPages")->setText("30");
        LookAfter(*wizard, {"cmdNext", "cmdFieldA", "cmdNext"});
        LookAfter(*wizard, {"cmdPrevious", "optMth", "cmdNext", "cmdNext"});
        LookAfter(*wizard, {"cmdPrevious", "cmdPrevious", "optText", "cmdNext", "cmdNext"});
        delete wizard;
        running.Trigger("mnuFonts");
        wizard = running.window->findChild<WizardFrame*>();
        Look(*wizard);
        delete wizard;
    }

private slots:
    void init() { FailOnWarnings(); }

    void everyFormIsForEverybody() {
        faults_.clear();
        LookAtSettingsEditor();
        RunningProgram running(&printers_);
        Start(running, 2);
        printers_.sources = {{{"auto", "Auto"}, {"tray-2", "Tray 2"}}, {{"plain", "Plain"}, {"labels", "Labels"}}};
        running.program.main.document.FieldA(30) = std::string(200, 'x'); // something to say before printing
        running.program.main.status->Tell({"Done", true});
        Look(*running.window);
        running.Trigger("mnuFind");
        LookAndClose(*running.window->findChild<frmFind*>());
        LookAtImport(running);
        frmRecover recover(running.test.settings, std::vector<RecoveredDocument>(kMostLost), running.window);
        LookAndClose(recover);
        LookAtPreview(running);
        for (const auto& [command, name] : {std::pair{"mnuMarginSetup", "frmFix3"},
                                            {"mnuPgSetup", "frmPageSetUp"},
                                            {"mnuOptions", "frmOptionsPage"},
                                            {"mnuGoTo", "frmGoTo"},
                                            {"mnuSort", "frmSort"},
                                            {"mnuMovePage", "frmMovePage"},
                                            {"mnuRemoveDuplicates", "frmRemoveDuplicates"},
                                            {"mnuabout", "frmAbout"}})
            LookAtModal(running, command, name);
        LookAtPrinterWizard(running);
        LookAtWizard(running);
        LookAtHelp(running);
        running.forms.Window()->ShowStartPage();
        Look(*running.window);
        LookAtMessage();
        LookAtPassword();
        LookAtProgress();
        QVERIFY2(faults_.isEmpty(), qPrintable(faults_.join('\n')));
    }

    void thePreviewSaysWhatIsOnItsSheetAndWhatIsGone() {
        RunningProgram running(&printers_);
        Start(running, 2);
        const DialogAnswer answer("frmPreview", [](QDialog& dialog) {
            auto* display = dialog.findChild<SheetDisplay*>("SheetDisplay");
            QAccessibleInterface& list = *QAccessible::queryAccessibleInterface(display);
            const auto name = [&](int slot) { return list.child(slot - 1)->text(QAccessible::Name); };
            QCOMPARE(list.text(QAccessible::Name), QString("Sheet 1 of 2"));
            QCOMPARE(name(5), QString("Row 2, column 2: a5, b, c"));
            QCOMPARE(list.childAt(list.child(4)->rect().center().x(), list.child(4)->rect().center().y()),
                     list.child(4));
            Click(dialog, "chkPartlyUsed");
            QVERIFY(display->hasFocus());
            QCOMPARE(list.focusChild(), list.child(0));
            QTest::keyClick(display, Qt::Key_Down);
            QCOMPARE(list.focusChild(), list.child(3));
            QVERIFY(list.child(3)->state().focused && !list.child(0)->state().focused);
            QTest::keyClick(display, Qt::Key_Space);
            QCOMPARE(name(4), QString("Row 2, column 1, gone"));
            QCOMPARE(name(5), QString("Row 2, column 2: a4, b, c"));
            dialog.reject();
        });
        running.Trigger("mnuPreview");
    }

    void whatWasFoundIsReadOut() {
        RunningProgram running(0, 2, 2);
        running.Trigger("mnuFind");
        auto* form = running.window->findChild<frmFind*>();
        auto* entry = form->findChild<QLineEdit*>("txtFind");
        const std::pair<const char*, QString> searches[] = {
            {"a30", "1 of 1. Page 2, row 2, column 3, field A: a30"},
            {"zz", "Not found."},
            {"a1", "1 of 11, from the first tab on. Page 1, row 1, column 1, field A: a1"}};
        for (const auto& [text, answer] : searches) {
            entry->setFocus();
            entry->selectAll();
            QTest::keyClicks(entry, text);
            QCOMPARE(entry->accessibleDescription(), QString());
            QTest::keyClick(entry, Qt::Key_Return);
            QCOMPARE(entry->accessibleDescription(), answer);
        }
        running.Trigger("mnuNextPage");
        QCOMPARE(FormFaults::NameOf(*running.Box("TextA1(7)")), QString("Page 2, row 3, column 1, field A"));
    }

    void aWizardsPageIsReadOutWhenItComesUp() {
        RunningProgram running(&printers_);
        Start(running, 1);
        running.Trigger("mnuAutoRepWiz");
        auto* wizard = running.window->findChild<WizardFrame*>();
        for (const bool next : {false, true}) {
            if (next)
                Click(*wizard, "cmdNext");
            const QString spoken = wizard->focusWidget()->accessibleDescription();
            QVERIFY(!spoken.isEmpty());
            for (const QLabel* label : wizard->Page()->findChildren<QLabel*>())
                QVERIFY2(label->buddy() || spoken.contains(label->text()), qPrintable(label->text()));
        }
        QCOMPARE(wizard->findChild<QWidget*>("cmdNext")->accessibleDescription(), QString());
    }
};

} // namespace

FORMS_TESTS(AccessibilityFormsTest)

#include "accessibility_forms_test.moc"
