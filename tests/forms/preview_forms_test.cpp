// The preview: moving through its sheets, what it prints, used slots, and the way from a finding to its box.
#include "platform/qt/QtUserInterface.h"
#include "print/ui/frmPreview.h"
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/RunningProgram.h"
#include "tests/support/FakePrinters.h"
#include "tests/support/FewFonts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace {

using namespace velmora;

class Preview {
public:
    explicit Preview(frmPreview& window) : form(window), display(*form.findChild<SheetDisplay*>("SheetDisplay")) {}

    template <typename Control> Control& Get(const char* name) { return *form.findChild<Control*>(name); }
    void Click(const char* name) { Get<QAbstractButton>(name).click(); }
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void Type(const char* name, const QString& text) {
        QLineEdit& box = Get<QLineEdit>(name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }
    /// Tabs of the sheet shown as "tab@slot".
    QString Tabs(std::size_t count) {
        QStringList tabs;
        for (std::size_t i = 0; i < count; ++i)
            tabs << QString("%1@%2").arg(display.Shown().texts.at(i).tab).arg(display.Shown().texts.at(i).slot);
        return tabs.join(' ');
    }

    frmPreview& form;
    SheetDisplay& display;
};

class PreviewFormsTest : public QObject {
    Q_OBJECT

    FakePrinters printers_;

    /// Opens the preview, acts in it, and closes it where that has not been done.
    template <typename Act> void InPreview(RunningProgram& running, Act act, const char* command = "mnuPreview") {
        const DialogAnswer answer("frmPreview", [&](QDialog& form) {
            QTRY_VERIFY(form.isAncestorOf(QApplication::focusWidget()));
            Preview preview(dynamic_cast<frmPreview&>(form));
            act(preview);
            form.reject();
        });
        running.Trigger(command);
    }
    void Start(RunningProgram& running, int type, int pages) {
        running.Start(type, 1, pages);
        running.program.main.globals.PrinterName = "Office";
    }
private slots:
    void init() {
        FailOnWarnings();
        printers_ = {};
    }

    void sheetsAreReachedByKeysAndNumber() {
        RunningProgram running(&printers_);
        Start(running, 0, 4);
        InPreview(running, [&](Preview& preview) {
            const std::tuple<int, int> keys[] = {{Qt::Key_PageDown, 2}, {Qt::Key_PageDown, 3}, {Qt::Key_PageUp, 2},
                                                 {Qt::Key_End, 4},      {Qt::Key_PageDown, 4}, {Qt::Key_Home, 1},
                                                 {Qt::Key_PageUp, 1}};
            for (const auto& [key, sheet] : keys) {
                preview.Key(key);
                QCOMPARE(preview.display.Shown().texts.at(0).tab, (sheet - 1) * 24 + 1);
                QCOMPARE(preview.Get<QSpinBox>("txtPage").value(), sheet);
            }
            QSpinBox& page = preview.Get<QSpinBox>("txtPage");
            page.setFocus();
            page.selectAll();
            QTest::keyClicks(&page, "3\r");
            QCOMPARE(preview.display.Shown().texts.at(0).tab, 49);
            QVERIFY(preview.form.isVisible());
        });
        QVERIFY2(printers_.jobs.empty(), "Enter in the page box only moves");
        InPreview(running, [](Preview& preview) { preview.Key(Qt::Key_Escape); });
        running.Trigger("mnuNextPage");
        InPreview(
            running,
            [](Preview& preview) {
                QCOMPARE(preview.Tabs(1), QString("25@1"));
                QCOMPARE(preview.Get<QSpinBox>("txtPage").maximum(), 1);
            },
            "mnuPrintPage");
    }

    void zoomKeepsWithinItsBounds() {
        RunningProgram running(&printers_);
        Start(running, 0, 1);
        InPreview(running, [&](Preview& preview) {
            const std::tuple<int, int, double> keys[] = {
                {Qt::Key_Plus, 30, 400}, {Qt::Key_Minus, 30, 25}, {Qt::Key_0, 1, 100}, {Qt::Key_Plus, 1, 125}};
            for (const auto& [key, times, percent] : keys) {
                for (int i = 0; i < times; ++i)
                    preview.Key(key, Qt::ControlModifier);
                QVERIFY(std::abs(preview.display.Percent() - percent) < 0.01);
            }
            QWidget* viewport = preview.display.viewport();
            const QPointF at(200, 150);
            const QPointF before = (at - preview.display.SlotRect(1).topLeft()) / preview.display.Percent();
            QWheelEvent turn(at, viewport->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::ControlModifier,
                             Qt::NoScrollPhase, false);
            QApplication::sendEvent(viewport, &turn);
            QVERIFY(std::abs(preview.display.Percent() - 150) < 0.01);
            const QPointF after = (at - preview.display.SlotRect(1).topLeft()) / preview.display.Percent();
            QVERIFY2((after - before).manhattanLength() < 0.02, "the place under the pointer stays");
            preview.Get<QComboBox>("cboZoom").setCurrentIndex(0);
            const QRectF last = preview.display.SlotRect(24);
            QVERIFY(viewport->rect().contains(last.toAlignedRect()));
        });
    }

