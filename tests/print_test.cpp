// Printing's message sequences, what reaches the printer, and what a cancelled or failed job leaves behind.
#include "base/AtomicFile.h"
#include "tests/support/PrintTest.h"

#include "TestSystem.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProblem =
    "Problem getting printer information from the system. Make sure the printer is set up correctly.\r\n"
    "Called from Sub: PrintReport";
constexpr const char* kCheck = "Printer error.  Please check the printer.\r\nCalled from ";

TEST_F(PrintTest, AJobGoesToTheConfiguredPrinterOnItsPaper) {
    const std::tuple<int, const char*, double, double, Orientation> cases[] = {
        {0, "A4", 210, 297, Orientation::Portrait},
        {5, "DL_v", 110, 220, Orientation::Landscape},
        {4, "DL_h", 220, 110, Orientation::Portrait}};
    for (const auto& [type, stationery, width, height, orientation] : cases) {
        Document(type, stationery);
        EXPECT_EQ(PrintCommand(print), PrintOutcome::Done);
        const PrintJob& job = printers.jobs.back();
        EXPECT_EQ(printers.target, "Office");
        EXPECT_EQ(job.title, "Velmora [Untitled]");
        EXPECT_EQ(job.widthMm, width);
        EXPECT_EQ(job.heightMm, height);
        EXPECT_EQ(job.orientation, orientation);
        EXPECT_TRUE(printers.bytes.starts_with("%PDF-"));
        EXPECT_FALSE(fs::exists(job.pdf));
    }
    EXPECT_EQ(print.CurrentPrinter, "Office");
}

TEST_F(PrintTest, SetupGivesTheReportItsCodes) {
    const std::tuple<const char*, const char*, int, Orientation> cases[] = {{"A4", "A4", 9, Orientation::Portrait},
                                                                            {"DL", "DL_h", 27, Orientation::Portrait},
                                                                            {"DL", "DL_v", 27, Orientation::Landscape},
                                                                            {"B5", "x", 0, Orientation::Landscape}};
    for (const auto& [size, stationery, paper, orientation] : cases) {
        main.document.setup.PageSize = size;
        main.document.setup.StationeryType = stationery;
        rptVelmor report(layout);
        SetupPrinter(print, report);
        EXPECT_EQ(report.Printer.DeviceName, "Office");
        EXPECT_EQ(report.Printer.PrintQuality, -4);
        EXPECT_EQ(report.Printer.PaperSize, paper) << size;
        EXPECT_EQ(report.Printer.Orient, orientation) << stationery;
    }
}

TEST_F(PrintTest, AMissingPrinterStopsTheRunWithBothMessages) {
    main.globals.PrinterName = "office";
    ExpectError("The printer 'office' is not a valid printer on this workstation.\r\n"
                "The program will use 'Hall' as an alternative.");
    ExpectError(kProblem);
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    EXPECT_TRUE(print.PrinterProblem);
    EXPECT_TRUE(printers.jobs.empty());
    main.globals.PrinterName = "Office";
    EXPECT_EQ(PrintCommand(print), PrintOutcome::Done);
    EXPECT_FALSE(print.PrinterProblem);
}

TEST_F(PrintTest, EveryStepOfTheSetUpReportsItsOwnError) {
    program.Store("Settings", "Margin Value Top", "x");
    program.Store("Settings", "Margin Value Left", "");
    printers.listing = PrinterError("gone", 482);
    ExpectError(std::string(kCheck) + "Sub: SetupPrinter");
    ExpectError("Type mismatch: Margin Value Top\r\nCalled from Sub: SetupPrinter");
    ExpectError("Type mismatch: Margin Value Left\r\nCalled from Sub: SetupPrinter");
    ExpectError(kProblem);
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    EXPECT_TRUE(printers.jobs.empty());
}

