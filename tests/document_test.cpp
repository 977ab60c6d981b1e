// The tab document in memory: catalogue, whole pages, configuration and status.
#include "base/Error.h"
#include "tests/support/TestProgram.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Globals.h"
#include "workspace/OpenDocument.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

struct DocumentTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    TabDocument& document = program.main.document;

    void Fill(int tabs) {
        for (int field = 0; field < 3; ++field)
            document.Field(field).ReDim(tabs);
        document.TabCount = tabs;
        for (int tab = 1; tab <= tabs; ++tab)
            document.FieldA(tab) = "tab " + std::to_string(tab);
    }
};

TEST(Fields, LinesArePaddedToTheirFields) {
    std::string line = "abc";
    EXPECT_EQ(PadFields(line, 3), 3);
    EXPECT_EQ(line, "abc,,");
    line = "a,b,c,d";
    EXPECT_EQ(PadFields(line, 3), 4);
    EXPECT_EQ(line, "a,b,c,d");
    EXPECT_EQ(CountFields(",,"), 3);
    EXPECT_EQ(CountFields(""), 1);
}

TEST(Fields, RangesAreCopiedWithinTheArraysOnly) {
    FieldTexts source, target;
    source.ReDim(3);
    target.ReDim(2);
    source(2) = "b";
    source(3) = "c";
    CopyTabRange(source, 2, 3, target, 1);
    EXPECT_EQ(target(2), "c");
    CopyTabRange(source, 3, 2, target, 99);
    EXPECT_THROW(CopyTabRange(source, 3, 4, target, 1), SubscriptError);
    EXPECT_THROW(CopyTabRange(source, 0, 1, target, 1), SubscriptError);
    EXPECT_THROW(CopyTabRange(source, 1, 3, target, 1), SubscriptError);
}

TEST_F(DocumentTest, PartPagesBecomeWholeOnes) {
    Fill(25);
    document.CurrentTab = 2;
    document.CurrentPage = 5;
    ApplyTabType(program.main);
    EXPECT_TRUE(document.NoOfPages == 2 && document.CurrentPage == 2);
    EXPECT_TRUE(document.TabCount == 48 && document.FieldC.Count() == 48);
    EXPECT_EQ(document.FieldA(25) + document.FieldA(26), "tab 25");
    EXPECT_EQ(program.Stored("Settings", "No Of Pages"), "2");
    Fill(25);
    document.CurrentTab = 1;
    ApplyTabType(program.main);
    EXPECT_EQ(document.FieldA(1), "") << "at the first tab a new size empties the document";
    Fill(48);
    ApplyTabType(program.main);
    EXPECT_EQ(document.FieldA(1), "tab 1") << "no resize, so nothing is lost";
}

TEST_F(DocumentTest, TooManyTabsAreAnOverflowAndChangeNothing) {
    Fill(32761);
    document.CurrentTab = 2;
    EXPECT_THROW(ApplyTabType(program.main), OverflowError);
    EXPECT_TRUE(document.TabCount == 32761 && document.NoOfPages == 0);
    document.setup.OptType = 9;
    EXPECT_THROW(ApplyTabType(program.main), Error);
}

TEST_F(DocumentTest, AFirstStartFillsTheIniFile) {
    ASSERT_EQ(LoadGlobals(program.main), LoadOutcome::Loaded);
    const std::tuple<const char*, const char*, const char*> defaults[] = {
        {"Settings", "Ask before delete", "True"},
        {"Settings", "Start with setup", "True"},
        {"Settings", "Stationery Type", "A4"},
        {"Settings", "Page Size", "A4"},
        {"Settings", "OptType", "0"},
        {"Settings", "Printer", "Velmora PDF"},
        {"Settings", "No Of Fields", "3"},
        {"Font Settings", "Font Name 2", "Arial"},
        {"Font Settings", "Font Size 3", "10"},
        {"Font Settings", "Horizontal Alignment 2", "0"},
        {"Font Settings", "Horizontal Alignment 3", "1"},
        {"Font Settings", "Vertical Alignment 1", "1"}};
    for (const auto& [section, key, value] : defaults)
        EXPECT_EQ(program.Stored(section, key), value) << key;
    EXPECT_EQ(program.main.fonts[2].HorizontalAlignment, kAlignRight);
}

TEST_F(DocumentTest, UnacceptableValuesFallBackAndStayInTheFile) {
    for (const auto& [optType, fields, stationery] :
         {std::tuple("6", "4", "DL"), std::tuple("abc", "0", "A5"), std::tuple("-1", "", "dl_v")}) {
        program.Store("Settings", "OptType", optType);
        program.Store("Settings", "No Of Fields", fields);
        program.Store("Settings", "Stationery Type", stationery);
        LoadGlobals(program.main);
        EXPECT_EQ(document.setup.OptType, 0);
        EXPECT_EQ(document.setup.NoOfFields, 3);
        EXPECT_EQ(document.setup.StationeryType, "A4");
        EXPECT_EQ(program.Stored("Settings", "OptType"), optType);
    }
    program.Store("Settings", "Stationery Type", "DL_h");
    document = {};
    RefreshDocumentStatus(program.main);
    EXPECT_EQ(document.setup.StationeryType, "DL_h");
    EXPECT_EQ(document.setup.OptType, 0);
    EXPECT_EQ(document.setup.NoOfFields, 1) << "one field here, three for the configuration";
    program.Store("Settings", "No Of Fields", "3.9");
    LoadGlobals(program.main);
    EXPECT_EQ(document.setup.NoOfFields, 3);
}

TEST_F(DocumentTest, AnInvalidFontValueIsMendedInTheFile) {
    const std::tuple<const char*, const char*, const char*> rows[] = {{"Font Size 2", "abc", "10"},
                                                                      {"Font Size 1", "99999", "10"},
                                                                      {"Font Name 1", "  ", "Arial"},
                                                                      {"Font Bold 3", "maybe", "False"}};
    for (const auto& [key, stored, mended] : rows)
        program.Store("Font Settings", key, stored);
    LoadGlobals(program.main);
    EXPECT_EQ(program.main.fonts[1].Size, 10);
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

} // namespace
} // namespace velmora
