// Import through the window: the choice of a sheet, of its columns, and of the file.
#include "app/ui/frmImport.h"
#include "platform/qt/QtUserInterface.h"
#include "tests/forms/DialogAnswer.h"
#include "tests/forms/RunningProgram.h"
#include "workspace/OpenDocument.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

#include <optional>

namespace {

using namespace velmora;

using Rows = std::vector<std::vector<std::string>>;

class ImportFormsTest : public QObject {
    Q_OBJECT

    static std::filesystem::path Book(RunningProgram& running, const Rows& rows) {
        std::string bytes;
        std::size_t next = 0;
        const auto source = [&](std::vector<std::string>& row) {
            if (next == rows.size())
                return false;
            row = rows[next++];
            return true;
        };
        running.test.workbooks.Write(WorkbookFormat::Xls, "Tabs", source, [&](auto piece) { bytes += piece; });
        ReplaceFile(running.test.folder / "book.xls", bytes);
        return running.test.folder / "book.xls";
    }
    static std::filesystem::path Three() {
        return std::filesystem::path(VELMORA_TEST_DATA) / "workbooks" / "three.xls";
    }
    static void Announce(RunningProgram& running, const std::filesystem::path& path) {
        running.test.ui.Expect("The file: [" + path.string() +
                                   "] is not an Velmora version 7 or version 8 file.\r\n\r\n"
                                   "Velmora will attempt to import it!",
                               Icon::Information);
    }
    /// Opens the file by a command, and answers the choice of its columns.
    static void Import(RunningProgram& running, const std::string& title, const std::filesystem::path& path,
                       const std::function<void(QDialog&)>& choose) {
        running.test.ui.ExpectChooser(title, path);
        Announce(running, path);
        const DialogAnswer answer("frmImport", choose);
        running.Trigger(("mnu" + title).c_str());
    }
    static QStringList Shown(QDialog& dialog, int row) {
        const auto& table = Get<QTableWidget>(dialog, "tblPreview");
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts << (table.item(row, column) ? table.item(row, column)->text() : "");
        return texts;
    }
    static QStringList Titles(QDialog& dialog) {
        const auto& table = Get<QTableWidget>(dialog, "tblPreview");
        QStringList titles;
        for (int column = 0; column < table.columnCount(); ++column)
            titles << table.horizontalHeaderItem(column)->text();
        return titles;
    }

private slots:
    void init() { FailOnWarnings(); }

    void theOnlySheetAndItsDefaultsAreOneEnter() {
        RunningProgram running;
        running.Start();
        const auto path = Book(running, {{"Smith", "2024"}, {"Jones"}});
        Import(running, "Import", path, [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QVERIFY(!running.window->isWindowModified());
        Import(running, "Import", path, [](QDialog& dialog) {
            QCOMPARE(Shown(dialog, 0), (QStringList{"Smith", "2024", ""}));
            QCOMPARE(Titles(dialog), (QStringList{"A\nField A", "B\nField B", "C\nField C"}));
            QVERIFY(!dialog.findChild<QComboBox*>("cboDelimiter"));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        });
        QCOMPARE(running.Box("TextA1(2)")->text(), QString("Jones"));
        QCOMPARE(Get<QLabel>(*running.window, "lblDone").text(), QString("2 tabs imported"));
        QVERIFY(running.window->windowTitle().contains("book.xls"));
        QVERIFY(running.window->isWindowModified());
    }

    void whatCameInIsSaidOfListsAloneAndBehindThePrintersMargins() {
        RunningProgram running;
        running.Start();
        const auto open = [&](const char* name, const std::string& bytes) {
            ReplaceFile(running.test.folder / name, bytes);
            OpenPath(running.program.main, running.test.folder / name);
            return Get<QLabel>(*running.window, "lblDone").text();
        };
        QCOMPARE(open("own.csv", "Version 8\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\nx,,\r\n"), QString());
        RememberPrinterMargins(running.test.settings, running.program.main.globals.PrinterName,
                               running.program.main.document.setup, {"3.5", "3.5"});
        const DialogAnswer answer("frmImport", [](QDialog& dialog) { dialog.accept(); });
        Announce(running, running.test.folder / "list.txt");
        QVERIFY(open("list.txt", "x\r\ny\r\n").startsWith("Margins left 0"));
    }

    void aSheetIsChosenByAClickOrNot() {
        RunningProgram running;
        running.Start();
        running.program.main.document.FieldA(1) = "typed";
        for (const bool chosen : {false, true}) {
            running.test.ui.ExpectChooser("Import", Three());
            bool asked = false;
            running.test.ui.Expect("Please select the sheet to import", Icon::Question, Buttons::Ok, Answer::Ok,
                                   std::nullopt, [&asked] { asked = true; });
            if (chosen)
                Announce(running, Three());
            else
                running.test.ui.Expect("You have not selected a work sheet to import", Icon::Critical);
            const DialogAnswer select("frmSelectSheet", [&](QDialog& dialog) {
                auto& list = Get<QListWidget>(dialog, "lstSheets");
                QTRY_VERIFY(asked); // the prompt follows the activation
                if (chosen)
                    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(2)).center());
                else
                    Click(dialog, "cmsCancel");
            });
            std::optional<DialogAnswer> columns;
            if (chosen)
                columns.emplace("frmImport", [](QDialog& dialog) { dialog.accept(); });
            running.Trigger("mnuImport");
            QCOMPARE(running.program.main.document.FieldA(1), std::string(chosen ? "three" : "typed"));
        }
    }

