// Pages of the document: moves, adding, deleting and cleaning, with their questions.
#include "tests/support/Documents.h"
#include "tests/support/ProgramTest.h"
#include "workspace/Pages.h"

namespace velmora {
namespace {

struct PagesTest : ProgramTest {
    void MakeDocument(int pages, int fields = 1, int type = 0) {
        MakePages(main, pages, fields, type, [](int field, int tab) { return field == 0 ? std::to_string(tab) : ""; });
    }
};

TEST_F(PagesTest, MovesStayWithinTheDocument) {
    const char* question = "You are at the last page of this document.  Do you want to add a page?";
    MakeDocument(3);
    PreviousPage(main);
    EXPECT_EQ(document.CurrentPage, 1);
    NextPage(main);
    EXPECT_EQ(document.CurrentPage, 2);
    LastPage(main);
    Ask(question, Answer::No, Answer::No);
    NextPage(main);
    EXPECT_TRUE(document.NoOfPages == 3 && !document.DocChanged);
    Ask(question, Answer::Yes, Answer::No);
    NextPage(main);
    ExpectWholePages(4);
    EXPECT_EQ(document.CurrentPage, 4);
    EXPECT_EQ(document.FieldA(72) + document.FieldA(73), "72");
    EXPECT_TRUE(document.DocChanged);
}

TEST_F(PagesTest, OnePageTooManyIsAnOverflow) {
    for (const auto& [type, most] : {std::pair(0, 1365), std::pair(3, 606), std::pair(5, 2730)}) {
        MakeDocument(most, 1, type);
        Fail("Overflow\r\nCalled from Sub: AddPage");
        AddPage(main);
        EXPECT_EQ(document.FieldA(document.TabCount), std::to_string(most * document.setup.TabsPerPage));
        EXPECT_FALSE(document.DocChanged);
    }
    document.NoOfPages = 2731;
    Tell("The maximum number of pages for this type on label is:2730");
    AddPage(main);
    EXPECT_EQ(program.ui.beeps, 1);
}

TEST_F(PagesTest, DeletingKeepsThePagesAround) {
    const char* question = "Do you want to delete the current page?";
    MakeDocument(3);
    document.CurrentPage = 2;
    Ask(question, Answer::No, Answer::No);
    DeletePage(main);
    EXPECT_EQ(document.NoOfPages, 3);
    Ask(question, Answer::Yes, Answer::No);
    DeletePage(main);
    ExpectWholePages(2);
    EXPECT_EQ(document.CurrentPage, 1);
    EXPECT_EQ(document.FieldA(24) + " " + document.FieldA(25), "24 49");
    main.globals.AskBeforeDelete = false;
    DeletePage(main); // the first page, without a question
    EXPECT_EQ(document.CurrentPage, 1);
    EXPECT_EQ(document.FieldA(1), "49");
    Tell("You can not delete the only page in this document.");
    DeletePage(main);
}

TEST_F(PagesTest, CleaningPacksWhatIsFilled) {
    MakeDocument(3, 2);
    for (int tab = 1; tab <= 72; ++tab)
        document.FieldA(tab) = tab % 3 == 0 ? std::to_string(tab) : "  ";
    document.FieldB(2) = "b";
    document.FieldC(4) = "not in use";
    CleanLabels(main);
    ExpectWholePages(2);
    EXPECT_EQ(document.CurrentPage, 2);
    EXPECT_EQ(document.FieldB(1) + document.FieldA(2) + document.FieldA(25), "b372");
    for (int tab = 26; tab <= 48; ++tab)
        EXPECT_EQ(document.FieldA(tab) + document.FieldB(tab) + document.FieldC(tab), "") << tab;
    for (int tab = 1; tab <= 48; ++tab)
        document.FieldA(tab) = document.FieldB(tab) = "";
    CleanLabels(main);
    EXPECT_EQ(document.NoOfPages, 1) << "one page always stays";
    document.TabCount = 0;
    Tell("No Tabs to clean.");
    CleanLabels(main);
}

} // namespace
} // namespace velmora
