// Tabs and pages among each other: inserted, removed, moved, filled, sorted, copied, pasted, found.
#include "base/AtomicFile.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/UndoTest.h"
#include "workspace/ArrangePages.h"
#include "workspace/ArrangeTabs.h"
#include "workspace/CopyTabs.h"
#include "workspace/GoToPlace.h"
#include "workspace/PasteBlock.h"
#include "workspace/RemoveDuplicates.h"
#include "workspace/SortTabs.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

using Command = std::function<void(MainModule&)>;

struct ArrangingTest : UndoTest {
    FakeEditor editor;

    ~ArrangingTest() override { main.editor.Leave(); }
    void Begin() {
        SetFieldLimits(document.setup);
        Write(main.settings, kNoOfPages, std::to_string(document.NoOfPages));
        main.editor.Take(editor);
        history.KeepSteps();
        history.Clear(document);
    }
    /// Each tab has its number in all three fields, two of which are in use; the tabs behind `filled` are empty.
    void MakeNumbered(int pages, int filled) {
        MakePages(main, pages, 2, 0, [&](int, int tab) { return tab > filled ? "" : std::to_string(tab); });
        Begin();
    }
    /// "1-3 .2 7": tabs 1 to 3, two empty ones, and tab 7, by the numbers that they were made with.
    std::string Tabs() {
        std::string text;
        for (int tab = 1, next = 0; tab <= document.TabCount; tab = next) {
            const std::string& number = document.FieldA(tab);
            int value = number.empty() ? 0 : std::stoi(number);
            for (next = tab; next <= document.TabCount; ++next) {
                EXPECT_EQ(document.FieldB(next) + document.FieldC(next), document.FieldA(next) + document.FieldA(next));
                if (document.FieldA(next) != (number.empty() ? "" : std::to_string(value + next - tab)))
                    break;
            }
            const int count = next - tab;
            text += (text.empty() ? "" : " ") + (number.empty() ? "." + std::to_string(count)
                                                 : count == 1   ? number
                                                                : number + "-" + std::to_string(value + count - 1));
        }
        return text;
    }
    /// Puts the texts into field A of the tabs from 1 on, and nothing into any other.
    void SetTexts(const std::vector<std::string>& texts, int pages = 1, int fields = 2) {
        MakePages(main, pages, fields, 0, [&](int field, int tab) {
            return field == 0 && tab <= static_cast<int>(texts.size()) ? texts[static_cast<std::size_t>(tab - 1)] : "";
        });
        Begin();
    }
    /// Field A of the first tabs.
    std::string Texts(int count) {
        std::string text;
        for (int tab = 1; tab <= count; ++tab)
            text += document.FieldA(tab) + "|";
        return text;
    }
};

