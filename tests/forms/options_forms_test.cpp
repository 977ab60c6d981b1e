// Options, about box, settings editor and help, driven through their named controls.
#include "app/Help.h"
#include "app/StartPage.h"
#include "app/ui/MainMenu.h"
#include "app/ui/frmAbout.h"
#include "app/ui/frmHelp.h"
#include "app/ui/frmOptionsPage.h"
#include "app/ui/frmSettings.h"
#include "app/ui/frmStart.h"
#include "tests/forms/RunningProgram.h"
#include "widgets/HelpRequest.h"
#include "widgets/TabPicture.h"
#include "workspace/RecentFiles.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QClipboard>
#include <QFile>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>

namespace {

using namespace velmora;

QString Html(std::string_view page) {
    QFile file(":/help/" + QString::fromStdString(std::string(page)) + ".html");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList Captured(const QString& text, const QString& pattern) {
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

/// With the start page up, which `Page` gives; null once it has gone.
struct BeginningProgram : RunningProgram {
    BeginningProgram() {
        test.Store("Settings", "Start Page", "True");
        ReplaceFile(test.folder / "a&b.csv", "Version 8\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\nx\r\n");
        RememberFile(test.settings, test.folder / "a&b.csv");
        Start();
    }
    frmStart* Page() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window->findChild<frmStart*>();
    }
};

class OptionsFormsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void theOptionsAreKeptOnlyByOk() {
        RunningProgram running;
        running.Start();
        KeepStartPage(running.test.settings, true);
        running.program.main.globals.StartWithSetup = true;
        SaveGlobals(running.program.main);
        for (const char* button : {"cmdCancel", "cmdOk"}) {
            frmOptionsPage form(running.program.main, running.window);
            form.show();
            for (const char* box : {"chkAskBeforeDelete", "chkStartWithSetup", "chkStartPage"}) {
                QVERIFY(Get<QCheckBox>(form, box).isChecked());
                Click(form, box);
            }
            Click(form, button);
            QVERIFY(!form.isVisible());
        }
        QCOMPARE(running.test.Stored("Settings", "Ask before delete"), std::string("False"));
        QCOMPARE(running.test.Stored("Settings", "Start Page"), std::string("False"));
        frmOptionsPage form(running.program.main, running.window);
        form.show();
        QVERIFY(!Get<QCheckBox>(form, "chkStartWithSetup").isChecked());
        const auto reg = running.test.folder / "old.reg";
        ReplaceFile(reg, "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Series\\Velmora\\Settings]\r\n"
                         "\"Ask before delete\"=\"True\"\r\n");
        running.test.ui.ExpectChooser("Import old settings", reg);
        running.test.ui.Expect("Settings imported: 1.\r\nAn open document keeps its own tab type, margins and fonts.",
                               Icon::Information);
        Click(form, "cmdImportSettings");
        QVERIFY(Get<QCheckBox>(form, "chkAskBeforeDelete").isChecked());
        Click(form, "Command1");
        QVERIFY(Get<QCheckBox>(form, "chkStartWithSetup").isChecked());
        QCOMPARE(running.test.Stored("Settings", "Start with setup"), std::string("False"));
        QCOMPARE(running.test.Stored("Form Position", "mdiVelmora"), std::string("(none)"));
        Click(form, "cmdOk");
        QCOMPARE(running.test.Stored("Settings", "Start with setup"), std::string("True"));
        QVERIFY(running.test.Stored("Form Position", "Options") != "(none)");
    }

    void theStartPageGivesWayToWhoTypesPastesOrGoesToTheSheet() {
        const auto press = [](auto... key) { QTest::keyClick(QApplication::focusWidget(), key...); };
        QApplication::clipboard()->setText("q");
        const std::function<void()> ways[] = {[&] { press('q'); }, [&] { press(Qt::Key_V, Qt::ControlModifier); },
                                              [&] {
                                                  press(Qt::Key_F6);
                                                  press(Qt::Key_F6);
                                                  press('q');
                                              }};
        for (const auto& way : ways) {
            BeginningProgram running;
            QVERIFY(running.Page()->hasFocus());
            for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Shift})
                press(key);
            QVERIFY(running.Page() && running.Page()->isAncestorOf(QApplication::focusWidget()));
            running.Page()->findChild<QAbstractButton*>("optFields1")->click();
            QCOMPARE(QApplication::focusWidget()->objectName(), QString("optFields1"));
            way();
            QVERIFY(!running.Page() && !running.Box("TextA2(1)"));
            QCOMPARE(running.Box("TextA1(1)")->text(), QString("q"));
            QVERIFY(running.Box("TextA1(1)")->hasFocus() && running.Box("TextA1(1)")->isVisible());
        }
    }

    void thePicturesOfTheStartPageShrinkBeforeItScrolls() {
        BeginningProgram running;
        const auto bars = [&](QSize size) {
            running.window->resize(size);
            QCoreApplication::processEvents();
            return std::pair(running.Page()->horizontalScrollBar()->isVisible(),
                             running.Page()->verticalScrollBar()->isVisible());
        };
        const int all = running.window->height() - running.Page()->viewport()->height();
        QCOMPARE(bars({1200, 900}), std::pair(false, false));
        const int large = running.Page()->widget()->minimumSizeHint().height();
        QCOMPARE(bars({1200, large + all - 100}), std::pair(false, false));
        QCOMPARE(bars({1200, 100}), std::pair(false, true));
    }

    void aStationeryOfTheStartPageIsSetUp() {
        BeginningProgram running;
        Click(*running.Page(), "optFields2");
        QVERIFY(running.window->findChild<QAction*>("mnuUndo")->isEnabled());
        auto* last = running.Page()->findChildren<QToolButton*>("cmdStationery").last();
        QCOMPARE(last->text(), QString("DL Alpha\n3 rows, 4 cols"));
        last->setFocus();
        QTest::keyClick(last, Qt::Key_Return);
        QVERIFY(!running.Page() && running.Box("TextA2(12)")->isVisible() && !running.Box("TextA3(1)"));
        QCOMPARE(running.program.main.document.setup.OptType, 5);
        QCOMPARE(running.Panel(5), QString("No of tabs: 1 of 12"));
        QVERIFY(running.window->findChild<QAction*>("mnuUndo")->isEnabled());
    }

    void aBlankInANameIsSearchedForAndOpensTheListOnItsOwn() {
        RunningProgram running;
        QComboBox box;
        box.addItems({"Arial", "Times Old", "Times Roman", "Zapf"});
        box.show();
        QTest::keyClicks(&box, "times r");
        QCOMPARE(box.currentText() + (box.view()->isVisible() ? " open" : " closed"), QString("Times Roman closed"));
        QTest::keyClick(&box, Qt::Key_Tab);
        QTest::keyClick(&box, Qt::Key_Space);
        QVERIFY(box.view()->isVisible());
        box.hidePopup();
    }

    void theStartPageOpensAndCanBeSwitchedOff() {
        BeginningProgram running;
        QTest::keyClick(running.Page(), Qt::Key_F1);
        QCOMPARE(running.window->findChild<QTextBrowser*>("txtPage")->source().fileName(),
                 QString("first-document.html"));
        Click(*running.Page(), "chkStartPage");
        QVERIFY(!WantsStartPage(running.test.settings));
        running.test.ui.ExpectChooser("Open", std::nullopt);
        Click(*running.Page(), "cmdOpen");
        auto* recent = running.Page()->findChild<QToolButton*>("cmdRecent");
        QCOMPARE(recent->text(), QString("a&&b.csv"));
        QVERIFY(recent->accessibleName().endsWith("/a&b.csv") && recent->accessibleName() == recent->toolTip());
        recent->click();
        QVERIFY(!running.Page());
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("x"));
        RunningProgram another;
        another.Start();
        QVERIFY(!another.window->findChild<frmStart*>());
    }

    void theAboutBoxNamesTheVersionAndAPictureThatIsNoneIsSaid() {
        RunningProgram running;
        running.Start();
        frmAbout form(running.program, running.window);
        form.show();
        QCOMPARE(Get<QLabel>(form, "lblTitle").text() + Get<QLabel>(form, "lblVersion").text(),
                 QString("VelmoraVersion number:8.2.0"));
        running.test.ui.Expect("System Information Is Unavailable At This Time", Icon::None);
        Click(form, "cmdSysInfo");
        Click(form, "cmdDetails");
        Click(form, "cmdDetails");
        QVERIFY(QApplication::clipboard()->text().startsWith("Velmora [Version "));
        QVERIFY(QApplication::clipboard()->text().contains("Printer in use: " + QString(kPdfPrinter)));
        Click(form, "cmdOk");
        QVERIFY(running.test.Stored("Form Position", "about") != "(none)");
        ReplaceFile(running.test.folder / "Images/tab.gif", "no picture");
        for (const char* name : {"tab.gif", "none.gif"}) {
            running.test.ui.Expect("The program could not load the '" + std::string(name) + "' picture file.",
                                   Icon::Information);
            QVERIFY(LoadTabPicture(running.program.main, name).isNull());
        }
    }

    void theSettingsEditorWritesListsAndRemembers() {
        RunningProgram running;
        {
            frmSettings form(running.program.main);
            QCOMPARE(form.windowTitle(), QString("Application Settings - Corvane Series"));
            form.show();
            Get<QLineEdit>(form, "txtSet(0)").setText("Sect");
            Get<QLineEdit>(form, "txtSet(3)").setText(QString::fromUtf8("\xF0\x9F\x96\xA8"));
            Click(form, "butSet(0)");
            Click(form, "butSet(4)");
            auto& list = Get<QListWidget>(form, "lstSections");
            QCOMPARE(list.count(), 1);
            list.setCurrentRow(0);
            QCOMPARE(list.currentItem()->text(), QString::fromUtf8("KeyName=\xF0\x9F\x96\xA8"));
            QTest::keyClick(&list, Qt::Key_Return);
            QCOMPARE(Get<QLineEdit>(form, "txtSet(1)").text(), QString("KeyName"));
            QVERIFY(form.isVisible());
            Click(form, "chkSet(0)");
            QCOMPARE(running.test.settings.SaveMode, 0);
            form.move(40, 50);
            form.close();
        }
        frmSettings form(running.program.main);
        form.show();
        QCOMPARE(Get<QLineEdit>(form, "txtSet(0)").text(), QString("Sect"));
        QVERIFY(!Get<QCheckBox>(form, "chkSet(0)").isChecked());
        QCOMPARE(form.pos(), QPoint(40, 50));
    }

    void everyPageLinkAndPictureIsThere() {
        QString all;
        for (const HelpPage& page : HelpPages()) {
            const QString html = Html(page.name);
            all += html;
            const QString title = QString::fromUtf8(page.title.data(), static_cast<qsizetype>(page.title.size()));
            QVERIFY2(html.contains("<h1>" + title + "</h1>"), page.name.data());
            for (const QString& file : Captured(html, "(?:href|src)=\"([^\"#]+)"))
                QVERIFY2(QFile::exists(":/help/" + file), qPrintable(file));
        }
        all.replace("&gt;", ">").replace("\n", " ");
        for (const Menu& menu : Menus())
            for (const MenuItem& item : menu.items)
                if (item.name)
                    QVERIFY2(all.contains(QString(item.caption).remove('&')), item.caption);
    }

    void theHelpIsReadBesideAModalDialog() {
        RunningProgram running;
        running.Start();
        running.Trigger("mnuOptTabHelp");
        QPointer<frmHelp> help = running.window->findChild<frmHelp*>();
        QVERIFY(help && help->isVisible());
        const auto& page = Get<QTextBrowser>(*help, "txtPage");
        QCOMPARE(page.source().fileName(), QString("welcome.html"));
        running.Press(Qt::Key_F1);
        QCOMPARE(page.source().fileName(), QString("typing.html"));
        {
            frmOptionsPage form(running.program.main, running.window);
            form.open();
            QTest::keyClick(&Get<QWidget>(form, "cmdOk"), Qt::Key_F1);
            QCOMPARE(page.source().fileName(), QString("settings.html"));
            QCOMPARE(help->parentWidget(), &form);
            QTest::mouseClick(page.viewport(), Qt::LeftButton);
            QTest::keyClicks(&Get<QLineEdit>(*help, "txtSearch"), "zzz");
            QCOMPARE(Get<QListWidget>(*help, "lstHits").count(), 1); // says that there is none
            Click(form, "cmdCancel");
        }
        QVERIFY(help && help->isVisible());
        QTest::keyClick(help, Qt::Key_Escape);
        QVERIFY(!help->isVisible());
        running.Trigger("mnuOptTabHelp");
        QVERIFY(help->isVisible());
        auto* form = new frmAbout(running.program, running.window);
        form->show();
        RequestHelp(*form);
        delete form; // not closed: takes the help along
        running.Trigger("mnuOptTabHelp");
        QVERIFY(!help && running.window->findChild<frmHelp*>()->isVisible());
    }

    void searchingAndGoingThroughTheHelp() {
        RunningProgram running;
        frmHelp help(running.test.settings, nullptr);
        help.ShowPage("welcome");
        QCOMPARE(help.minimumSizeHint().boundedTo({630, 370}), help.minimumSizeHint()); // of 1280 x 800 at 200 %
        auto* page = help.findChild<QTextBrowser*>("txtPage");
        auto* tree = help.findChild<QTreeWidget*>("treContents");
        const auto place = [&] { return page->source().fileName() + " " + tree->currentItem()->text(0); };
        QCOMPARE(place(), QString("welcome.html Welcome to Velmora"));
        Get<QLineEdit>(help, "txtSearch").setText("used FEED bend");
        auto& hits = Get<QListWidget>(help, "lstHits");
        QCOMPARE(hits.count(), 1);
        QVERIFY(!hits.item(0)->text().contains("See also"));
        hits.setCurrentRow(0);
        QCOMPARE(place(), QString("used-sheets.html Partly used sheets"));
        QVERIFY(page->extraSelections().size() > 2);
        const QUrl picture("qrc:/help/used-sheet.png");
        QCOMPARE(page->document()->resource(QTextDocument::ImageResource, picture).value<QImage>().width(),
                 (QImage(":/help/used-sheet.png").width() + 1) / 2);
        for (const auto& [words, first] : {std::pair("undo", "Find, replace and undo"), // though pages before hold it
                                           {"print one tab again", "How do I ...?"},
                                           {"tab", "Pages and empty tabs"}}) {
            Get<QLineEdit>(help, "txtSearch").setText(words);
            QCOMPARE(hits.item(0)->text().section('\n', 0, 0), QString(first));
        }
        hits.setCurrentRow(-1);
        page->setSource(QUrl("qrc:/help/used-sheets.html"));
        help.findChild<QAction*>("cmdBack")->trigger();
        QCOMPARE(place(), QString("welcome.html Welcome to Velmora"));
        int shown = 0;
        for (QTreeWidgetItemIterator item(tree); *item; ++item) {
            tree->setCurrentItem(*item);
            shown += page->toPlainText().startsWith((*item)->text(0)) ? 1 : 0;
        }
        QCOMPARE(shown, static_cast<int>(HelpPages().size()));
    }

    void anOldHelpFileIsOpenedByTheDesktop() {
        struct Viewer : Desktop {
            bool OpenFile(const std::filesystem::path& file) override { return (opened = file, true); }
            std::filesystem::path opened;
        } viewer;
        RunningProgram running;
        running.program.desktop.Take(viewer);
        running.Start();
        ReplaceFile(running.test.folder / "HELP70.chm", "");
        running.Trigger("mnuOptTabHelp");
        QCOMPARE(viewer.opened, running.test.folder / "HELP70.chm");
        QVERIFY(!running.window->findChild<frmHelp*>());
    }
};

} // namespace

FORMS_TESTS(OptionsFormsTest)

#include "options_forms_test.moc"
