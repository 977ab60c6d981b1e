// Margins and the set-up dialogs without their forms.
#include "base/Numbers.h"
#include "editor/GridLayout.h"
#include "report/PrepareReport.h"
#include "report/Twips.h"
#include "setup/Calibration.h"
#include "setup/CalibrationSheet.h"
#include "setup/PrinterWizard.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/FakePrinters.h"
#include "tests/support/TestProgram.h"
#include "workspace/Pages.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/Undo.h"

#include <gtest/gtest.h>

#include <random>

namespace velmora {
namespace {

struct StatusLine : MainWindowStatus {
    std::array<std::string, kStatusPanels> panels;
    DoneMessage done;
    void Tell(const DoneMessage& message) override { done = message; }
    void SetPanel(int panel, const std::string& text) override {
        panels.at(static_cast<std::size_t>(panel - 1)) = text;
    }
    void SetCaption(const std::string&) override {}
};

struct SetupTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    FakePrinters printers;
    MainModule main{program.settings, program.ui, printers, program.workbooks};
    TabDocument& document = main.document;
    UndoHistory& history = main.history;
    StatusLine status;
    FakeEditor editor;

    SetupTest() {
        printers.names = {*(printers.standard = kPdfPrinter)};
        history.KeepSteps();
        LoadGlobals(main);
        SetLayoutFromType(document.setup);
        SetFieldLimits(document.setup);
        NewDocument(main);
        main.status.Take(status);
        main.editor.Take(editor);
    }
    std::string Active() {
        return program.Stored("Settings", "Margin Value Left") + "/" + program.Stored("Settings", "Margin Value Top");
    }
    std::string Default(const char* side, const char* layout) {
        return program.Stored("Margin Settings", std::string("Default ") + side + " Margin - " + layout);
    }
    void StoreDefaults(const char* layout, const char* left, const char* top) {
        program.Store("Margin Settings", std::string("Default Left Margin - ") + layout, left);
        program.Store("Margin Settings", std::string("Default Top Margin - ") + layout, top);
    }
    void Use(const std::string& printer, int type = 0, const std::string& layout = "A4") {
        PrinterWizard wizard(main);
        wizard.ChoosePrinter(printer);
        wizard.ChooseType(type);
        wizard.ChooseLayout(layout);
        EXPECT_TRUE(wizard.Finish());
    }
    void Calibrate(const std::string& left, const std::string& top) {
        Calibration dialog(main);
        dialog.Typed(MarginBox::Left, left);
        dialog.Typed(MarginBox::Top, top);
        dialog.Ok();
    }
    /// Tab type, layout, stationery, fields and limits in one line.
    std::string Setup() const {
        const FieldLimits& limits = document.setup.Limits;
        return std::to_string(document.setup.OptType) + " " + document.setup.LayoutName + " " +
               document.setup.StationeryType + " " + document.setup.PageSize + " " +
               std::to_string(document.setup.NoOfFields) + " " + std::to_string(limits.MaxLenField1) + "," +
               std::to_string(limits.MaxLenField2) + "," + std::to_string(limits.MaxLenField3);
    }
};

TEST_F(SetupTest, EachLayoutHasItsOwnDefaultMargins) {
    struct Row {
        int type;
        const char *layout, *name;
    };
    for (const Row& row : {Row{0, "A4_8", "A4 (8 rows)"}, Row{2, "A4_9", "A4 (9 rows)"}, Row{4, "DL_v", "DL_v"},
                           Row{5, "DL_h", "DL_h"}}) {
        EXPECT_EQ(LayoutDisplayName(row.layout, row.type), row.name);
        EXPECT_EQ(LoadDefaultMargins(main.settings, row.type, row.layout).left, "0");
        EXPECT_FALSE(DefaultMarginsExist(main.settings, row.type, row.layout)) << row.layout;
        StoreDefaults(row.layout, std::to_string(row.type).c_str(), "-2.5");
        EXPECT_TRUE(DefaultMarginsExist(main.settings, row.type, row.layout)) << row.layout;
        ApplyDefaultMargins(main.settings, row.type, row.layout);
        EXPECT_EQ(Active(), std::to_string(row.type) + "/-2") << "half to even";
    }
    EXPECT_TRUE(DefaultMarginsExist(main.settings, 1, "A4_8"));
    EXPECT_EQ(LoadDefaultMargins(main.settings, 3, "A4_9").left, "2");
    EXPECT_EQ(LayoutDisplayName("A4", 4), "");
    EXPECT_TRUE(DefaultMarginsExist(main.settings, 4, "A4"));
    EXPECT_FALSE(DefaultMarginsExist(main.settings, 6, "A4_8"));
    StoreDefaults("DL_v", "x", "40000");
    EXPECT_THROW(ApplyDefaultMargins(main.settings, 4, "DL_v"), OverflowError);
    EXPECT_EQ(Active(), "5/-2");
    ApplyDefaultMargins(main.settings, 6, "A4_8");
    EXPECT_EQ(Active(), "0/0");
}

TEST_F(SetupTest, TheSetupIsCompleteWithAllFourSettings) {
    EXPECT_TRUE(SetupComplete(main.settings));
    for (const char* key : {"Printer", "Stationery Type", "Page Size", "OptType"}) {
        const std::string before = program.Stored("Settings", key);
        program.Store("Settings", key, "");
        EXPECT_FALSE(SetupComplete(main.settings)) << key;
        program.Store("Settings", key, before);
    }
    EXPECT_FALSE(MarginsReady(main));
    for (const char* side : {"Left", "Top"}) {
        const std::string key = std::string("Default ") + side + " Margin - A4_8";
        program.Store("Margin Settings", key, "1");
        EXPECT_FALSE(MarginsReady(main)) << "with nothing but " << side;
        DeleteSetting(main.settings, "Margin Settings", key);
    }
    StoreDefaults("A4_8", "1", "2");
    EXPECT_TRUE(MarginsReady(main));
}

TEST_F(SetupTest, TheFirstCalibrationOffersToBecomeTheDefault) {
    const std::string question = "Do you want to save this margin settings as the default margin settings for A4 (8 "
                                 "rows) stationery?";
    Calibration first(main);
    EXPECT_EQ(first.DefaultsText(), "A4 (8 rows) has no defaults yet.");
    first.LoadDefaults();
    for (const auto& [left, told] : {std::pair("-60.5", "60.5 mm to the left; 8 of 24 tabs are beyond the paper."),
                                     {"300", "300 mm to the right; 24 of 24 tabs are beyond the paper."}}) {
        first.Typed(MarginBox::Left, left);
        EXPECT_EQ(first.MoveText(), std::string("The print moves ") + told);
    }
    first.Typed(MarginBox::Left, "2,5");
    first.Arrow(MarginArrow::Down);
    program.ui.Expect(question, Icon::Question, Buttons::YesNo, Answer::No);
    first.Ok();
    EXPECT_EQ(Active(), "2.5/1");
    EXPECT_EQ(program.Stored("Margin Settings", "MarginLeft2"), "3021.75");
    EXPECT_EQ(Default("Left", "A4_8"), "(none)");
    EXPECT_TRUE(document.DocChanged);
    EXPECT_EQ(history.UndoName(), "Margin Setup");
    program.ui.Expect(question, Icon::Question, Buttons::YesNo, Answer::Yes);
    Calibration(main).Ok();
    EXPECT_EQ(Default("Left", "A4_8") + "/" + Default("Top", "A4_8"), "2.5/1");
    Calibration third(main);
    EXPECT_NEAR(third.Samples()[1].left, 3021.75, 0.001);
    third.Typed(MarginBox::Top, "9");
    third.LoadDefaults();
    EXPECT_EQ(third.LeftText() + "/" + third.TopText(), "2/1");
    third.Ok();
    EXPECT_EQ(Active(), "2/1");
    UndoChange(main);
    UndoChange(main);
    EXPECT_EQ(Active(), "0/0");
    EXPECT_FALSE(document.DocChanged);
}

/// Millimetres at `edge` on the ruler that goes below 0, by its printed numbers: to a tenth, as a person reads them.
std::string ReadOff(const Sheet& sheet, bool across, double edge) {
    double zero = 0, below = 0;
    for (const PlacedText& text : sheet.texts) {
        if ((text.alignment == kAlignCentre) != across || text.box.left == 0)
            continue;
        const double at = across ? text.box.left + text.box.width / 2 : text.box.top + text.box.height / 2;
        zero = text.text == "0" ? at : zero;
        below = text.text == "-10" ? at : below;
    }
    return NumberText(std::round((edge - zero) / (zero - below) * 100) / 10);
}

/// Left and top cut edge of a label of a tab type, in twips.
SamplePosition Label(int type, int row, int column) {
    constexpr double kPitch[] = {3402, 1701, 3402, 1701, 1644.3, 2891.7};
    constexpr double kTop[] = {23, 23, 20, 20, 21, 21};
    return {column * kPitch[type], LayoutTwips(kTop[type] + row * (kTop[type] + 10))};
}

TEST_F(SetupTest, EveryTabMeetsItsLabelOnEveryPrinter) {
    struct Printer {
        std::string name;
        int type;
        const char* layout;
        double right, down; ///< where it puts the sheet too far
    };
    std::vector<Printer> all;
    std::mt19937 random(17);
    std::uniform_real_distribution<double> offset(LayoutTwips(-18), LayoutTwips(9));
    for (int i = 0; i < 48; ++i) {
        const int type = i % 6;
        all.push_back({"P=" + std::to_string(i) + "%/LAYOUT", type,
                       type < 4     ? "A4"
                       : i % 12 < 6 ? "DL_v"
                                    : "DL_h",
                       offset(random), offset(random)});
        printers.names.push_back(all.back().name);
    }
    for (const char* layout : {"A4_8", "A4_9", "DL_v", "DL_h"})
        StoreDefaults(layout, "14", "18");
    for (const Printer& p : all) {
        Use(p.name, p.type, p.layout);
        const Sheet sheet = LayOutCalibrationSheet(main.settings, p.type, p.layout);
        Calibrate(ReadOff(sheet, true, Label(p.type, 2, 1).left - p.right),
                  ReadOff(sheet, false, Label(p.type, 0, 1).top - p.down));
    }
    std::shuffle(all.begin(), all.end(), random);
    document.setup.NoOfFields = 1;
    for (const Printer& p : all) {
        Use(p.name, p.type, p.layout);
        LayoutValues values;
        Sheet sheet;
        MakeReport(values, DocumentRequest(document, "TEST"), {document, main.settings, main.fonts})
            .LayOutSheet(1, sheet);
        EXPECT_EQ(sheet.texts.size(), static_cast<std::size_t>(document.setup.TabsPerPage));
        for (const PlacedText& text : sheet.texts) {
            const int columns = document.setup.ColsPerPage;
            const SamplePosition cut = Label(p.type, (text.slot - 1) / columns, (text.slot - 1) % columns);
            EXPECT_NEAR(text.box.left + p.right, cut.left, LayoutTwips(0.1)) << p.name;
            EXPECT_NEAR(text.box.top + p.down, cut.top, LayoutTwips(0.1)) << p.name;
        }
    }
}

TEST_F(SetupTest, MarginsFollowPrinterAndLayout) {
    printers.names = {"Office", "Hall"};
    StoreDefaults("A4_8", "13.5", "18.6");
    Use("Office");
    Calibrate("3,5", "-1");
    Use("Hall");
    EXPECT_EQ(Active() + " " + status.done.text, "14/19 Hall was not calibrated on A4 (8 rows) yet. The default "
                                                 "margins are taken: left 14, top 19 mm.");
    Calibrate("0.5", "2");
    Use("Office");
    EXPECT_EQ(Active(), "3.5/-1");
    Use("Hall");
    EXPECT_EQ(Active() + " " + status.done.text, "0.5/2 Margins of Hall on A4 (8 rows): left 0.5, top 2 mm.");
    UndoChange(main);
    EXPECT_TRUE(status.done.printerMargins) << "Office's margins, but Hall is still the printer";
    StoreDefaults("A4_9", "4", "5");
    Use("Hall", 2);
    Calibrate("7", "8");
    Calibrate("7", "abc");
    NewDocument(main);
    EXPECT_EQ(Active(), "7/8") << "what is no number is not remembered";
}

TEST_F(SetupTest, AWizardFinishedWithoutAChangeChangesNothing) {
    StoreDefaults("A4_8", "14", "18");
    Write(main.settings, kMarginLeft, "13.5");
    document.CurrentPage = 2;
    PrinterWizard wizard(main);
    wizard.PrintTestPage([&](std::int32_t) { EXPECT_EQ(ActiveMargins(main.settings).left, "13.5"); });
    EXPECT_TRUE(wizard.Finish());
    EXPECT_FALSE(history.CanUndo() || document.DocChanged || document.CurrentPage != 2);
    Use(kPdfPrinter, 1); // of the same layout
    EXPECT_EQ(ActiveMargins(main.settings).left, "13.5");
}

TEST_F(SetupTest, OkTakesTheDocumentToTheChoice) {
    struct Row {
        std::vector<int> types;
        int fields;
        const char *setup, *margins;
    };
    StoreDefaults("DL_v", "7", "8");
    StoreDefaults("A4_9", "3", "4");
    const Row rows[] = {{{4}, 3, "4 DL_v DL_v DL 3 20,10,10", "7/8"},
                        {{5}, 1, "5 DL_v DL_v DL 1 20,0,0", "7/8"},
                        {{4, 2}, 2, "2 A4_9 A4 A4 2 20,20,0", "3/4"},
                        {{0}, 2, "0 A4_8 A4 A4 2 20,20,0", "0/0"}}; // a layout that was never calibrated
    for (const Row& row : rows) {
        PageSetup dialog(main);
        dialog.Open();
        for (const int type : row.types)
            dialog.ChooseType(type);
        dialog.ChooseFields(row.fields);
        dialog.Open(); // back from a printer wizard that changed nothing
        EXPECT_TRUE(dialog.Ok());
        EXPECT_EQ(Setup(), row.setup);
        EXPECT_EQ(Active(), row.margins) << row.setup;
        EXPECT_EQ(document.TabCount % document.setup.TabsPerPage, 0);
        EXPECT_EQ(program.Stored("Settings", "OptType"), std::to_string(document.setup.OptType));
    }
    document.setup.LayoutName = document.setup.StationeryType = "DL_h";
    document.setup.OptType = 4;
    PageSetup turned(main);
    turned.ChooseType(5);
    EXPECT_TRUE(turned.Ok());
    EXPECT_EQ(document.setup.StationeryType, "DL_h");
}

TEST_F(SetupTest, AnUntouchedDocumentStaysOnePage) {
    const auto pages = [&](int type) {
        PageSetup dialog(main);
        dialog.ChooseType(type);
        EXPECT_TRUE(dialog.Ok());
        return document.NoOfPages;
    };
    EXPECT_EQ(pages(5), 1) << "half the tabs";
    document.CurrentTab = 2;
    pages(1);
    document.FieldC(1) = "in a field that is not in use";
    EXPECT_EQ(pages(0), 2);
}

TEST_F(SetupTest, AnotherSheetIsOneStepThatBringsTheTextsBack) {
    document.CurrentTab = 0;
    PageSetup dialog(main);
    dialog.ChooseType(1);
    EXPECT_EQ(dialog.WhatBecomesOfTexts(), "") << "there are none";
    PrinterWizard wizard(main);
    wizard.ChooseType(1);
    editor.texts = {{"only in its box"}};
    program.ui.Expect(kEmptyingQuestion, Icon::Question, Buttons::YesNo, Answer::No, Answer::No);
    EXPECT_FALSE(wizard.Finish());
    document.FieldA(24) = "kept";
    EXPECT_TRUE(dialog.WhatBecomesOfTexts().starts_with("OK empties the document,"));
    EXPECT_TRUE(dialog.Ok());
    EXPECT_EQ(editor.calls, "down up ");
    EXPECT_EQ(document.TabCount, 48);
    EXPECT_EQ(document.FieldA(24), "") << "a new size empties the document while no later tab has the focus";
    EXPECT_TRUE(document.DocChanged);
    EXPECT_EQ(history.UndoName(), "Page Setup");
    UndoChange(main);
    EXPECT_EQ(document.FieldA(24), "kept");
    EXPECT_EQ(document.setup.OptType, 0);
    EXPECT_FALSE(document.DocChanged);
    document.CurrentTab = 2;
    PageSetup(main).Cancel();
    EXPECT_EQ(status.panels[4], "No of tabs: 2 of 24") << "the sheet is in use as before";
    EXPECT_EQ(dialog.WhatBecomesOfTexts(), "The texts flow on in their order, from 1 page onto 1 page.");
    EXPECT_TRUE(dialog.Ok());
    EXPECT_EQ(document.FieldA(24), "kept");
}

TEST_F(SetupTest, TheBoxThatIsEnteredTellsItsTab) {
    struct EnteringEditor : GridEditor {
        explicit EnteringEditor(MainModule& module) : main(module) {}
        void BringUp() override { EnterBox(main, 1); }
        MainModule& main;
    } entering(main);
    main.editor.Take(entering);
    PageSetup(main).Ok();
    EXPECT_EQ(status.panels[4], "No of tabs: 1 of 24");
}

TEST_F(SetupTest, EmptyTabsThatWereNotThereAreNotToldAsDeleted) {
    document.FieldA(1) = "a";
    document.FieldA(3) = "b";
    CleanLabels(main);
    EXPECT_EQ(status.done.text, "Empty tabs deleted, 2 tabs left");
    for (const bool unsaved : {true, false}) {
        document.DocChanged = unsaved;
        CleanLabels(main);
        EXPECT_EQ(status.done.text, "Delete Empty Tabs: nothing changed");
        EXPECT_EQ(document.DocChanged, unsaved);
    }
    main.history.KeepSteps(0);
    document.FieldA(4) = "c";
    CleanLabels(main);
    EXPECT_TRUE(document.DocChanged) << "what nobody compared counts as changed";
}

TEST_F(SetupTest, ADocumentThatDoesNotFitStaysAsItWas) {
    document.TabCount = 32760; // 1365 sheets; the last of 1214 with 27 tabs would end above 32767
    for (int field = 0; field < 3; ++field)
        document.Field(field).Resize(document.TabCount);
    document.CurrentTab = 2;
    ApplyTabType(main);
    const std::string before = Setup();
    PageSetup dialog(main);
    dialog.ChooseType(2);
    program.ui.Expect("Overflow\r\nCalled from Sub: ApplySetup", Icon::Critical);
    EXPECT_FALSE(dialog.Ok());
    main.globals.PrinterName = "Gone";
    PrinterWizard wizard(main); // with a printer that is here
    wizard.ChooseType(2);
    program.ui.Expect("Overflow\r\nCalled from Sub: ApplySetup", Icon::Critical);
    EXPECT_FALSE(wizard.Finish());
    EXPECT_EQ(main.globals.PrinterName + "," + program.Stored("Settings", "Printer"), "Gone,Gone");
    EXPECT_EQ(Setup(), before);
    EXPECT_EQ(program.Stored("Settings", "OptType"), "0");
    EXPECT_EQ(status.panels[1], "Tab Type: 8 rows, 3  Columns");
    EXPECT_FALSE(document.DocChanged || history.CanUndo());
}

TEST_F(SetupTest, TheWizardKeepsAllToItselfUntilFinish) {
    StoreDefaults("DL_h", "5", "6");
    const std::string before = Setup();
    PrinterWizard wizard(main);
    EXPECT_TRUE(wizard.Printers().at(0).isDefault);
    EXPECT_EQ(PrinterWizard::StationeryLabels()[5], "DL Alpha (3 rows, 4 cols)");
    wizard.ChooseLayout("DL_h");
    EXPECT_EQ(wizard.Layout(), "A4") << "an A4 sheet has one layout";
    wizard.ChooseType(5);
    EXPECT_EQ(wizard.Layout(), "DL_v");
    wizard.ChooseLayout("DL_h");
    const std::string trial = "5 DL_h DL_h DL";
    const auto test = [&](std::int32_t tabs) {
        EXPECT_EQ(tabs, 12);
        EXPECT_EQ(Setup().substr(0, trial.size()), trial);
        EXPECT_EQ(Active(), "5/6");
        EXPECT_EQ(main.globals.PrinterName, kPdfPrinter);
        throw Error("out of paper");
    };
    main.globals.PrinterName = "Gone";
    EXPECT_THROW(wizard.PrintTestPage(test), Error);
    EXPECT_EQ(Setup(), before);
    EXPECT_EQ(main.globals.PrinterName, "Gone");
    EXPECT_EQ(program.Stored("Settings", "Margin Value Left"), "(none)");
    EXPECT_FALSE(history.CanUndo());

    EXPECT_TRUE(wizard.Finish());
    EXPECT_EQ(Active(), "5/6");
    EXPECT_EQ(history.UndoName(), "Printer Setup");
    EXPECT_TRUE(document.DocChanged);
}

} // namespace
} // namespace velmora