TEST_F(ArrangingTest, EveryCommandMovesWholeTabsAndIsOneStep) {
    struct Case {
        const char* name; ///< of the step; empty: nothing happens
        Command command;
        int filled; ///< of 48 tabs
        TabNumbers marked;
        const char* tabs; ///< afterwards
        TabNumbers markedAfter;
    };
    const auto sort = [](SortRequest request) {
        return [request](MainModule& all) { SortTabs(all, request, NaturalOrder(std::locale::classic())); };
    };
    const auto move = [](int to) { return [to](MainModule& all) { MovePage(all, static_cast<std::int16_t>(to)); }; };
    const Case cases[] = {
        {"Insert Tab", InsertTabs, 48, {2, 30}, "1 .2 2-48 .22", {2, 3}},
        {"Insert Tab", InsertTabs, 46, {2, 3}, "1 .2 2-46", {2, 3}},
        {"", InsertTabs, 24, {25}, "1-24 .24", {25}},
        {"", RemoveTabs, 24, {30}, "1-24 .24", {30}},
        {"Remove Tab", RemoveTabs, 48, {2, 30}, "1 3-29 31-48 .2", {2}},
        {"Remove Tab", RemoveTabs, 48, TabsFrom(25, 24), "1-24 .24", {25}},
        {"Move Up", MoveTabsUp, 48, {3, 4, 25}, "1 3-4 2 5-23 25 24 26-48", {2, 3, 24}},
        {"", MoveTabsUp, 48, {1, 5}, "1-48", {1, 5}},
        {"Move Down", MoveTabsDown, 48, {23, 24}, "1-22 25 23-24 26-48", {24, 25}},
        {"", MoveTabsDown, 48, {5, 48}, "1-48", {5, 48}},
        {"Insert Page", InsertPage, 48, {30}, "1-24 .24 25-48", {25}},
        {"Duplicate Page", DuplicatePage, 48, {2}, "1-24 1-48", {25}},
        {"Move Page", move(2), 48, {2}, "25-48 1-24", {25}},
        {"Move Page", move(1), 48, {30}, "25-48 1-24", {1}},
        {"", move(2), 48, {30}, "1-48", {30}},
        {"Sort", sort({0, true, true}), 26, {30}, "1-24 26 25 .22", {30}},
        {"", sort({1, false, false}), 30, {2}, "1-30 .18", {2}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(std::string(row.name) + " to " + row.tabs);
        MakeNumbered(2, row.filled);
        const std::string start = State();
        editor.marked = row.marked;
        document.CurrentTab = static_cast<std::int16_t>(row.marked.front());
        document.CurrentPage = PageOfTab(document, document.CurrentTab);
        row.command(main);
        EXPECT_EQ(Tabs(), row.tabs);
        EXPECT_EQ(history.UndoName(), row.name);
        EXPECT_EQ(document.DocChanged, *row.name != '\0');
        EXPECT_EQ(editor.marked, row.markedAfter);
        if (!*row.name)
            continue;
        EXPECT_EQ(document.CurrentTab, row.markedAfter.front());
        EXPECT_EQ(document.CurrentPage, PageOfTab(document, document.CurrentTab));
        EXPECT_EQ(document.NoOfPages * 24, document.TabCount);
        EXPECT_EQ(program.Stored("Settings", "No Of Pages"), std::to_string(document.NoOfPages));
        const std::string after = State();
        history.Undo(main.State());
        EXPECT_EQ(State(), start);
        EXPECT_FALSE(history.CanUndo() || document.DocChanged);
        history.Redo(main.State());
        EXPECT_EQ(State(), after);
    }
}

TEST_F(ArrangingTest, WithoutAnEditorOrATabNothingHappens) {
    MakeNumbered(1, 24);
    for (const Command& command : std::initializer_list<Command>{InsertTabs, RemoveTabs, MoveTabsUp, MoveTabsDown,
                                                                 FillDown, DeleteTabs, CopyTabs, CutTabs})
        command(main);
    PasteBlock(main, {}, 0, "a\tb\n");
    EXPECT_EQ(Tabs(), "1-24");
    EXPECT_FALSE(history.CanUndo());
}

TEST_F(ArrangingTest, WhatWasTypedLastGoesAlong) {
    MakeNumbered(2, 48);
    document.CurrentPage = 2;
    for (int slot = 0; slot < 24; ++slot)
        editor.texts.push_back({"typed", "typed", ""});
    editor.marked = {25};
    MoveTabsDown(main);
    EXPECT_EQ(document.FieldA(25) + document.FieldC(25), "typed26");
}

TEST_F(ArrangingTest, FillingCutAndDeleteKeepFieldsNotInUse) {
    MakeNumbered(1, 24);
    const auto texts = [&](int tab) { return document.FieldA(tab) + document.FieldB(tab) + document.FieldC(tab); };
    editor.marked = {3, 5, 6};
    FillDown(main);
    EXPECT_EQ(texts(4) + "|" + texts(5) + "|" + texts(6), "444|335|336");
    editor.marked = {10};
    FillDown(main);
    EXPECT_EQ(texts(10), "9910");
    editor.marked = {1};
    FillDown(main);
    EXPECT_EQ(history.UndoName(), "Fill Down");
    history.Undo(main.State());
    EXPECT_EQ(texts(10), "101010");
    editor.marked = {7, 24};
    DeleteTabs(main);
    DeleteTabs(main); // nothing left to delete: no step
    EXPECT_EQ(texts(7) + "|" + texts(8) + "|" + texts(24), "7|888|24");
    history.Undo(main.State());
    EXPECT_EQ(CutTabs(main), "7\t7\n24\t24\n");
    EXPECT_EQ(texts(7) + history.UndoName(), "7Cut");
    history.Undo(main.State());
    EXPECT_EQ(texts(7), "777");
}

TEST_F(ArrangingTest, ACopyIsKeptBeforeTextsAreLostAndOnlyThen) {
    const auto sort = [](MainModule& all) { SortTabs(all, {0, true, false}); };
    const auto duplicates = [](MainModule& all) { RemoveDuplicates(all, {true, false, false}); };
    const auto paste = [](MainModule& all) { PasteBlock(all, {2}, 0, "x\ty\n"); };
    int number = 0;
    for (const auto& [command, loses] : std::initializer_list<std::pair<Command, bool>>{{RemoveTabs, true},
                                                                                        {FillDown, true},
                                                                                        {CutTabs, true},
                                                                                        {DeleteTabs, true},
                                                                                        {paste, true},
                                                                                        {duplicates, true},
                                                                                        {InsertTabs, false},
                                                                                        {MoveTabsUp, false},
                                                                                        {sort, false},
                                                                                        {DuplicatePage, false}}) {
        MakeNumbered(1, 23);
        document.FieldA(2) = "1";
        document.FieldB(2) = "to be lost";
        document.DocChanged = true;
        editor.marked = {2};
        const fs::path folder = program.folder / std::to_string(++number);
        main.recovery.Open(folder, std::chrono::system_clock::now);
        command(main);
        std::string kept;
        for (const auto& file : fs::is_directory(folder) ? fs::directory_iterator(folder) : fs::directory_iterator())
            kept += ReadFile(file.path());
        EXPECT_EQ(kept.find("to be lost") != std::string::npos, loses) << number;
    }
}

TEST_F(ArrangingTest, TheMostPagesAreToldAndNothingChanges) {
    MakeNumbered(1365, 32760);
    editor.marked = {5};
    for (const Command& command : std::initializer_list<Command>{
             InsertTabs, InsertPage, DuplicatePage, [](MainModule& all) { PasteBlock(all, {32760}, 0, "a\nb\n"); }}) {
        program.ui.Expect("The maximum number of pages for this type on label is:1365", Icon::Information);
        command(main);
    }
    EXPECT_EQ(Tabs(), "1-32760");
    EXPECT_FALSE(history.CanUndo() || document.DocChanged);
}

TEST_F(ArrangingTest, SortingKnowsNumbersBlanksAndDirections) {
    const std::vector<std::string> texts = {"No.10", "b", "", "No.9", " a", "B", "", "no.09", "A"};
    for (const auto& [request, sorted] : std::initializer_list<std::pair<SortRequest, const char*>>{
             {{0, false, false}, " a|A|b|B|No.9|no.09|No.10|||"}, {{0, true, false}, "No.10|no.09|No.9|b|B| a|A|||"}}) {
        SetTexts(texts);
        document.FieldB(7) = "not empty";
        SortTabs(main, request, NaturalOrder(std::locale::classic()));
        EXPECT_EQ(Texts(9), sorted);
        EXPECT_EQ(document.FieldB(8), "not empty") << "before the empty tabs";
    }
}

TEST_F(ArrangingTest, DuplicatesGoWithThePagesThatTheyLeaveEmpty) {
    const auto fill = [&](int pages) {
        SetTexts({"a", "b", " a ", "A", "", "", "b"}, pages);
        document.FieldB(3) = "other";
        document.FieldC(7) = "not in use";
        document.FieldA(25) = "b";
    };
    fill(3);
    EXPECT_EQ(RemoveDuplicates(main, {true, true, false}), 2);
    EXPECT_EQ(Texts(6), "a|b| a |A|||");
    EXPECT_EQ(document.NoOfPages, 2) << "the last page was empty before";
    EXPECT_EQ(document.CurrentPage, 1);
    EXPECT_EQ(program.Stored("Settings", "No Of Pages"), "2");
    fill(2);
    document.CurrentPage = 2;
    document.CurrentTab = 30;
    EXPECT_EQ(RemoveDuplicates(main, {true, false, false}), 3);
    EXPECT_EQ(Texts(6), "a|b|A||||");
    EXPECT_EQ(document.CurrentTab, 24) << "its page has gone";
    EXPECT_EQ(RemoveDuplicates(main, {true, false, false}), 0);
    EXPECT_EQ(history.UndoName(), "Remove Duplicates");
}

TEST_F(ArrangingTest, WhatIsCopiedComesBackByPasting) {
    SetTexts({"plain", "say \"x\"", "a\tb", "", "two\nlines"}, 1, 3);
    document.FieldB(4) = "\"";
    document.FieldC(4) = "c";
    editor.marked = TabsFrom(1, 5);
    const std::string text = CopyTabs(main);
    EXPECT_EQ(text, "plain\t\t\n\"say \"\"x\"\"\"\t\t\n\"a\tb\"\t\t\n\t\"\"\"\"\tc\n\"two\nlines\"\t\t\n");
    PasteBlock(main, {11}, 1, text); // a block of all fields begins in the first
    for (int tab = 1; tab <= 5; ++tab)
        for (int field = 0; field < 3; ++field)
            EXPECT_EQ(document.Field(field)(10 + tab), tab == 5 && field == 0   ? "two lines"
                                                       : tab == 3 && field == 0 ? "a b"
                                                                                : document.Field(field)(tab));
    EXPECT_EQ(editor.marked, TabsFrom(11, 5));
    SetTexts({"say \"x\""}, 1, 1);
    editor.marked = {1};
    EXPECT_EQ(CopyTabs(main), "say \"x\"") << "as it stands, for any text box";
}

TEST_F(ArrangingTest, ABlockGoesWhereItWouldInASpreadsheet) {
    struct Case {
        TabNumbers marked;
        int field;
        std::string text;
        const char* question; ///< empty: none
        const char* tabs;     ///< field A and B of some tabs afterwards
        int pages = 1;
    };
    const Case cases[] = {
        {{2}, 1, "x\ny\n", "", "1,1 2,x 3,y 4,4"},
        {{2, 4}, 1, "x\n", "", "1,1 2,x 3,3 4,x"},
        {{2, 4}, 0, "x\ty\n", "", "1,1 x,y 3,3 x,y"},
        {{2, 4}, 0, "x\ny\nz", "", "1,1 x,2 y,3 z,4"},
        {{24}, 0, "1\n\n\n\t \n", "", "1,1 2,2 3,3 4,4"},
        {{1},
         0,
         "x\ty\tz\n",
         "Texts without a field to go to, which will be left out: 1\r\nDo you want to paste the rest?",
         "x,y 2,2 3,3 4,4"},
        {{24}, 0, std::string(24, '\n') + "x", "Add 1 page?", "1,1 2,2 3,3 4,4", 2},
        {{1},
         0,
         "a\tb\tc\n" + std::string(47, '\n') + std::string(21, 'x'),
         "Texts without a field to go to, which will be left out: 1\r\nTexts over the length of their field, which "
         "will "
         "be cut: 1\r\nDo you want to add 2 pages and paste the rest?",
         "a,b ,2 ,3 ,4",
         3},
    };
    for (const Case& row : cases)
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            SCOPED_TRACE(row.text + " " + row.question);
            MakeNumbered(1, 24);
            if (*row.question)
                program.ui.Expect(row.question, Icon::Question, Buttons::YesNo, answer);
            const std::string start = State();
            PasteBlock(main, row.marked, row.field, row.text);
            if (*row.question && answer == Answer::No) {
                EXPECT_EQ(State(), start);
                continue;
            }
            std::string tabs;
            for (int tab = 1; tab <= 4; ++tab)
                tabs += (tab > 1 ? " " : "") + document.FieldA(tab) + "," + document.FieldB(tab);
            EXPECT_EQ(tabs, row.tabs);
            EXPECT_EQ(document.NoOfPages, row.pages);
            EXPECT_EQ(program.Stored("Settings", "No Of Pages"), std::to_string(row.pages));
            history.Undo(main.State());
            EXPECT_EQ(State(), start);
        }
}

