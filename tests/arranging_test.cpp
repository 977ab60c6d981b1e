// Tabs and pages among each other: inserted, removed, moved, filled, sorted, copied, pasted, found.
#include "base/AtomicFile.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/UndoTest.h"
#include "workspace/ArrangePages.h"
#include "workspace/ArrangeTabs.h"
#include "workspace/CopyTabs.h"
#include "workspace/GoToPlace.h"
#include "workspace/Pages.h"
#include "workspace/PasteBlock.h"
#include "workspace/RemoveDuplicates.h"
#include "workspace/SortTabs.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

using Command = std::function<void(MainModule&)>;

Command Sort(SortRequest request) {
    return [request](MainModule& main) { SortTabs(main, request, NaturalOrder(std::locale::classic())); };
}
Command MoveTo(std::int16_t page) {
    return [page](MainModule& main) { MovePage(main, page); };
}
void RemoveEqualA(MainModule& main) {
    RemoveDuplicates(main, {true, false, false});
}
void PasteTwo(MainModule& main) {
    PasteBlock(main, 0, "x\ny\n");
}

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
    const Case cases[] = {{"Insert Tab", InsertTabs, 48, {2, 30}, "1 .2 2-48 .22", {2, 3}},
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
                          {"Move Page", MoveTo(2), 48, {2}, "25-48 1-24", {25}},
                          {"Move Page", MoveTo(1), 48, {30}, "25-48 1-24", {1}},
                          {"", MoveTo(2), 48, {30}, "1-48", {30}},
                          {"Sort", Sort({0, true, true}), 26, {30}, "1-24 26 25 .22", {30}},
                          {"", Sort({1, false, false}), 30, {2}, "1-30 .18", {2}}};
    for (const Case& row : cases) {
        SCOPED_TRACE(std::string(row.name) + " to " + row.tabs);
        MakeNumbered(2, row.filled);
        const std::string start = State();
        editor.marked = row.marked;
        editor.calls.clear();
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
        EXPECT_EQ(editor.calls, document.NoOfPages == 2 ? "up " : "down up ") << "no page that is gone is taken back";
        ExpectWholePages(document.TabCount / 24);
        const std::string after = State();
        UndoChange(main);
        EXPECT_EQ(State(), start);
        EXPECT_EQ(editor.marked, TabNumbers{row.marked.front()});
        EXPECT_FALSE(history.CanUndo() || document.DocChanged);
        history.Redo(main.State());
        EXPECT_EQ(State(), after);
    }
}

TEST_F(ArrangingTest, NothingHappensWithoutATabNorBeyondTheMostPages) {
    MakeNumbered(1, 24);
    for (const auto command : {InsertTabs, RemoveTabs, MoveTabsUp, MoveTabsDown, FillDown, DeleteTabs, PasteTwo})
        command(main);
    EXPECT_EQ(CutTabs(main) + Tabs(), "1-24");
    EXPECT_FALSE(history.CanUndo());
    MakeNumbered(1365, 32760);
    editor.marked = {32760};
    for (const auto command : {InsertTabs, InsertPage, DuplicatePage, PasteTwo}) {
        Tell("The maximum number of pages for this type on label is:1365");
        command(main);
    }
    EXPECT_EQ(Tabs(), "1-32760");
    EXPECT_FALSE(history.CanUndo() || document.DocChanged);
}

TEST_F(ArrangingTest, WhatWasTypedLastGoesAlong) {
    for (const Command& command :
         {Command(InsertTabs), Command(MoveTabsDown), Command(DuplicatePage), Command(InsertPage), MoveTo(1),
          Sort({0, true, false}), Command(RemoveEqualA), Command(PasteTwo)}) {
        MakeNumbered(2, 48);
        history.KeepSteps(0); // the document's mark does not need them
        document.CurrentPage = 2;
        editor.texts.assign(24, {"typed", "typed", ""});
        editor.marked = {25};
        command(main);
        EXPECT_NE(Texts(document.TabCount).find("|typed|"), std::string::npos);
        EXPECT_TRUE(document.DocChanged);
    }
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
    InsertTabs(main);
    EXPECT_EQ(texts(26), "24") << "not pushed out";
}

TEST_F(ArrangingTest, ACopyIsKeptBeforeTextsAreLostAndOnlyThen) {
    const std::vector<Command> commands = {RemoveTabs,   FillDown,   CutTabs,    DeleteTabs,    PasteTwo,
                                           RemoveEqualA, InsertTabs, MoveTabsUp, DuplicatePage, Sort({0, true, false})};
    for (std::size_t number = 0; number < commands.size(); ++number) {
        MakeNumbered(1, 23);
        document.FieldA(2) = "1";
        document.FieldB(2) = "to be lost";
        document.DocChanged = true;
        editor.marked = {2};
        const fs::path folder = program.folder / std::to_string(number);
        main.recovery.Open(folder, std::chrono::system_clock::now);
        commands[number](main);
        std::string kept;
        for (const auto& file : fs::is_directory(folder) ? fs::directory_iterator(folder) : fs::directory_iterator())
            kept += ReadFile(file.path());
        EXPECT_EQ(kept.find("to be lost") != std::string::npos, number < 6) << number;
    }
}