TEST_F(PrintTest, ARefusedJobIsReportedAndLeavesNoFile) {
    const std::tuple<PrinterError, std::string> cases[] = {
        {PrinterError("stopped", 482), std::string(kCheck) + "Function: PrintReport"},
        {PrinterError("gone", 5707), "The printer 'Office' is not a valid printer on this workstation.\r\n"
                                     "The program will use 'Office' as an alternative."},
        {PrinterError("Too large"), "Too large\r\nCalled from Function: PrintReport"}};
    for (const auto& [error, text] : cases) {
        printers.printing = error;
        ExpectError(text);
        EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
        EXPECT_FALSE(fs::exists(printers.jobs.back().pdf));
    }
    printers.paperWidth = 1; // as of one that is not there
    viewer.act = [&](PrintRun& run) {
        printers.names = {"Hall"};
        EXPECT_FALSE(run.Print());
    };
    ExpectError(std::get<std::string>(cases[1]));
    PreviewCommand(print);
}

TEST_F(PrintTest, WithoutAnyPrinterTheProgramMustEnd) {
    printers.names.clear();
    printers.standard.reset();
    ExpectError("You must have access to a printer before you can run the printer.\r\n"
                "The execution of this application will be aborted.");
    EXPECT_EQ(PreviewCommand(print), PrintOutcome::NoPrinter);
}

TEST_F(PrintTest, CancellingLeavesNoJobAndNoFile) {
    const TemporaryFolder jobs;
    PutTemporaryFilesInto(jobs.Path());
    program.ui.cancelAfter = 2;
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    EXPECT_TRUE(printers.jobs.empty());
    EXPECT_TRUE(fs::is_empty(jobs.Path()));
    PutTemporaryFilesInto({});
    ReplaceFile(program.folder / "old.pdf", "old");
    program.ui.ExpectChooser("Save as PDF", program.folder / "old.pdf");
    program.ui.Expect("Do you want to overwrite the following file?\r\n[" + (program.folder / "old.pdf").string() + "]",
                      Icon::Question, Buttons::YesNo, Answer::Yes, Answer::No);
    viewer.act = [](PrintRun& run) { EXPECT_FALSE(run.SaveAsPdf()); };
    PreviewCommand(print);
    EXPECT_EQ(ReadFile(program.folder / "old.pdf"), "old");
}

TEST_F(PrintTest, ASystemThatTakesNoPdfHasItsSheetsDrawn) {
    printers.draws = true;
    Document(5, "DL_v");
    EXPECT_EQ(PrintCommand(print), PrintOutcome::Done);
    EXPECT_EQ(printers.jobs.at(0).heightMm, 220);
    EXPECT_EQ(printers.jobs.at(0).pdf, "");
    EXPECT_EQ(std::tie(printers.pagesDrawn, printers.linesDrawn, printers.sent), std::tuple(3, 3, 1));
    program.ui.cancelAfter = 2;
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    printers.printing = PrinterError("Out of space");
    ExpectError("Out of space\r\nCalled from Function: PrintReport");
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    EXPECT_EQ(std::tie(printers.pagesDrawn, printers.sent), std::tuple(3 + 2 + 1, 1));
    main.globals.PrinterName = "Hall"; // which asks for a file's name
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    EXPECT_EQ(std::tie(printers.pagesDrawn, printers.sent), std::tuple(3 + 2 + 1, 1));
}

TEST_F(PrintTest, ModesChooseBetweenPaperAndPreview) {
    const auto run = [&](const char* mode) {
        printers.jobs.clear();
        viewer.caption.clear();
        EXPECT_EQ(PrintReport(print, "TestPage", {mode, 0, 24, 1, 8, 3, true}), PrintOutcome::Done);
        EXPECT_NE(printers.jobs.empty(), viewer.caption.empty()) << mode;
        return printers.jobs.empty() ? "preview" : "paper";
    };
    for (const char* mode : {"PRINT", "TEST"})
        EXPECT_STREQ(run(mode), "paper") << mode;
    for (const char* mode : {"PrintPage", "VIEW", "PDF_EXPORT", "EXCEL_EXPORT", "print"})
        EXPECT_STREQ(run(mode), "preview") << mode;
    EXPECT_EQ(viewer.caption, "Velmora [TestPage]");
    ExpectError("Subscript out of range\r\nCalled from Function: PrintReport");
    EXPECT_EQ(PrintReport(print, "", {"PRINT", 0, 25, 1, 8, 3, false}), PrintOutcome::NotPrinted);
}