    void theChoiceDecidesWhatIsPrinted() {
        RunningProgram running(&printers_);
        Start(running, 0, 4);
        for (std::int32_t tab = 25; tab <= 48; ++tab)
            running.program.main.document.FieldA(tab).clear();
        const std::tuple<const char*, const char*, int> rows[] = {
            {"optAll", "", 4}, {"optShown", "", 1}, {"optFilled", "", 3}, {"", "4,1-2", 3}};
        InPreview(running, [&](Preview& preview) {
            QVERIFY2(preview.Get<QRadioButton>("optFilled").isChecked(), "a sheet is empty");
            preview.Key(Qt::Key_PageDown);
            for (const auto& [option, range, sheets] : rows) {
                if (*range)
                    preview.Type("txtRange", range);
                else
                    preview.Click(option);
                preview.Key(Qt::Key_Return);
                QCOMPARE(printers_.target, std::string("Office"));
                QVERIFY2(printers_.bytes.find("/Count " + std::to_string(sheets)) != std::string::npos, option);
                QVERIFY(preview.Get<QLabel>("lblPrinted").text().startsWith(QString::number(sheets)));
            }
            auto* print = &preview.Get<QPushButton>("cmdPrint");
            print->setFocus();
            preview.Click("cmdPrint");
            QVERIFY(print->accessibleDescription().contains("3 sheets"));
            preview.Type("txtRange", "4,1-2");
            QCOMPARE(print->accessibleDescription(), QString());
            running.test.ui.ExpectChooser("Save as PDF", running.test.folder / "out.pdf");
            preview.Click("cmdSavePdf");
            QVERIFY(ReadFile(running.test.folder / "out.pdf").find("/Count 3") != std::string::npos);
            printers_.printing = PrinterError("Too large");
            running.test.ui.Expect("Too large\r\nCalled from Function: PrintReport", Icon::Critical);
            preview.Click("cmdPrint");
        });
        QCOMPARE(printers_.jobs.size(), 6u);
    }

    void copiesAndTrayGoWithTheJob() {
        RunningProgram running(&printers_);
        Start(running, 0, 1);
        printers_.sources = {{{"auto", "Auto"}, {"tray-2", "Tray 2"}}, {{"labels", "Labels"}}};
        InPreview(running, [&](Preview& preview) {
            QTRY_VERIFY(preview.form.findChild<QComboBox*>("cboTray"));
            QVERIFY2(!preview.form.findChild<QComboBox*>("cboKind"), "one kind alone is no choice");
            preview.Click("cmdPrint");
            preview.Get<QSpinBox>("txtCopies").setValue(1000);
            preview.Get<QComboBox>("cboTray").setCurrentText("Tray 2");
            preview.Click("cmdPrint");
        });
        QVERIFY(printers_.jobs.at(0).options.copies == 1 && printers_.jobs[0].options.tray.empty());
        QVERIFY(printers_.jobs.at(1).options.copies == 999 && printers_.jobs[1].options.tray == "tray-2");
    }

    void thePasswordIsGivenOrTheQuestionLeft() {
        for (const bool given : {true, false}) {
            const DialogAnswer answer("frmPassword", [&](QDialog& form) {
                QCOMPARE(form.findChild<QLineEdit*>("txtUser")->text(), QString("me"));
                QTRY_COMPARE(QApplication::focusWidget()->objectName(), QString("txtPassword"));
                QTest::keyClicks(QApplication::focusWidget(), "se cret");
                QTest::keyClick(QApplication::focusWidget(), given ? Qt::Key_Return : Qt::Key_Escape);
            });
            const auto credentials = QtUserInterface().AskForCredentials({"Office", "me", true});
            QCOMPARE(credentials.has_value(), given);
            QVERIFY(!given || (credentials->user == "me" && credentials->password == "se cret"));
        }
    }

    void aWrongRangeIsSaidWhileItIsTyped() {
        RunningProgram running(&printers_);
        Start(running, 0, 3);
        InPreview(running, [&](Preview& preview) {
            const std::tuple<const char*, const char*> rows[] = {{"1-", "\"1-\" is no list of sheets such as 1-3,7."},
                                                                 {"1-4", "Sheet 4 is asked for, the document has 3."},
                                                                 {"2,3", ""}};
            for (const auto& [typed, fault] : rows) {
                preview.Type("txtRange", typed);
                QCOMPARE(preview.Get<QLabel>("lblRange").text(), QString(fault));
                QCOMPARE(preview.Get<QLabel>("lblRange").isVisible(), *fault != 0);
                QCOMPARE(preview.Get<QPushButton>("cmdPrint").isEnabled(), *fault == 0);
            }
            preview.Type("txtRange", "9");
            preview.Key(Qt::Key_Return);
            QVERIFY(printers_.jobs.empty());
        });
    }

