// Opening and importing what is no tab file, and saving as a workbook: every question and message over real files.
#include "app/Commands.h"
#include "tests/support/ProgramTest.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/StoredZip.h"
#include "workspace/Globals.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/SaveDocument.h"
#include "workspace/Undo.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
using Rows = std::vector<std::vector<std::string>>;

/// Reads well until the reading of the given number, which ends in the middle; 0: always.
struct FaultyWorkbooks : LibraryWorkbooks {
    struct Faulty : Workbook {
        Faulty(std::unique_ptr<Workbook> book, int& failing) : whole(std::move(book)), failingRead(failing) {}
        const std::vector<std::string>& SheetNames() const override { return whole->SheetNames(); }
        void ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) override {
            whole->ReadSheet(name, columns, sink);
            if (--failingRead == 0)
                throw WorkbookError("the workbook is damaged");
        }
        std::unique_ptr<Workbook> whole;
        int& failingRead;
    };
    bool installed = true;
    int failingRead = 0;
    int written = 0; ///< rows
    bool CanRead(WorkbookFormat) const override { return installed; }
    std::unique_ptr<Workbook> Open(const fs::path& path, const ReadingWatch& watch) override {
        return std::make_unique<Faulty>(LibraryWorkbooks::Open(path, watch), failingRead);
    }
    void Write(WorkbookFormat format, const std::string& name, const SheetRowSource& rows,
               const std::function<void(std::string_view)>& sink) override {
        const auto counted = [&](std::vector<std::string>& row) { return rows(row) && ++written > 0; };
        LibraryWorkbooks::Write(format, name, counted, sink);
    }
};

struct ImportTest : ProgramTest {
    FaultyWorkbooks workbooks;
    ScriptedDialogs dialogs;
    MainModule main{program.settings, program.ui, program.printers, workbooks};
    TabDocument& document = main.document;

    ImportTest() {
        main.history.KeepSteps();
        main.dialogs.Take(dialogs);
        LoadGlobals(main);
        NewDocument(main);
        document.FieldA(1) = "typed";
    }
    fs::path Path(const std::string& name) { return program.folder / name; }
    fs::path Data(const char* name) { return Put(name, ReadFile(fs::path(VELMORA_TEST_DATA) / "workbooks" / name)); }
    void Announce(const fs::path& path) {
        Tell("The file: [" + path.string() +
             "] is not an Velmora version 7 or version 8 file.\r\n\r\nVelmora will attempt to import it!");
    }
    void TellFailure(const std::string& cause) {
        if (!cause.empty())
            Tell(cause, Icon::Critical);
        Tell("Could not finish process");
        Tell("The file could not be opened successfully");
    }
    void AskToReplace(const fs::path& path, const std::string& lost, Answer answer = Answer::No) {
        Ask("The following file is another program's, and a save does not keep all that it may hold.\r\n[" +
                path.string() + "]\r\n" + lost +
                "\r\nDo you want to overwrite it?\r\nNo saves the document as a new file.",
            answer, Answer::No);
    }
    /// The file will be chosen, the document being untitled, so that nobody is asked about it.
    void Choose(const fs::path& path) {
        document.DocFileName.clear();
        program.ui.ExpectChooser("Open", path);
    }
    void ChooseForeign(const fs::path& path) {
        Choose(path);
        Announce(path);
    }
    OpenOutcome OpenForeign(const fs::path& path) {
        ChooseForeign(path);
        return OpenCommand(main);
    }
    std::string Tab(int tab) { return document.FieldA(tab) + "|" + document.FieldB(tab) + "|" + document.FieldC(tab); }
    Rows ReadBack(const fs::path& path) {
        Rows rows;
        const auto book = LibraryWorkbooks().Open(path, {});
        book->ReadSheet(book->SheetNames().at(0), {1, 2, 3},
                        [&](const SheetRow& row) { return rows.push_back(row.texts), true; });
        return rows;
    }
};

TEST_F(ImportTest, AWorksheetBecomesTheDocument) {
    const fs::path path = Data("three.xls");
    dialogs.sheet = "Third";
    program.ui.ExpectChooser("Import", path, "OPEN|Velmora/csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls|Tabs.csv|5");
    Announce(path);
    EXPECT_EQ(OpenCommand(main, OpenKind::Import), OpenOutcome::Opened);
    EXPECT_EQ(dialogs.names, (std::vector<std::string>{"Erste", "Zweite é", "Third"}));
    EXPECT_EQ(dialogs.shown, (Rows{{"three"}}));
    EXPECT_EQ(Tab(1), "three||");
    EXPECT_EQ(document.DocFileName, path);
    EXPECT_TRUE(document.DocChanged && !main.history.CanUndo()) << "closing asks: the file does not hold this document";
    EXPECT_EQ(program.ui.progressTexts.front(), "Opening Excel file.  Please standby...");
    EXPECT_EQ(program.ui.progressTexts.back(), "Importing Microsoft Excel Worksheet.  Please standby ...");
}