TEST_F(PrintTest, APreviewPrintsChosenSheetsAroundUsedSlots) {
    for (int tab = 1; tab <= 72; ++tab)
        main.document.FieldA(tab) = "x";
    viewer.act = [&](PrintRun& run) {
        EXPECT_EQ(run.Report().SheetCount(), 3);
        EXPECT_TRUE(run.SetUsedSlots({1, 2}));
        EXPECT_EQ(run.Report().SheetCount(), 4);
        ExpectError("Subscript out of range\r\nCalled from Function: PrintReport");
        EXPECT_FALSE(run.SetUsedSlots({99}));
        EXPECT_EQ(run.UsedSlots(), (std::vector<int>{1, 2}));
        EXPECT_TRUE(run.Print(run.Sheets(SheetChoice::Range, 1, "4,1")));
        EXPECT_NE(printers.bytes.find("/Count 2"), std::string::npos);
    };
    EXPECT_EQ(PreviewCommand(print), PrintOutcome::Done);
    viewer.act = [&](PrintRun& run) { EXPECT_EQ(run.Report().SheetCount(), 1); };
    EXPECT_EQ(PrintPageCommand(print), PrintOutcome::Done) << "used slots held for that run only";
}

TEST_F(PrintTest, PrintAsksOnceAboutAllThatPaperWouldShow) {
    const std::string wide(60, 'W');
    main.document.FieldA(5) = wide;
    const std::string cut = "One text does not fit its tab and will be cut off, in tab 5.\r\n";
    const auto answered = [&](const std::string& found, Answer answer) {
        program.ui.Expect(found + "Do you want to print anyway?", Icon::Question, Buttons::YesNo, answer, Answer::No);
        return PrintCommand(print);
    };
    EXPECT_EQ(answered(cut, Answer::No), PrintOutcome::NotPrinted);
    EXPECT_TRUE(printers.jobs.empty());
    viewer.act = [&](PrintRun& run) { EXPECT_EQ(run.Doubts(), cut); };
    EXPECT_EQ(answered(cut, Answer::Other), PrintOutcome::Done);
    EXPECT_EQ(viewer.caption, "Velmora [Untitled]") << "the list is there";
    EXPECT_TRUE(printers.jobs.empty());
    EXPECT_EQ(answered(cut, Answer::Yes), PrintOutcome::Done);
    program.Store("Settings", "Margin Value Left", "-40");
    main.document.FieldA(72) = wide;
    printers.paperWidth = 100;
    const std::string texts = "2 texts do not fit their tabs and will be cut off, the first in tab 5.\r\n"
                              "3 texts lie partly where the printer cannot print, the first in tab 1.\r\n";
    EXPECT_EQ(answered("The printer does not have paper of the sheet's size.\r\n" + texts, Answer::No),
              PrintOutcome::NotPrinted);
    printers.paperWidth = 297; // the same paper, turned
    EXPECT_EQ(answered(texts, Answer::Yes), PrintOutcome::Done);
    viewer.act = [](PrintRun&) {};
    EXPECT_EQ(PreviewCommand(print), PrintOutcome::Done) << "the window says it itself";
}

TEST_F(PrintTest, EmptySheetsAreSaidBeforeTheyCostPaper) {
    main.document.FieldA(1).clear();
    main.document.FieldA(49).clear();
    for (const auto& [answer, pages] :
         {std::pair{Answer::Yes, "/Count 1"}, {Answer::No, "/Count 3"}, {Answer::Cancel, ""}}) {
        printers.bytes.clear();
        program.ui.Expect("2 of 3 sheets are empty.\r\nDo you want to print the filled sheets only?", Icon::Question,
                          Buttons::YesNoCancel, answer, Answer::Yes);
        PrintCommand(print);
        EXPECT_TRUE(*pages ? printers.bytes.find(pages) != std::string::npos : printers.bytes.empty()) << pages;
    }
    main.document.FieldA(25).clear();
    program.ui.Expect("All 3 sheets are empty.\r\nDo you want to print anyway?", Icon::Question, Buttons::YesNo,
                      Answer::No, Answer::No);
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
}