    void tabsFlowAroundLabelsThatAreGone() {
        RunningProgram running(&printers_);
        Start(running, 0, 1);
        InPreview(running, [&](Preview& preview) {
            const auto click = [&](int slot) {
                QTest::mouseClick(preview.display.viewport(), Qt::LeftButton, {},
                                  preview.display.SlotRect(slot).center().toPoint());
            };
            click(2);
            QCOMPARE(preview.Tabs(2), QString("1@1 2@2"));
            preview.Click("chkPartlyUsed");
            click(2);
            QCOMPARE(preview.Tabs(3), QString("1@1 2@3 3@4"));
            QCOMPARE(preview.Get<QSpinBox>("txtPage").maximum(), 2);
            const int keys[] = {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Space}; // from slot 2 to slot 5
            for (const int key : keys)
                preview.Key(key);
            QCOMPARE(preview.Tabs(4), QString("1@1 2@3 3@4 4@6"));
            preview.Key(Qt::Key_Space);
            QCOMPARE(preview.Tabs(4), QString("1@1 2@3 3@4 4@5"));
            preview.Key(Qt::Key_End);
            QCOMPARE(preview.Tabs(1), QString("24@1"));
            click(7); // of the second sheet
            QCOMPARE(preview.Tabs(1), QString("24@1"));
            preview.Click("cmdClearUsed");
            QCOMPARE(preview.Get<QSpinBox>("txtPage").maximum(), 1);
            for (int slot = 1; slot <= 24; ++slot)
                click(slot);
            QCOMPARE(preview.display.Shown().texts.size(), 1u); // the last label cannot be struck out
            preview.Click("chkPartlyUsed");
            QCOMPARE(preview.Tabs(2), QString("1@1 2@2"));
        });
    }