TEST_F(ImportTest, AHeaderAsksForNoColumns) {
    for (const char* file : {"header.xls", "header.xlsx", "header.ods"}) {
        dialogs.sheet = "Tabs";
        Choose(Data(file));
        workbooks.written = 0;
        EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened) << file;
        EXPECT_TRUE(workbooks.written == 0 || file == std::string("header.xls")) << "others are told at once";
        EXPECT_EQ(Tab(1) + document.setup.StationeryType, "Smith|2024|DL_v");
        EXPECT_TRUE(document.setup.OptType == 4 && document.TabCount == 21) << "one page of 3 x 7";
        EXPECT_EQ(program.Stored("Settings", "Margin Value Top"), "-2") << file;
        EXPECT_EQ(main.fonts[0], (FieldFont{"ARIAL", 12, true, false, false, 0, 1}));
    }
    EXPECT_EQ(dialogs.asked, 0);
}

TEST_F(ImportTest, WhatFailsOrIsCancelledChangesNothing) {
    const std::string failed = "The file could not be opened successfully";
    const auto cause = [](const std::string& text) { return text + "\r\nCalled form Function:OpenNewFile"; };
    struct Case {
        const char* file;
        std::function<void()> prepare;
        std::vector<std::pair<std::string, Icon>> told; ///< without an icon: the announcement
    };
    const Case cases[] = {
        {"three.xls",
         [&] { dialogs.sheet.clear(); },
         {{"You have not selected a work sheet to import", Icon::Critical}}},
        {"three.ods", [&] { dialogs.change = [](ImportChoice&) { return false; }; }, {{"", Icon::None}}},
        {"three.xlsx",
         [&] { workbooks.installed = false; },
         {{"You have to have Microsoft Excel 2000 (or latter) installed on your PC if you want to open or import an "
           "Excel file!",
           Icon::Critical},
          {failed, Icon::Information}}},
        {"cells.xls",
         [&] { Put("cells.xls", "a,b\r\n"); },
         {{cause("the file is no workbook but a text: give it a name that ends in .csv or .txt"), Icon::Critical},
          {"Could not finish process", Icon::Information},
          {failed, Icon::Information}}},
        {"cells95.xls",
         [&] { workbooks.failingRead = 1; },
         {{cause("the workbook is damaged"), Icon::Critical},
          {"Could not finish the process", Icon::Information},
          {failed, Icon::Information}}},
        {"three.xlsx",
         [&] {
             int row = 0;
             const auto rows = [&](std::vector<std::string>& texts) { return texts = {"x"}, ++row <= 100000; };
             std::string bytes;
             workbooks.Write(WorkbookFormat::Xlsx, "Third", rows, [&](std::string_view piece) { bytes += piece; });
             Put("three.xlsx", bytes);
         },
         {{"", Icon::None},
          {"The maximum number of pages for this type on label is:1365", Icon::Information},
          {"Could not finish process", Icon::Information},
          {failed, Icon::Information}}},
        {"cells.ods", [&] { program.ui.cancelAfter = 1; }, {}},
        {"cells.xlsx", [&] { program.ui.cancelAfter = 4; }, {}},
        {"cells.xls", [&] { program.ui.cancelAfter = 2; }, {}}};
    Write(program.settings, kNoOfFields, "2");
    const std::string settings = ReadFile(program.settings.IniFile);
    for (const auto& [file, prepare, told] : cases) {
        SCOPED_TRACE(file);
        const fs::path path = Data(file);
        dialogs.sheet = file[0] == 't' ? "Third" : "Cells";
        dialogs.change = nullptr;
        workbooks.installed = true;
        workbooks.failingRead = 0;
        program.ui.cancelAfter = -1;
        prepare();
        Choose(path);
        for (const auto& [text, icon] : told)
            icon == Icon::None ? Announce(path) : Tell(text, icon);
        EXPECT_NE(OpenCommand(main), OpenOutcome::Opened);
        EXPECT_EQ(Tab(1), "typed||");
        EXPECT_TRUE(document.TabCount == 24 && document.DocFileName.empty());
        EXPECT_EQ(ReadFile(program.settings.IniFile), settings);
    }
}

