// The tab document in memory: whole pages, which are added, deleted and cleaned, configuration and status.
#include "base/Error.h"
#include "tests/support/Documents.h"
#include "tests/support/ProgramTest.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Globals.h"
#include "workspace/OpenDocument.h"
#include "workspace/Pages.h"

namespace velmora {
namespace {

struct DocumentTest : ProgramTest {
    void Fill(int tabs) {
        for (int field = 0; field < 3; ++field)
            document.Field(field).ReDim(tabs);
        document.TabCount = tabs;
        for (int tab = 1; tab <= tabs; ++tab)
            document.FieldA(tab) = "tab " + std::to_string(tab);
    }
};

TEST(Fields, LinesArePaddedAndRangesCopiedWithinTheArraysOnly) {
    for (const auto& [line, padded] : {std::pair("abc", "abc,,"), {"a,b,c,d", "a,b,c,d"}}) {
        std::string text = line;
        EXPECT_EQ(PadFields(text, 3), CountFields(padded));
        EXPECT_EQ(text, padded);
    }
    FieldTexts source, target;
    source.ReDim(3);
    target.ReDim(2);
    source(3) = "c";
    CopyTabRange(source, 2, 3, target, 1);
    EXPECT_EQ(target(2), "c");
    CopyTabRange(source, 3, 2, target, 99);
    for (const auto& [from, to] : {std::pair(3, 4), {0, 1}, {1, 3}})
        EXPECT_THROW(CopyTabRange(source, from, to, target, 1), SubscriptError) << from;
}

TEST_F(DocumentTest, PartPagesBecomeWholeOnes) {
    Fill(25);
    document.CurrentTab = 2;
    document.CurrentPage = 5;
    ApplyTabType(main);
    ExpectWholePages(2);
    EXPECT_EQ(document.CurrentPage, 2);
    EXPECT_EQ(document.FieldA(25) + document.FieldA(26), "tab 25");
    Fill(25);
    document.CurrentTab = 1;
    ApplyTabType(main);
    EXPECT_EQ(document.FieldA(1), "") << "at the first tab a new size empties the document";
    Fill(48);
    ApplyTabType(main);
    EXPECT_EQ(document.FieldA(1), "tab 1") << "no resize, so nothing is lost";
}

TEST_F(DocumentTest, TooManyTabsAreAnOverflowAndChangeNothing) {
    Fill(32761);
    document.CurrentTab = 2;
    EXPECT_THROW(ApplyTabType(main), OverflowError);
    EXPECT_TRUE(document.TabCount == 32761 && document.NoOfPages == 0);
    document.setup.OptType = 9;
    EXPECT_THROW(ApplyTabType(main), Error);
}

TEST_F(DocumentTest, UnacceptableValuesFallBackAndStayInTheFile) {
    for (const auto& [optType, fields, stationery] :
         {std::tuple("6", "4", "DL"), std::tuple("abc", "0", "A5"), std::tuple("-1", "", "dl_v")}) {
        program.Store("Settings", "OptType", optType);
        program.Store("Settings", "No Of Fields", fields);
        program.Store("Settings", "Stationery Type", stationery);
        LoadGlobals(main);
        EXPECT_TRUE(document.setup.OptType == 0 && document.setup.NoOfFields == 3);
        EXPECT_EQ(document.setup.StationeryType, "A4");
        EXPECT_EQ(program.Stored("Settings", "OptType"), optType);
    }
    program.Store("Settings", "Stationery Type", "DL_h");
    document = {};
    RefreshDocumentStatus(main);
    EXPECT_EQ(document.setup.StationeryType, "DL_h");
    EXPECT_TRUE(document.setup.OptType == 0 && document.setup.NoOfFields == 1)
        << "one field here, three for the configuration";
    program.Store("Settings", "No Of Fields", "3.9");
    LoadGlobals(main);
    EXPECT_EQ(document.setup.NoOfFields, 3);
}

TEST_F(DocumentTest, AnInvalidFontValueIsMendedInTheFile) {
    const std::tuple<const char*, const char*, const char*> rows[] = {{"Font Size 2", "abc", "10"},
                                                                      {"Font Size 1", "99999", "10"},
                                                                      {"Font Name 1", "  ", "Arial"},
                                                                      {"Font Bold 3", "maybe", "False"}};
    for (const auto& [key, stored, mended] : rows)
        program.Store("Font Settings", key, stored);
    LoadGlobals(main);
    EXPECT_EQ(main.fonts[1].Size, 10);
    for (const auto& [key, stored, mended] : rows)
        EXPECT_EQ(program.Stored("Font Settings", key), mended) << key;
}

TEST(NoPrinter, EndsTheProgramWithItsMessage) {
    TestProgram program([](const std::string& text) { ADD_FAILURE() << text; }, false);
    program.ui.Expect("You must first install a default printer before you can use this application.\r\n"
                      "The execution of this application will be aborted.",
                      Icon::Critical);
    EXPECT_EQ(LoadGlobals(program.main), LoadOutcome::NoPrinter);
    program.Store("Settings", "Printer", "Office");
    EXPECT_EQ(LoadGlobals(program.main), LoadOutcome::Loaded);
}

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