    void oneTabIsReprintedOnTheSheetInUse() {
        RunningProgram running(&printers_);
        Start(running, 0, 20);
        running.program.main.editor->ShowText({300, 0}, 0, 0);
        const auto at = [](Preview& preview, int slot) { return preview.display.SlotRect(slot).center().toPoint(); };
        const auto first = [&](Preview& preview) {
            QCOMPARE(preview.Get<QLineEdit>("txtTabs").text(), QString("300"));
            preview.Key(Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget()->objectName(), QString("optTabs")); // what is chosen
            QTest::mouseClick(preview.display.viewport(), Qt::LeftButton, Qt::ShiftModifier, at(preview, 11));
            QCOMPARE(preview.Get<QSpinBox>("txtFirstFree").value(), 12);
            preview.Click("chkGoesOn");
            QCOMPARE(preview.Tabs(1), QString("300@12"));
            running.test.ui.ExpectChooser("Save as PDF", running.test.folder / "out.pdf");
            preview.Click("cmdSavePdf");
            QCOMPARE(preview.Tabs(1), QString("300@12")); // a file takes no label
            preview.Click("cmdPrint");
            QCOMPARE(preview.Tabs(1), QString("300@13"));
            QVERIFY(preview.Get<QLabel>("lblPrinted").isVisible());
        };
        const auto second = [&](Preview& preview) {
            QCOMPARE(preview.Tabs(1), QString("300@13")); // the label behind
            QWidget& sheet = *preview.display.viewport();
            QTest::mouseClick(&sheet, Qt::LeftButton, {}, at(preview, 13));
            QMouseEvent move(QEvent::MouseMove, at(preview, 15), sheet.mapToGlobal(at(preview, 15)), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(&sheet, &move);
            preview.display.setFocus();
            preview.Key(Qt::Key_Right);
            QCOMPARE(preview.Tabs(1), QString("300@16"));
            preview.Key(Qt::Key_Space, Qt::ShiftModifier);
            QCOMPARE(preview.Tabs(1), QString("300@17"));
            preview.Get<QSpinBox>("txtFirstFree").setValue(20);
            QCOMPARE(preview.Tabs(1), QString("300@20"));
            QTest::keyClick(&preview.Get<QComboBox>("cboPlaces"), Qt::Key_Down);
            QCOMPARE(preview.Tabs(1), QString("300@12"));
            preview.Click("cmdPrint");
            QCOMPARE(running.test.Stored("Settings", "Used Labels - 0"), std::string("1-12")); // another sheet's
            preview.Type("txtTabs", "300,481");
            QCOMPARE(preview.Get<QLabel>("lblRange").text(), QString("Tab 481 is asked for, the document has 480."));
            preview.Click("optAll");
            QCOMPARE(preview.Get<QSpinBox>("txtPage").maximum(), 21); // around the labels that are gone
            preview.Click("chkGoesOn");
            preview.Click("cmdPrint");
        };
        InPreview(running, first, "mnuPrintTabs");
        InPreview(running, second, "mnuPrintTabs");
        InPreview(running, [](Preview& preview) { QVERIFY(!preview.Get<QCheckBox>("chkPartlyUsed").isChecked()); });
    }

    void theCursorStaysOnTheSheet() {
        RunningProgram running(&printers_);
        Start(running, 0, 1); // 8 rows of 3
        InPreview(running, [&](Preview& preview) {
            preview.Click("chkPartlyUsed");
            preview.display.setFocus();
            const std::tuple<int, int, int> moves[] = {
                {Qt::Key_Left, 1, 1},  {Qt::Key_Up, 1, 1},    {Qt::Key_Right, 3, 4}, {Qt::Key_Up, 1, 1},
                {Qt::Key_Right, 2, 3}, {Qt::Key_Up, 1, 3},    {Qt::Key_Down, 9, 24}, {Qt::Key_Right, 1, 24},
                {Qt::Key_Left, 2, 22}, {Qt::Key_Down, 1, 22}, {Qt::Key_Left, 1, 21}, {Qt::Key_Down, 1, 24}};
            for (const auto& [key, times, slot] : moves) {
                for (int i = 0; i < times; ++i)
                    preview.Key(key);
                QCOMPARE(preview.display.Cursor(), slot);
            }
            preview.Key(Qt::Key_Space);
            QCOMPARE(preview.display.Shown().texts.back().slot, 23);
        });
    }

    void aFindingLeadsToItsTabAndItsBox() {
        RunningProgram running(&printers_);
        Start(running, 0, 3);
        running.program.main.document.FieldA(30) = std::string(60, 'W');
        printers_.paperWidth = 100;
        InPreview(running, [&](Preview& preview) {
            QListView& list = preview.Get<QListView>("lstFindings");
            QTRY_COMPARE(list.model()->rowCount(), 2);
            QTRY_VERIFY(!preview.Get<QLabel>("lblChecking").isVisible());
            list.setCurrentIndex(list.model()->index(0, 0));
            QVERIFY(!preview.Get<QPushButton>("cmdEditTab").isEnabled());
            preview.Click("chkPartlyUsed");
            preview.Key(Qt::Key_Space);
            QTRY_COMPARE(list.model()->rowCount(), 2);
            list.setCurrentIndex(list.model()->index(1, 0));
            QCOMPARE(preview.Get<QSpinBox>("txtPage").value(), 2);
            QCOMPARE(preview.display.MarkedSlot(), 7);
            const QString line = QString(60, 'W') + ": will be cut off\nTab 30, Field A";
            QCOMPARE(list.currentIndex().data(Qt::ToolTipRole).toString(), line);
            QCOMPARE(preview.Get<QLabel>("lblFinding").text().remove(QChar(0x200b)), line);
            QVERIFY(preview.Get<QLabel>("lblFinding").minimumSizeHint().width() < list.width());
            list.setFocus();
            preview.Key(Qt::Key_Return);
            QVERIFY(!preview.form.isVisible());
        });
        QCOMPARE(running.Panel(4), QString("Pg No: 2 of 3"));
        QCOMPARE(running.Box("TextA1(6)")->selectedText(), QString(60, 'W'));
        QVERIFY(printers_.jobs.empty());

        printers_.paperWidth = 0;
        running.program.main.document.FieldA(30) = "short";
        running.program.main.editor->BringUp();
        InPreview(running, [](Preview& preview) {
            preview.display.viewport()->repaint();
            QCoreApplication::sendPostedEvents(); // the check begins behind the first paint
            QCoreApplication::processEvents();
            QTRY_VERIFY(!preview.Get<QWidget>("fraFindings").isVisible());
        });
    }

    void withoutFontsTheSheetSaysSo() {
        const FewFonts fonts;
        SheetDisplay display(fonts, {}, nullptr);
        display.resize(400, 400);
        const auto darkest = [&] {
            const QImage image = display.viewport()->grab({150, 150, 100, 100}).toImage();
            int least = 255;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    least = std::min(least, qGray(image.pixel(x, y)));
            return least;
        };
        display.SetSheet({{210, 297, false}, {}, {}, {}});
        QCOMPARE(darkest(), 255);
        display.SetSheet({{210, 297, false}, {{"text", {0, 0, 11000, 16000}}}, {}, {}});
        QVERIFY(darkest() < 128);
    }
};

} // namespace

FORMS_TESTS(PreviewFormsTest)

#include "preview_forms_test.moc"