TEST_F(ImportTest, ListsAreTakenApartAsTheirProgramsWroteThem) {
    const struct {
        const char* what;
        std::string bytes;
        std::string first;
    } cases[] = {{"a plain list, as a tab file's reader takes it", " a ,b,c,d\r\n\r\n", " a |b|c"},
                 {"semicolons", "a,1;b;c\r\nd;e;f\r\n", "a,1|b|c"},
                 {"quotes", "\"a, \"\"b\"\"\",c\r\n", "a, \"b\"|c|"},
                 {"Windows-1252", "M\xFCller\tx\r\n", "Müller|x|"},
                 {"UTF-16", std::string("\xFF\xFE\xE9\0\t\0b\0\r\0\n\0", 12), "é|b|"},
                 {"a heading that is no header", "Version,Year,Name\r\n7,8\r\n", "7|8|"}};
    const std::string printer = program.Stored("Settings", "Printer");
    for (const auto& [what, bytes, first] : cases) {
        EXPECT_EQ(OpenForeign(Put("list.txt", bytes)), OpenOutcome::Opened) << what;
        EXPECT_EQ(Tab(1), first) << what;
        EXPECT_TRUE(document.DocChanged && document.Foreign) << what;
        EXPECT_EQ(program.Stored("Settings", "Printer"), printer) << what;
        EXPECT_EQ(document.FileEncoding == Encoding::Windows1252, bytes[0] == 'M') << what;
    }
    EXPECT_EQ(dialogs.asked, 6);
    for (const char* list : {"a;b\r\n", "a,b, ,d\r\n"}) {
        program.Store("Settings", "No Of Fields", "1");
        LoadGlobals(main);
        EXPECT_EQ(OpenForeign(Put("list.csv", list)), OpenOutcome::Opened);
        EXPECT_EQ(document.setup.NoOfFields, 2) << "no imported column stays hidden: " << list;
    }
    EXPECT_EQ(document.setup.Limits.MaxLenField2, 20);
}

/// What a spreadsheet makes of a tab file.
TEST_F(ImportTest, ATabFileThatASpreadsheetSavedIsTakenApart) {
    const auto header = [](char separator, const std::string& fill) {
        std::string text;
        for (const char c : std::string("Version 8\nVELMORA PDF,DL_v,4,2\n0,-2\nArial,12,True,False,False,0,1\n"
                                        "Arial,10,False,False,False,0,1\nArial,10,False,False,False,1,1\n"))
            text += c == '\n' ? fill + "\r\n" : std::string(1, c == ',' ? separator : c);
        return text;
    };
    const std::string quoted = "\"Smith, John\",2024\r\n";
    const std::pair<const char*, std::string> cases[] = {
        {"semicolons, filled up", header(';', ";;;") + "Smith, John;2024;;;;;\r\na,b;c,d;e,f;;;;\r\n"},
        {"tabs, not filled up", header('\t', "") + "Smith, John\t2024\r\n"},
        {"quotes", "\"Version 8\"" + header(',', "").substr(9) + quoted},
        {"commas, filled up", header(',', ",,,") + quoted},
        {"a blank before", " " + header(',', "") + quoted}};
    for (const auto& [what, bytes] : cases) {
        SCOPED_TRACE(what);
        Choose(Put("list.csv", bytes));
        EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened);
        EXPECT_EQ(Tab(1), "Smith, John|2024|");
        EXPECT_EQ(main.globals.PrinterName, "Velmora PDF") << "printers are known by any letter case";
        EXPECT_EQ(program.Stored("Settings", "Margin Value Top"), "-2");
        EXPECT_TRUE(document.Foreign && document.DocChanged && document.setup.OptType == 4);
    }
    EXPECT_EQ(dialogs.asked, 0);
    Choose(Put("list.csv", "Version 8;;\r\nP;A4;0\r\n"));
    TellFailure("line 3: the header ends here; it has 6 lines\r\nCalled form Sub:LoadData");
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Failed);
}