TEST_F(ArrangingTest, WhatIsTypedLeadsToPagesTabsAndTexts) {
    SetTexts({"Archive", "\u00c9t\u00e9 26", "p 1"}, 2);
    document.FieldB(1) = "26";
    document.FieldC(4) = "26";
    const auto places = [&](const char* typed) {
        std::string all;
        for (const FoundPlace& place : PlacesFor(document, typed))
            all += place.caption + "/" + std::to_string(place.box.tab) + "." + std::to_string(place.box.field) + "+" +
                   std::to_string(place.at) + ";";
        return all;
    };
    EXPECT_EQ(places(" 2 "), "Page 2/25.0+0;Tab 2: \u00c9t\u00e9 26/2.0+0;Tab 1: Archive, 26/1.1+0;"
                             "Tab 2: \u00c9t\u00e9 26/2.0+6;");
    EXPECT_EQ(places("26"), "Tab 26/26.0+0;Tab 1: Archive, 26/1.1+0;Tab 2: \u00c9t\u00e9 26/2.0+6;");
    EXPECT_EQ(places("P 1"), "Page 1/1.0+0;Tab 3: p 1/3.0+0;");
    EXPECT_EQ(places("page2"), "Page 2/25.0+0;");
    EXPECT_EQ(places("t 48"), "Tab 48/48.0+0;");
    EXPECT_EQ(places("\u00e9T\u00c9"), "Tab 2: \u00c9t\u00e9 26/2.0+0;");
    for (const char* nowhere : {"", " ", "p 3", "tab 49", "0", "-1", "99999999999999999999", "zzz"})
        EXPECT_EQ(places(nowhere), "") << nowhere;
    EXPECT_EQ(PlacesFor(document, "26", 2).size(), 2U);
}

} // namespace
} // namespace velmora
