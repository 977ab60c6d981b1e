// Which sheets and tabs a run prints: filled ones, chosen tabs, the sheet that an earlier job left.
#include "tests/support/FakeEditor.h"
#include "tests/support/PrintTest.h"

namespace velmora {
namespace {

std::string SlotsOf(PrintRun& run, int number) {
    std::string slots;
    Sheet sheet;
    run.Report().LayOutSheet(number, sheet);
    for (const PlacedText& text : sheet.texts)
        slots += std::to_string(text.tab) + "@" + std::to_string(text.slot) + " ";
    return slots;
}

TEST_F(PrintTest, ASheetIsChosenByItsTexts) {
    for (const int tab : {1, 25, 49})
        main.document.FieldA(tab).clear();
    viewer.act = [&](PrintRun& run) {
        EXPECT_THROW(run.Sheets(SheetChoice::Filled, 1, ""), Error);
        EXPECT_EQ(run.Sheets(SheetChoice::All, 2, ""), (std::vector<int>{1, 2, 3}));
        EXPECT_EQ(run.Sheets(SheetChoice::Shown, 2, ""), std::vector<int>{2});
        EXPECT_THROW(run.Sheets(SheetChoice::Range, 1, "4"), Error);
    };
    PreviewCommand(print);
    main.document.FieldA(25) = "x";
    main.document.FieldB(49) = "in a field that is not in use";
    viewer.act = [&](PrintRun& run) {
        EXPECT_EQ(run.Sheets(SheetChoice::Filled, 1, ""), std::vector<int>{2});
        run.SetUsedSlots({1});
        EXPECT_EQ(run.Sheets(SheetChoice::Filled, 1, ""), std::vector<int>{2});
        EXPECT_EQ(SlotsOf(run, 2), "25@2 ") << "one further on";
    };
    PreviewCommand(print);
}

TEST_F(PrintTest, MarkedTabsGoOntoTheSheetThatAnEarlierJobLeft) {
    FakeEditor editor;
    main.editor.Take(editor);
    editor.marked = {30, 31, 32};
    for (int tab = 1; tab <= 72; ++tab)
        main.document.FieldA(tab) = tab == 31 ? " " : "x";
    viewer.act = [&](PrintRun& run) {
        EXPECT_EQ(run.TabsAtHand(), "30-32");
        EXPECT_TRUE(run.LabelsInUse().empty());
        run.SetUsedSlots({1, 2, 7});
        run.KeepLabelsInUse({1});
        EXPECT_THROW(run.ChooseTabs("30,73"), Error);
        EXPECT_THROW(run.Sheets(SheetChoice::Tabs, 1, ""), Error);
        EXPECT_EQ(SlotsOf(run, 1), "30@3 31@4 32@5 ");
        run.ChooseTabs("30,2", TabPlaces::Own);
        EXPECT_EQ(SlotsOf(run, 1), "2@2 ");
        EXPECT_EQ(run.Sheets(SheetChoice::Tabs, 1, "30,2").size(), 2U);
        run.ChooseTabs(std::nullopt);
        EXPECT_EQ(run.Report().SheetCount(), 4);
    };
    EXPECT_EQ(PrintTabsCommand(print), PrintOutcome::Done);
    viewer.act = [&](PrintRun& run) {
        EXPECT_EQ(run.LabelsInUse(), (std::vector<int>{1, 2, 3, 5, 7})) << "a tab of blanks takes no label";
        run.KeepLabelsInUse({2, 3});
        EXPECT_TRUE(run.LabelsInUse().empty()) << "the last sheet is full";
        for (const char* wrong : {"9-25", "1-24", "?"}) {
            program.Store("Settings", "Used Labels - 0", wrong);
            EXPECT_TRUE(run.LabelsInUse().empty()) << wrong;
        }
    };
    PreviewCommand(print);
    main.editor.Leave();
}

TEST_F(PrintTest, PrintAsksWhetherToBeginWithTheSheetInUse) {
    main.document.FieldA(72) = "last";
    for (const auto& [answer, cancelAfter, pages, left] :
         {std::tuple{Answer::Cancel, -1, "", "1-2"},
          {Answer::No, -1, "/Count 3", "1-2"},
          {Answer::Yes, 1, "", "1-2"},
          {Answer::Yes, -1, "/Count 4", "2"}}) { // the last tab stands there
        program.ui.cancelAfter = cancelAfter;
        program.Store("Settings", "Used Labels - 0", "1-2");
        printers.bytes.clear();
        program.ui.Expect("A sheet goes on being used: its labels 1-2 are gone.\r\nDo you want to begin with it?",
                          Icon::Question, Buttons::YesNoCancel, answer, Answer::Yes);
        PrintCommand(print);
        EXPECT_TRUE(*pages ? printers.bytes.find(pages) != std::string::npos : printers.bytes.empty()) << pages;
        EXPECT_EQ(program.Stored("Settings", "Used Labels - 0"), left);
    }
}

} // namespace
} // namespace velmora