/// The program's own are those of version 7 and 8.
TEST_F(ImportTest, AnotherVersionStaysForeign) {
    const std::string rest = "\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\nx\r\n";
    Choose(Put("mark.csv", "\xEF\xBB\xBFVersion 8" + rest + std::string(32725, 'x') + "ë,,\r\n"));
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened);
    EXPECT_FALSE(document.Foreign || document.DocChanged);
    for (const char* version : {"Version 9", "version10", "Version 80"}) {
        EXPECT_EQ(OpenForeign(Put("later.csv", version + rest)), OpenOutcome::Opened);
        EXPECT_EQ(Tab(1), "x||");
        EXPECT_TRUE(document.DocChanged);
        AskToReplace(Path("later.csv"), "What a later version wrote would be lost.");
        program.ui.ExpectChooser("Save as", std::nullopt, "SAVE|Velmora file(*.csv)|*.csv|later tabs.csv");
        EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Cancelled) << version;
        EXPECT_EQ(program.ui.folder, program.folder.Path());
        EXPECT_TRUE(ReadFile(Path("later.csv")).starts_with(version));
    }
}

TEST_F(ImportTest, FilesThatAreNoListsAskForNoColumns) {
    ChooseForeign(Put("empty.csv", ""));
    Tell("There are no information to import.");
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened);
    ChooseForeign(Put("picture.csv", std::string("GIF\0\1", 5)));
    TellFailure("line 1: holds bytes that are no text\r\nCalled form Sub:LoadData");
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Failed);
    EXPECT_EQ(dialogs.asked, 0);
}

TEST_F(ImportTest, ListsOfAnySizeCostWhatADocumentHolds) {
    const fs::path path = Put("list.txt", "a;" + std::string(100'000, ';') + "\r\nb;c" + std::string(100'000, '\n'));
    EXPECT_EQ(OpenForeign(path), OpenOutcome::Opened);
    EXPECT_EQ(dialogs.shown.at(0).size(), 256u) << "no form shows a hundred thousand";
    EXPECT_EQ(Tab(2), "b|c|");
    EXPECT_EQ(document.TabCount, 24) << "blank lines behind the last tab are none";
    fs::resize_file(path, (40u << 20) + 1);
    Choose(path);
    TellFailure("the list is larger than 40 MB\r\nCalled form Function:OpenNewFile");
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Failed);

    const std::string text(41U << 20, 'x'); // what a cell may hold, many times over, is not too large for a tab file
    ReplaceFile(path, "Version 8\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\n" + text + ",,\r\n");
    EXPECT_EQ(OpenPath(main, path), OpenOutcome::Opened);
    EXPECT_TRUE(document.FieldA(1) == text);
}

TEST_F(ImportTest, AWorkbookIsSavedWithoutHeaderAndKeepsItsName) {
    document.FieldB(1) = "a, 007"; // kept, so that nobody is warned of commas
    document.FieldC(3) = "=1+1";
    const std::pair<const char*, const char*> cases[] = {
        {"a.xls", "SAVE|Velmora file(*.csv)|*.csv|Tabs.csv"},
        {"a.XLSX", "SAVE|csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls|Tabs.csv"}};
    for (const auto& [name, request] : cases) {
        program.ui.ExpectChooser("Save as", Path(name), request);
        EXPECT_EQ(SaveLabels(main, SaveKind::SaveAs), SaveOutcome::Saved);
        EXPECT_EQ(program.ui.progressTexts.back(), "Exporting file.  Please standby...");
        EXPECT_EQ(document.DocFileName, Path(name));
        EXPECT_EQ(ReadBack(Path(name)), (Rows{{"typed", "a, 007", ""}, {"", "", "=1+1"}})) << name;
        Tell("File saved successfully");
        EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Saved) << name << " is the program's own";
        dialogs.sheet = "Tabs";
        EXPECT_EQ(OpenForeign(Path(name)), OpenOutcome::Opened);
        EXPECT_FALSE(document.Foreign || document.DocChanged) << name << " is so also when it was closed";
    }
    program.ui.ExpectChooser("Export", Path("copy.xls"), "SAVE|Velmora file(*.csv)|*.csv|a.csv");
    EXPECT_EQ(SaveLabels(main, SaveKind::Export), SaveOutcome::Saved);
    EXPECT_EQ(document.DocFileName, Path("a.XLSX"));
    EXPECT_EQ(ReadBack(Path("copy.xls")).size(), 2u);
}