    void columnsAndHeadingAreShownAsChosen() {
        RunningProgram running;
        running.Start();
        const auto path = Book(running, {{"Client", "Year", "", "File"}, {"Smith", "2024", "", "7"}});
        Import(running, "Import", path, [](QDialog& dialog) {
            QVERIFY(Get<QCheckBox>(dialog, "chkHeading").isChecked());
            for (const auto& [box, column] : {std::pair{"cboField1", 4}, {"cboField2", 4}, {"cboField3", 0}})
                Get<QComboBox>(dialog, box).setCurrentIndex(column);
            Click(dialog, "chkHeading");
            QCOMPARE(Titles(dialog), (QStringList{"A", "B", "C", "D\nField A, Field B"}));
            Click(dialog, "chkHeading");
            QVERIFY(!Get<QComboBox>(dialog, "cboBetween").isEnabled());
            Get<QComboBox>(dialog, "cboJoined1").setCurrentText("A - Client");
            Get<QComboBox>(dialog, "cboBetween").setCurrentText("Slash");
            QCOMPARE(Get<QLabel>(dialog, "lblFirstTab").text(), QString("The first tab: 7/Smith | 7"));
            QCOMPARE(Titles(dialog).first() + Titles(dialog).last(),
                     QString("A - Client\n+ Field AD - File\nField A, Field B"));
            QCOMPARE(Shown(dialog, 0), (QStringList{"Smith", "2024", "", "7"}));
            QCOMPARE(Get<QComboBox>(dialog, "cboField1").currentText(), QString("D - File"));
            Get<QPushButton>(dialog, "cmdCancel").setFocus();
            Get<QComboBox>(dialog, "cboField1").setFocus();
            QVERIFY(Get<QPushButton>(dialog, "cmdImport").isDefault());
            Click(dialog, "cmdImport");
        });
        const TabDocument& document = running.program.main.document;
        QCOMPARE(document.FieldA(1) + document.FieldB(1) + document.FieldC(1), std::string("7/Smith7"));
        QCOMPARE(document.FieldA(2), std::string());
    }

    void hiddenRowsAreLeftOutWhereThereAreSome() {
        RunningProgram running;
        running.Start();
        ImportRequest request{"S", {}, [](const ImportChoice& choice) {
                                  return choice.cells.visibleOnly ? Rows{{"a"}} : Rows{{"a"}, {std::string(999, 'x')}};
                              }};
        QVERIFY(!frmImport(running.program.main, request, {}, nullptr).findChild<QCheckBox*>("chkHidden"));
        request.hiddenRows = 7;
        frmImport form(running.program.main, request, {}, nullptr);
        QCOMPARE(Get<QCheckBox>(form, "chkHidden").text(), QString("Lea&ve out hidden rows (7)"));
        QVERIFY(!form.Choice().cells.visibleOnly);
        QCOMPARE(Shown(form, 1).at(0).size(), 300);
        Click(form, "chkHidden");
        QVERIFY(form.Choice().cells.visibleOnly);
        QCOMPARE(Get<QTableWidget>(form, "tblPreview").rowCount(), 1);
    }

    void aListFollowsItsSeparatorAndEncoding() {
        RunningProgram running;
        running.Start();
        const auto path = running.test.folder / "list.csv";
        ReplaceFile(path, "\xC3\xA9,1;b\r\n");
        Import(running, "Open", path, [](QDialog& dialog) {
            QCOMPARE(Shown(dialog, 0), (QStringList{"\u00e9", "1;b", ""}));
            Get<QComboBox>(dialog, "cboDelimiter").setCurrentText("Semicolon");
            QCOMPARE(Shown(dialog, 0), (QStringList{"\u00e9,1", "b", ""}));
            Get<QComboBox>(dialog, "cboEncoding").setCurrentText("Windows-1252");
            QCOMPARE(Shown(dialog, 0), (QStringList{"\u00c3\u00a9,1", "b", ""}));
            dialog.accept();
        });
        QCOMPARE(running.Box("TextA1(1)")->text(), QString("\u00c3\u00a9,1"));
    }

    void theChooserOffersEveryFormat() {
        const TemporaryFolder folder;
        FileRequest request{"OPEN", "Import", folder.Path(), "Text (*.csv)|*.csv|Excel file (*.xls)|*.xls", "Tabs.csv"};
        request.moreFilters = "Workbook (*.xlsx)|*.xlsx";
        request.chosenFilter = 1;
        for (const char* proposed : {"", "Tabs.csv"}) {
            const DialogAnswer open("", [proposed](QDialog& dialog) {
                auto& chooser = dynamic_cast<QFileDialog&>(dialog);
                QCOMPARE(chooser.nameFilters(),
                         (QStringList{"Text (*.csv)", "Excel file (*.xls)", "Workbook (*.xlsx)"}));
                QCOMPARE(chooser.selectedNameFilter(), QString("Excel file (*.xls)"));
                QCOMPARE(Get<QLineEdit>(chooser, "fileNameEdit").text(), QString(proposed));
                chooser.reject();
            });
            QVERIFY(!QtUserInterface().ChooseFile(request));
            ReplaceFile(folder / request.defaultName, "");
        }
        request.operation = "SAVE";
        request.chosenFilter = 0;
        const DialogAnswer save("", [](QDialog& dialog) {
            QCOMPARE(dynamic_cast<QFileDialog&>(dialog).defaultSuffix(), QString("csv"));
            QTest::keyClick(&Get<QComboBox>(dialog, "fileTypeCombo"), Qt::Key_End);
            Get<QLineEdit>(dialog, "fileNameEdit").setText("velmora-no-such-file");
            dialog.accept();
        });
        const auto chosen = QtUserInterface().ChooseFile(request);
        QCOMPARE(QString::fromStdString(chosen.value_or("").filename().string()), QString("velmora-no-such-file.xlsx"));
    }
};

} // namespace

FORMS_TESTS(ImportFormsTest)

#include "import_forms_test.moc"
