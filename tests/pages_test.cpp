// Pages of the document: moves, adding, deleting and cleaning, with their questions.
#include "tests/support/Documents.h"
#include "tests/support/TestProgram.h"
#include "workspace/Pages.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

struct PagesTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    TabDocument& document = program.main.document;

    void MakeDocument(int pages, int fields = 1, int type = 0) {
        MakePages(program.main, pages, fields, type,
                  [](int field, int tab) { return field == 0 ? std::to_string(tab) : ""; });
    }
    void Ask(const char* question, Answer answer) {
        program.ui.Expect(question, Icon::Question, Buttons::YesNo, answer, Answer::No);
    }
};

constexpr const char* kAddQuestion = "You are at the last page of this document.  Do you want to add a page?";
constexpr const char* kDeleteQuestion = "Do you want to delete the current page?";

TEST_F(PagesTest, MovesStayWithinTheDocument) {
    MakeDocument(3);
    PreviousPage(program.main);
    EXPECT_EQ(document.CurrentPage, 1);
    NextPage(program.main);
    EXPECT_EQ(document.CurrentPage, 2);
    LastPage(program.main);
    Ask(kAddQuestion, Answer::No);
    NextPage(program.main);
    EXPECT_EQ(document.NoOfPages, 3);
    EXPECT_FALSE(document.DocChanged);
    Ask(kAddQuestion, Answer::Yes);
    NextPage(program.main);
    EXPECT_EQ(document.CurrentPage, 4);
    EXPECT_EQ(document.TabCount, 96);
    EXPECT_EQ(document.FieldA(72), "72");
    EXPECT_EQ(document.FieldA(73), "");
    EXPECT_EQ(program.Stored("Settings", "No Of Pages"), "4");
    EXPECT_TRUE(document.DocChanged);
}

TEST_F(PagesTest, OnePageTooManyIsAnOverflowForEveryType) {
    for (const auto& [type, most] : {std::pair(0, 1365), std::pair(1, 682), std::pair(2, 1213), std::pair(3, 606),
                                     std::pair(4, 1560), std::pair(5, 2730)}) {
        MakeDocument(most, 1, type);
        program.ui.Expect("Overflow\r\nCalled from Sub: AddPage", Icon::Critical);
        AddPage(program.main);
        EXPECT_EQ(document.NoOfPages, most);
        EXPECT_EQ(document.FieldA(document.TabCount), std::to_string(document.TabCount));
        EXPECT_FALSE(document.DocChanged);
    }
    document.NoOfPages = 2731;
    program.ui.Expect("The maximum number of pages for this type on label is:2730", Icon::Information);
    AddPage(program.main);
    EXPECT_EQ(program.ui.beeps, 1);
}

TEST_F(PagesTest, DeletingKeepsThePagesAround) {
    MakeDocument(3);
    document.CurrentPage = 2;
    Ask(kDeleteQuestion, Answer::No);
    DeletePage(program.main);
    EXPECT_EQ(document.NoOfPages, 3);
    Ask(kDeleteQuestion, Answer::Yes);
    DeletePage(program.main);
    EXPECT_EQ(document.CurrentPage, 1);
    EXPECT_EQ(document.TabCount, 48);
    EXPECT_EQ(document.FieldA(24), "24");
    EXPECT_EQ(document.FieldA(25), "49");
    EXPECT_EQ(document.FieldB.Count(), 48);
    EXPECT_EQ(program.Stored("Settings", "No Of Pages"), "2");
    program.main.globals.AskBeforeDelete = false;
    DeletePage(program.main); // the first page, without a question
    EXPECT_EQ(document.CurrentPage, 1);
    EXPECT_EQ(document.FieldA(1), "49");
    program.ui.Expect("You can not delete the only page in this document.", Icon::Information);
    DeletePage(program.main);
}

TEST_F(PagesTest, CleaningPacksWhatIsFilled) {
    MakeDocument(3, 2);
    for (int tab = 1; tab <= 72; ++tab)
        document.FieldA(tab) = tab % 3 == 0 ? std::to_string(tab) : "  ";
    document.FieldB(2) = "b";
    document.FieldC(4) = "not in use";
    CleanLabels(program.main);
    EXPECT_EQ(document.NoOfPages, 2);
    EXPECT_EQ(document.CurrentPage, 2);
    EXPECT_EQ(document.FieldB(1), "b");
    EXPECT_EQ(document.FieldA(2), "3");
    EXPECT_EQ(document.FieldA(25), "72");
    for (int tab = 26; tab <= 48; ++tab)
        EXPECT_EQ(document.FieldA(tab) + document.FieldB(tab) + document.FieldC(tab), "") << tab;
    for (int tab = 1; tab <= 48; ++tab)
        document.FieldA(tab) = document.FieldB(tab) = "";
    CleanLabels(program.main);
    EXPECT_EQ(document.NoOfPages, 1) << "one page always stays";
    document.TabCount = 0;
    program.ui.Expect("No Tabs to clean.", Icon::Information);
    CleanLabels(program.main);
}

} // namespace
} // namespace velmora