TEST_F(ImportTest, AFormatThatCannotBeWrittenIsNotOffered) {
    dialogs.sheet = "Third";
    for (const auto& [source, name] : {std::pair("three.ods", "a.ots"), std::pair("three.xlsx", "a.XLSM")}) {
        fs::rename(Data(source), Path(name));
        OpenForeign(Path(name));
        program.ui.ExpectChooser("Save as", Path(name), "SAVE|Velmora file(*.csv)|*.csv|a.csv");
        Tell("Workbooks of this format can not be written.  Please select a file name that ends in .csv, .xls or "
             ".xlsx.");
        program.ui.ExpectChooser("Save as", Path(std::string(name) + ".csv"));
        EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Saved);
        EXPECT_EQ(document.DocFileName, Path(std::string(name) + ".csv"));
    }
}

/// The question says what is known of the file, and no more.
TEST_F(ImportTest, AnImportedFileIsNotOverwrittenWithoutSayingWhatIsLost) {
    const std::string list = "The list would become a tab file, with six lines of settings before the texts, commas "
                             "between them and no quotation marks.";
    const auto firstColumnAndHeading = [](ImportChoice& choice) {
        choice.cells = {.columns = {1}, .heading = true};
        return true;
    };
    const struct {
        const char* name;
        std::string bytes;
        std::function<bool(ImportChoice&)> choose;
        std::string lost;
    } cases[] = {
        {"a.csv", "a,b,c\r\n", {}, list},
        {"a.csv", "a,b,c,d\r\n", {}, "Columns behind the third would be lost.\r\n" + list},
        {"a.csv", "a;b\r\nc;d\r\n", firstColumnAndHeading, "Column B and the heading would be lost.\r\n" + list},
        {"a.csv", "a" + std::string(256, ';') + "z\r\n", {}, "Further columns would be lost.\r\n" + list},
        {"a.csv",
         "Version 9\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\nx,,,y\r\n",
         {},
         "What a later version wrote and columns behind the third would be lost."},
        {"a.xlsx", ReadFile(Data("cells.xlsx")), firstColumnAndHeading,
         "Columns B, C, the heading, formulas and formats would be lost."},
        {"a.xls", ReadFile(Data("three.xls")), {}, "Worksheets [Erste], [Zweite é] and formats would be lost."}};
    for (const auto& [name, bytes, choose, lost] : cases) {
        dialogs.sheet = name == std::string("a.xls") ? "Third" : "Cells";
        dialogs.change = choose;
        ChooseForeign(Put(name, bytes));
        if (lost.starts_with("What"))
            Tell("Lines with more than three fields: 7.\r\nWhat follows the third field was not read, and a save "
                 "leaves it out.");
        EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened) << lost;
        AskToReplace(Path(name), lost);
        program.ui.ExpectChooser("Save as", std::nullopt);
        EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Cancelled) << lost;
        EXPECT_EQ(ReadFile(Path(name)), bytes);
    }
    AskToReplace(Path("a.xls"), std::end(cases)[-1].lost, Answer::Yes);
    Tell("File saved successfully");
    EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Saved);
    EXPECT_EQ(ReadBack(Path("a.xls")), (Rows{{"three", "", ""}}));
    EXPECT_FALSE(document.Foreign) << "asked about once more";
}

TEST_F(ImportTest, AFormulaWithoutAResultIsAskedAbout) {
    const std::string content = "<d xmlns:t='t'><t:table t:name='S'><t:table-row><t:table-cell t:formula='A2'/>"
                                "<t:table-cell><p>b</p></t:table-cell></t:table-row></t:table></d>";
    Put("a.ods", StoredZip({{"content.xml", content}}));
    dialogs.sheet = "S";
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        ChooseForeign(Path("a.ods"));
        Ask("Formulas without a stored result, whose texts are missing: A1.\r\nA spreadsheet program stores the "
            "results "
            "when it opens the workbook and saves it.\r\nDo you want to import the worksheet without them?",
            answer, Answer::No);
        EXPECT_EQ(OpenCommand(main), answer == Answer::Yes ? OpenOutcome::Opened : OpenOutcome::Cancelled);
        EXPECT_EQ(Tab(1), answer == Answer::Yes ? "|b|" : "typed||");
    }
}

TEST_F(ImportTest, AFailedWorkbookSaveLeavesTheOldFile) {
    document.DocFileName = Put("a.xls", "old");
    document.FieldA(1) = std::string(40000, 'x');
    Tell("a cell holds at most 32767 characters\r\nCalled form Sub:SaveFile", Icon::Critical);
    Tell("Could not finish process");
    EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Failed);
    EXPECT_EQ(ReadFile(Path("a.xls")), "old");
}

} // namespace
} // namespace velmora
