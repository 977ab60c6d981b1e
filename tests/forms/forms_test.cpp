// The main window and its grid on the offscreen platform, driven through the named controls.
#include "app/ui/frmRecover.h"
#include "editor/ui/frmGrid2a4.h"
#include "platform/qt/Endings.h"
#include "platform/qt/QtUserInterface.h"
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/RunningProgram.h"
#include "widgets/LineIcon.h"
#include "workspace/TakePageBack.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QWindow>

#include <csignal>

namespace {

using namespace velmora;
namespace fs = std::filesystem;

constexpr const char* kTypes = "VELMORA_TYPES"; ///< set for a program that another test starts

class FormsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    /// Lines, both turns of arcs, circles, dashes with their gaps, and a colour of its own.
    void iconsAreDrawnAsTheirFilesSay() {
        QPalette palette = qApp->palette();
        palette.setColor(QPalette::ButtonText, Qt::red);
        qApp->setPalette(palette);
        const auto colourAt = [](const char* name, double x, double y) {
            const QImage icon = LineIcon(name).pixmap(240).toImage();
            return icon.pixelColor(static_cast<int>(x * 10), static_cast<int>(y * 10));
        };
        struct Spot {
            const char* name;
            double x, y;
            bool ink = true;
        };
        for (const auto& [name, x, y, ink] :
             {Spot{"print", 7, 6}, Spot{"print", 12, 6, false}, Spot{"save", 4, 12}, Spot{"underline", 12, 16},
              Spot{"underline", 12, 6, false}, Spot{"bold", 17.8, 15.7}, Spot{"bold", 10, 15.7, false},
              Spot{"undo", 19.5, 14}, Spot{"help", 12, 3}, Spot{"help", 12, 7.1}, Spot{"help", 9.5, 12, false},
              Spot{"margins", 8, 4}, Spot{"margins", 8, 6, false}})
            QVERIFY2(ink ? colourAt(name, x, y) == QColor(Qt::red) : colourAt(name, x, y).alpha() == 0, name);
        QCOMPARE(colourAt("done", 9, 18), QColor(Qt::black));
        qApp->setPalette({});
    }

    void longWorkIsCancelledByButtonAndByEscape() {
        for (const bool byButton : {true, false}) {
            const auto progress = QtUserInterface().StartCancellable("Work", 100000);
            QWidget& window = ProgressWindow(*progress);
            QVERIFY(window.isModal() && !progress->Cancelled()); // nothing else is begun meanwhile
            if (byButton)
                QTest::mouseClick(&Get<QAbstractButton>(window, "cmdCancel"), Qt::LeftButton);
            else
                QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(progress->Cancelled());
        }
        QVERIFY2(!QApplication::overrideCursor(), "nothing is waited for");
    }

    void aQuestionInTheMiddleOfTypingWaitsForAPause() {
        const auto answerTo = [](const std::function<void(QWidget&)>& press) {
            QTimer::singleShot(0, [&press] { press(*QApplication::activeModalWidget()); });
            return QtUserInterface().Show({"Add a page?", "Velmora", Icon::Question, Buttons::YesNo});
        };
        QCOMPARE(answerTo([](QWidget& box) {
                     QTest::keyClick(box.windowHandle(), Qt::Key_Return);
                     QVERIFY(box.isVisible());
                     QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
                 }),
                 Answer::No);
        QCOMPARE(answerTo([](QWidget& box) {
                     for (int pause = 50; pause < 5000 && QApplication::activeModalWidget(); pause *= 2) {
                         QTest::keyClick(box.windowHandle(), Qt::Key_Y);
                         QTest::qWait(pause);
                     }
                 }),
                 Answer::Yes);
    }

    void everyTypeShowsItsBoxesInsideTheSheet() {
        for (int type = 0; type < 6; ++type)
            for (int fields = 1; fields <= 3; ++fields) {
                RunningProgram running(type, fields, 1);
                const auto boxes = running.window->findChildren<QLineEdit*>();
                QCOMPARE(boxes.size(), FindTabType(type)->TabsPerPage() * fields);
                for (const QLineEdit* box : boxes)
                    QVERIFY(box->isVisible() && box->parentWidget()->rect().contains(box->geometry()));
                QCOMPARE(running.Box("TextA1(2)")->text(), QString("a2"));
                QVERIFY(fields < 3 || running.Box("TextA3(1)")->alignment().testFlag(Qt::AlignRight));
            }
    }