TEST_F(ArrangingTest, SortingKnowsNumbersBlanksAndDirections) {
    const std::vector<std::string> texts = {"No.10", "b", "", "No.9", " a", "B", "", "no.09", "A"};
    for (const bool descending : {false, true}) {
        SetTexts(texts, 2);
        document.FieldB(7) = "not empty";
        document.CurrentTab = 3; // not on the page shown
        document.CurrentPage = 2;
        Sort({0, descending, false})(main);
        EXPECT_EQ(Texts(9), descending ? "No.10|no.09|No.9|b|B| a|A|||" : " a|A|b|B|No.9|no.09|No.10|||");
        EXPECT_EQ(document.FieldB(8), "not empty") << "before the empty tabs";
        EXPECT_EQ(document.CurrentTab, 25);
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
    ExpectWholePages(2); // the last of three was empty before
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
    editor.marked = {11};
    PasteBlock(main, 1, text); // a block of all fields begins in the first
    EXPECT_EQ(editor.marked, TabsFrom(11, 5));
    editor.marked = TabsFrom(11, 5);
    EXPECT_EQ(CopyTabs(main), "plain\t\t\n\"say \"\"x\"\"\"\t\t\na b\t\t\n\t\"\"\"\"\tc\ntwo lines\t\t\n");
    SetTexts({"say \"x\""}, 1, 1);
    editor.marked = {1};
    EXPECT_EQ(CopyTabs(main), "say \"x\"") << "as it stands, for any text box";
}

TEST_F(ArrangingTest, ABlockGoesWhereItWouldInASpreadsheet) {
    struct Case {
        TabNumbers marked;
        int field;
        std::string text, question; ///< none: empty
        const char* tabs;           ///< field A and B of some tabs afterwards
        int pages = 1;
    };
    const std::string leftOut = "Texts without a field to go to, which will be left out: 1\r\n";
    const std::string more = leftOut + "Texts over the length of their field, which will be cut: 1\r\n"
                                       "Do you want to add 2 pages and paste the rest?";
    const std::string large = "a\tb\tc\n" + std::string(47, '\n') + std::string(21, 'x');
    const Case cases[] = {{{2}, 1, "x\ny\n", "", "1,1 2,x 3,y 4,4"},
                          {{2, 4}, 1, "x\n", "", "1,1 2,x 3,3 4,x"},
                          {{2, 4}, 0, "x\ty\n", "", "1,1 x,y 3,3 x,y"},
                          {{2, 4}, 0, "x\ny\nz", "", "1,1 x,2 y,3 z,4"},
                          {{24}, 0, "1\n\n\n\t \n", "", "1,1 2,2 3,3 4,4"},
                          {{1}, 0, "x\ty\tz\n", leftOut + "Do you want to paste the rest?", "x,y 2,2 3,3 4,4"},
                          {{24}, 0, std::string(24, '\n') + "x", "Add 1 page?", "1,1 2,2 3,3 4,4", 2},
                          {{1}, 0, large, more, "a,b ,2 ,3 ,4", 3}};
    for (const Case& row : cases)
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            SCOPED_TRACE(row.text + " " + row.question);
            MakeNumbered(1, 24);
            if (!row.question.empty())
                Ask(row.question, answer);
            const std::string start = State();
            editor.marked = row.marked;
            PasteBlock(main, row.field, row.text);
            if (!row.question.empty() && answer == Answer::No) {
                EXPECT_EQ(State(), start);
                continue;
            }
            std::string tabs;
            for (int tab = 1; tab <= 4; ++tab)
                tabs += document.FieldA(tab) + "," + document.FieldB(tab) + (tab < 4 ? " " : "");
            EXPECT_EQ(tabs, row.tabs);
            ExpectWholePages(row.pages);
            history.Undo(main.State());
            EXPECT_EQ(State(), start);
        }
}

TEST_F(ArrangingTest, WhatIsTypedLeadsToPagesTabsAndTexts) {
    SetTexts({"Archive", "\u00c9t\u00e9 26", "p 1"}, 2);
    document.FieldB(1) = document.FieldB(2) = "26";
    document.FieldC(4) = "26";
    const auto places = [&](const char* typed) {
        std::string all;
        for (const FoundPlace& place : PlacesFor(document, typed))
            all += place.caption + "/" + std::to_string(place.box.tab) + "." + std::to_string(place.box.field) + "+" +
                   std::to_string(place.at) + ";";
        return all;
    };
    EXPECT_EQ(places(" 2 "), "Page 2/25.0+0;Tab 2: \u00c9t\u00e9 26, 26/2.0+0;Tab 1: Archive, 26/1.1+0;");
    EXPECT_EQ(places("26"), "Tab 26/26.0+0;Tab 1: Archive, 26/1.1+0;Tab 2: \u00c9t\u00e9 26, 26/2.0+6;");
    EXPECT_EQ(places("P 1"), "Page 1/1.0+0;Tab 3: p 1/3.0+0;");
    EXPECT_EQ(places("page2"), "Page 2/25.0+0;");
    EXPECT_EQ(places("t 48"), "Tab 48/48.0+0;");
    EXPECT_EQ(places("\u00e9T\u00c9"), "Tab 2: \u00c9t\u00e9 26, 26/2.0+0;");
    for (const char* nowhere : {"", " ", "p 3", "tab 49", "0", "-1", "99999999999999999999", "zzz"})
        EXPECT_EQ(places(nowhere), "") << nowhere;
    EXPECT_EQ(PlacesFor(document, "26", 2).size(), 2U);
}

} // namespace
} // namespace velmora