TEST_F(PrintTest, EverySheetAsksWhatItsPrinterSays) {
    viewer.act = [](PrintRun& run) { run.Print(); };
    const std::string waits = "The printer \"Office\" is not ready: the job will wait.\r\nIt says: No toner\r\n",
                      paper = "The printer does not have paper of the sheet's size.\r\n",
                      font = "The maker of the font \"Boxes\" forbids that it goes into a PDF.\r\n";
    for (const auto& [name, act] : sheets) {
        SCOPED_TRACE(name);
        const bool isChecked = name == sheets[0].first;
        const std::string replaced = isChecked ? "Arial is not installed: Boxes takes its place.\r\n" : "";
        printers.jobs.clear();
        printers.state = {Readiness::Waiting, "No toner"};
        printers.paperWidth = 215.9;
        fonts.own = FontFile{VELMORA_SOURCE_DIR "/tests/print_ink/fonts/varied.ttf", 0, "Boxes"};
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            program.ui.Expect(waits + paper + replaced + font + "Do you want to print anyway?", Icon::Question,
                              Buttons::YesNo, answer, Answer::No);
            act();
            EXPECT_EQ(printers.jobs.size(), answer == Answer::Yes ? 1U : 0U);
        }
        printers.state = {Readiness::Refusing, ""};
        ExpectError("The printer \"Office\" takes no jobs now.\r\n");
        act();
        EXPECT_EQ(printers.jobs.size(), 1U);
    }
    printers.names.clear();
    printers.state = {Readiness::Silent};
    ExpectError("The print server does not answer.\r\nCalled from Sub: SetupPrinter");
    ExpectError(kProblem);
    PrintCommand(print);
}

TEST_F(PrintTest, AJobHasItsOwnNameAndWhatWasChosenForIt) {
    main.document.DocFileName = "/home/me/Files.csv";
    program.ui.credentials = {"me", "secret"};
    viewer.act = [](PrintRun& run) { EXPECT_TRUE(run.Print({1}, {3, "tray-2", "labels"})); };
    PreviewCommand(print);
    EXPECT_EQ(viewer.caption, "Velmora [/home/me/Files.csv]");
    const PrintJob& job = printers.jobs.at(0);
    EXPECT_EQ(job.title, "Velmora [Files.csv]");
    EXPECT_EQ(job.options.copies, 3);
    EXPECT_EQ(job.options.tray + job.options.kind, "tray-2labels");
    program.ui.Expect("password for Office", Icon::None);
    EXPECT_EQ(job.askCredentials({"Office", "", false})->password, "secret");
}

TEST_F(PrintTest, EverySheetGoesTheWayThatThePrinterKnowsItsPaper) {
    printers.paperWidth = 110; // of DL as 110 x 220 only
    viewer.act = [](PrintRun& run) { run.Print(); };
    for (const auto& sheet : sheets) {
        const char* const name = sheet.first;
        const auto sent = [&](const char* way) {
            Document(4, way);
            sheet.second();
            EXPECT_EQ(printers.jobs.back().widthMm, 110) << name << way;
            EXPECT_EQ(printers.jobs.back().heightMm, 220) << name << way;
            EXPECT_EQ(printers.jobs.back().orientation, Orientation::Landscape) << name << way;
            return printers.bytes.substr(0, printers.bytes.find("/CreationDate"));
        };
        EXPECT_TRUE(sent("DL_h") == sent("DL_v")) << name << ": turned with its content";
    }
    EXPECT_EQ(printers.jobs.size(), 8U);
}

TEST_F(PrintTest, TheBuiltInPrinterAsksForItsPath) {
    program.Store("Settings", "Used Labels - 0", "1-2"); // a file takes no labels
    printers.names.emplace_back(kPdfPrinter);
    main.globals.PrinterName = kPdfPrinter;
    program.ui.ExpectChooser("Save as PDF", std::nullopt);
    EXPECT_EQ(PrintCommand(print), PrintOutcome::NotPrinted);
    program.ui.ExpectChooser("Save as PDF", program.folder / "out.pdf", "SAVE|PDF file (*.pdf)|*.pdf|Tabs.pdf");
    EXPECT_EQ(PrintCommand(print), PrintOutcome::Done);
    EXPECT_TRUE(ReadFile(program.folder / "out.pdf").starts_with("%PDF-"));
    EXPECT_TRUE(printers.jobs.empty());
}

} // namespace
} // namespace velmora