    void changesSurviveAMoveAndAreTakenBackOneByOne() {
        RunningProgram running(0, 1, 2);
        running.Enter("TextA1(2)")->selectAll();
        QTest::keyClicks(running.Box("TextA1(2)"), "first");
        running.Trigger("mnuLastPage");
        QCOMPARE(running.Panel(5) + running.Box("TextA1(2)")->text(), QString("No of tabs: 26 of 48a26"));
        running.Trigger("mnuFirstPage");
        QCOMPARE(running.Box("TextA1(2)")->text(), QString("first"));
        running.Trigger("mnuNewPage");
        QTest::keyClicks(running.Box("TextA1(1)"), "more");
        auto* undo = running.window->findChild<QAction*>("mnuUndo");
        QCOMPARE(undo->text(), QString("&Undo Typing"));
        running.Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(running.Box("TextA1(1)")->text() + undo->text(), QString("&Undo New Page"));
        while (undo->isEnabled())
            undo->trigger();
        QCOMPARE(running.Panel(4) + running.Box("TextA1(2)")->text(), QString("Pg No: 1 of 2a2"));
        running.Trigger("mnuDeleteEmpries");
        QVERIFY2(!running.window->isWindowModified(), "there are none");
        for (int i = 0; i < 3; ++i)
            running.Trigger("mnuRedo");
        QVERIFY(running.window->isWindowModified());
        running.Trigger("mnuDeleteEmpries");
        QCOMPARE(running.Panel(4) + running.Box("TextA1(1)")->text(), QString("Pg No: 3 of 3more"));
    }

    void theToolbarRepeatsTheMenusWithWordsWhereThereIsRoom() {
        RunningProgram running(0, 1, 2);
        auto* bar = running.window->findChild<QToolBar*>("Toolbar2");
        const auto buttons = bar->actions();
        QCOMPARE(buttons.size(), 22);
        for (const int gap : {4, 8, 13, 17, 20})
            QVERIFY(buttons[gap - 1]->isSeparator());
        QCOMPARE(buttons[21 - 1]->objectName() + buttons[22 - 1]->objectName(), QString("mnuUndomnuRedo"));
        for (const QAction* button : buttons)
            QVERIFY(button->isSeparator() || !button->icon().pixmap(24).isNull());
        QVERIFY(!buttons[9 - 1]->isEnabled()); // first page, on the first page
        buttons[12 - 1]->trigger();
        QVERIFY(buttons[9 - 1]->isEnabled() && !buttons[12 - 1]->isEnabled());
        const auto words = [&] {
            QStringList found;
            for (QAction* action : buttons)
                if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
                    button && button->toolButtonStyle() == Qt::ToolButtonTextBesideIcon)
                    found << button->text();
            return found.join(' ');
        };
        for (const int width : {1400, 600, 1400}) {
            running.window->resize(width, 600);
            QTRY_COMPARE(words(), QString(width > 600 ? "Open Save Print Preview New Page" : ""));
        }
        const int before = bar->iconSize().height();
        running.window->resize(800, 600);
        bar->setFont(QFont(bar->font().family(), bar->font().pointSize() * 2));
        QTRY_VERIFY(bar->iconSize().height() > before * 3 / 2);
        QTRY_COMPARE(words(), QString());
    }

    void aWindowComesUpOnTheScreenWhereItWasLeft() {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        for (const char* place : {"-300,-200,500,400", "700,700,500,400", "0,0,5000,5000"}) {
            RunningProgram running;
            running.test.Store("Form Position", "mdiVelmora", place);
            running.Start(0, 1, 1);
            QVERIFY2(screen.contains(running.window->geometry()), place);
        }
        QList<QPoint> places;
        for (const int beside : {0, 1, 2, 40}) {
            RunningProgram running;
            running.test.Store("Form Position", "mdiVelmora", "20,20,500,400");
            running.program.beside = beside;
            running.Start(0, 1, 1);
            QVERIFY(screen.contains(running.window->geometry()) && !places.contains(running.window->pos()));
            places << running.window->pos();
            running.window->close();
            QCOMPARE(running.test.Stored("Form Position", "mdiVelmora").substr(0, 6), std::string("20,20,"));
        }
        RunningProgram running;
        running.test.Store("Form Position", "mdiVelmora Maximized", "True");
        running.Start(0, 1, 1);
        QVERIFY(running.window->isMaximized());
        const auto stored = [&] {
            running.window->close();
            return running.test.Stored("Form Position", "mdiVelmora") + " " +
                   running.test.Stored("Form Position", "mdiVelmora Maximized");
        };
        running.window->showNormal();
        running.window->move(31, 42);
        running.window->resize(640, 480);
        QCOMPARE(stored(), std::string("31,42,640,480 (none)"));
        running.window->showMaximized();
        QCOMPARE(stored(), std::string("31,42,640,480 True"));
    }

    void fieldsWithoutBoxAndTextsUntouchedStayAsTheyAre() {
        RunningProgram running;
        ReplaceFile(running.test.folder / "odd.csv", std::string(30, 'x') + "\ty,hidden,too\r\n");
        running.test.Store("Settings", "No Of Fields", "1");
        running.test.ui.Expect("The file: [" + (running.test.folder / "odd.csv").string() +
                                   "] is not an Velmora version 7 or version 8 file.\r\n\r\n"
                                   "Velmora will attempt to import it!",
                               Icon::Information);
        {
            const DialogAnswer import("frmImport", [](QDialog& dialog) { dialog.accept(); });
            running.Start((running.test.folder / "odd.csv").string());
        }
        SaveLabel(running.program.main, 1, 24);
        QCOMPARE(running.program.main.document.FieldA(1), std::string(30, 'x') + "\ty");
        QCOMPARE(running.program.main.document.FieldB(1), std::string("hidden"));
    }

    void whatWasTypedSurvivesAFailedOpen() {
        RunningProgram running(0, 1, 1);
        running.program.main.document.DocFileName.clear();
        running.Box("TextA1(3)")->selectAll();
        QTest::keyClicks(running.Box("TextA1(3)"), "typed");
        ReplaceFile(running.test.folder / "cut.csv", "Version 8\r\n");
        running.test.ui.ExpectChooser("Open", running.test.folder / "cut.csv");
        running.test.ui.Expect("line 2: the header ends here; it has 6 lines\r\nCalled form Sub:LoadData",
                               Icon::Critical);
        running.test.ui.Expect("Could not finish process", Icon::Information);
        running.test.ui.Expect("The file could not be opened successfully", Icon::Information);
        running.Trigger("mnuOpen");
        QCOMPARE(running.Box("TextA1(3)")->text(), QString("typed"));
    }

    void aBoxTakesOneLineUpToItsLimit() {
        RunningProgram running(0, 3, 1);
        QLineEdit* box = running.Box("TextA1(1)");
        box->selectAll();
        QApplication::clipboard()->setText("one\r\ntwo\tthree");
        box->paste(); // as from the box's own menu
        emit box->textEdited(box->text());
        SaveLabel(running.program.main, 1, 24);
        QCOMPARE(running.program.main.document.FieldA(1), std::string("one two three"));
        box = running.Box("TextA2(1)");
        box->clear();
        QTest::keyClicks(box, "12345678901");
        QCOMPARE(box->text(), QString("1234567890"));
        QCOMPARE(running.test.ui.beeps, 1);
    }

    void aDroppedFileIsOpened() {
        RunningProgram running;
        running.Start();
        ReplaceFile(running.test.folder / "drop.csv", "Version 8\r\nP,A4,1,1\r\n0,0\r\nA\r\nB\r\nC\r\ndropped\r\n");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString((running.test.folder / "drop.csv").string()))});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(running.window, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(running.window, &drop);
        QVERIFY2(running.Box("TextA1(1)")->text().isEmpty(), "the other program waits while this one asks");
        QTRY_COMPARE(running.Box("TextA1(1)")->text(), QString("dropped"));
    }

    void aSmallWindowScrolls() {
        RunningProgram running(3, 3, 1);
        running.window->resize(1000, 700);
        auto* bar = running.window->findChild<QScrollBar*>("FlatScrollBar1");
        QTRY_COMPARE(bar->maximum(), 0);
        running.window->resize(400, 300);
        QTRY_VERIFY(bar->maximum() > 0);
        running.Enter("TextA1(54)");
        QTRY_VERIFY(bar->value() > 0);
    }

    void whatIsTypedIsKeptWhileAPersonGoesOn() {
        RunningProgram running(0, 1, 1);
        const fs::path recovery = running.test.folder / "Recovery";
        fs::path kept;
        const auto isKept = [&](const char* text) {
            std::error_code error;
            for (const auto& entry : fs::directory_iterator(recovery, error))
                kept = entry.path().extension() == ".recovery" ? entry.path() : kept;
            return fs::exists(kept) && ReadFile(kept).find(text) != std::string::npos;
        };
        running.window->findChild<QTimer*>("keepTimer")->setInterval(200);
        QLineEdit* box = running.Box("TextA1(1)");
        box->clear();
        for (const char* text : {"typed", "typed more", "typed more still"}) {
            QTest::keyClicks(box, QString(text).mid(box->text().size()));
            QTRY_VERIFY(isKept(text));
        }
        while (running.window->isWindowModified())
            running.Trigger("mnuUndo");
        QTRY_VERIFY(fs::is_empty(recovery));
    }

    void theLostAreChosenFromAList() {
        TestProgram test(FailSoftly);
        std::vector<RecoveredDocument> lost(3);
        lost[1] = {{}, "/folder/name.csv", {}, 1, true, 0, "one, two"};
        /// The choice, as a number, and the rows.
        const auto answer = [&](Qt::Key key, const char* button) {
            frmRecover form(test.settings, lost, nullptr);
            form.show();
            auto* list = form.findChild<QListWidget*>("lstLost");
            const QString shown = list->item(1)->text();
            QTest::keyClick(list, key, Qt::ControlModifier);
            QTest::mouseClick(form.findChild<QPushButton*>(button), Qt::LeftButton);
            const bool told = shown.startsWith("name.csv   1970") && shown.endsWith("   1 tab\none, two   /folder");
            QString all = told ? "" : shown;
            for (const std::size_t row : form.Answer().which)
                all += QString::number(row);
            return form.isVisible() ? "stays open"
                                    : QString::number(static_cast<int>(form.Answer().choice)) + ":" + all;
        };
        QCOMPARE(answer(Qt::Key_Space, "cmdRecover"), QString("stays open")); // nothing is chosen
        QCOMPARE(answer(Qt::Key_A, "cmdDiscard"), QString("2:012"));
        QCOMPARE(answer(Qt::Key_Home, "cmdRecover"), QString("1:0"));
        QCOMPARE(answer(Qt::Key_Home, "cmdRecoverAll"), QString("1:012"));
        QCOMPARE(answer(Qt::Key_A, "cmdLater"), QString("0:"));
    }

    void theLastKeystrokeIsKeptWhenAProgramIsEnded() {
        for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
            QProcess other;
            other.setEnvironment(QProcess::systemEnvironment() << kTypes + QString("=1"));
            other.start(QApplication::applicationFilePath(), {"FormsTest", "typesUntilItIsEnded"});
            QByteArray line; // the folder, after what the test's library writes
            while (!line.startsWith('/') && (other.canReadLine() || other.waitForReadyRead()))
                line = other.readLine().trimmed();
            const fs::path folder = line.toStdString();
            QVERIFY(other.processId() > 0); // 0 would be all that run here
            ::kill(static_cast<pid_t>(other.processId()), signal);
            QVERIFY(other.waitForFinished());
            QCOMPARE(other.exitCode(), signal);
            QVERIFY(ReadFile(folder / "Velmora.ini").find("mdiVelmora=") != std::string::npos);
            RecoveryStore store;
            store.Open(folder / "Recovery", std::chrono::system_clock::now);
            const auto left = store.List();
            QCOMPARE(left.size(), 1U);
            QVERIFY(store.Read(left[0])->find("just typed") != std::string::npos);
            fs::remove_all(folder);
        }
    }

    /// The program of the test above; does nothing in any other run.
    void typesUntilItIsEnded() {
        if (qEnvironmentVariableIsEmpty(kTypes))
            return;
        RunningProgram running(0, 1, 1);
        const Endings endings([&] { running.window->Leave(); });
        running.Box("TextA1(1)")->clear();
        QTest::keyClicks(running.Box("TextA1(1)"), "just typed");
        std::printf("%s\n", running.test.folder.Path().c_str());
        std::fflush(stdout);
        QTest::qWait(20'000);
    }
};

} // namespace

FORMS_TESTS(FormsTest)

#include "forms_test.moc"
