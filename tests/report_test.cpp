// The tab report: where every text of a sheet stands, as numbers.
#include "base/Error.h"
#include "report/rptVelmor.h"
#include "tests/support/TestProgram.h"

#include <gtest/gtest.h>

#include <numeric>

namespace velmora {
namespace {

struct ReportTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    LayoutValues layout;
    FontSettings fonts;
    TabDocument document;

    void MakeDocument(int type, int fields, int pages = 1) {
        document.setup.OptType = static_cast<std::int16_t>(type);
        document.setup.NoOfFields = static_cast<std::int16_t>(fields);
        document.TabCount = 0;
        document.CurrentTab = 2;
        NormalisePages(document);
        document.TabCount = pages * document.setup.TabsPerPage;
        for (int field = 0; field < 3; ++field)
            document.Field(field).ReDim(document.TabCount);
        NormalisePages(document);
        for (int tab = 1; tab <= document.TabCount; ++tab)
            for (int field = 0; field < 3; ++field)
                document.Field(field)(tab) = std::string(1, static_cast<char>('a' + field)) + std::to_string(tab);
    }

    Sheet LayOut(int number = 1, const char* mode = "PRINT", bool pageOnly = false) {
        rptVelmor report(layout);
        report.InitArray(mode, pageOnly ? document.setup.TabsPerPage : document.TabCount, document.setup.RowsPerPage,
                         document.setup.ColsPerPage, document.setup.NoOfFields, pageOnly, document);
        report.PrepareTabStyle(document.setup.OptType, program.settings);
        report.FormatFields(document.setup.NoOfFields, document.setup.ColsPerPage, document.setup.OptType, fonts);
        report.SetPage(SheetPaper("A4", "A4"), ReadPageMargins(program.settings));
        Sheet sheet;
        report.LayOutSheet(number, sheet);
        return sheet;
    }
};

void ExpectBox(const Box& box, double left, double top, double width, double height) {
    EXPECT_NEAR(box.left, left, 0.001);
    EXPECT_NEAR(box.top, top, 0.001);
    EXPECT_NEAR(box.width, width, 0.001);
    EXPECT_NEAR(box.height, height, 0.001);
}

TEST_F(ReportTest, AStoredTabTopHoldsForAllStylesThatShareIt) {
    MakeDocument(0, 1);
    LayOut();
    MakeDocument(2, 1);
    ExpectBox(LayOut().texts[0].box, 0, 20 * 56.7, 3402, 567); // printing style 0 before has stored nothing
    program.Store("Settings", "Tab Top A4_1", "15.5");
    for (const int type : {0, 1, 2, 3}) {
        MakeDocument(type, 1);
        EXPECT_NEAR(LayOut().texts[0].box.top, 15.5 * 56.7, 0.001);
    }
    program.Store("Settings", "Tab Top DL_2", "x");
    MakeDocument(5, 1);
    EXPECT_THROW(LayOut(), TypeMismatchError);
}

TEST_F(ReportTest, EmptyTabsKeepTheirPlace) {
    MakeDocument(0, 1);
    document.FieldA(1).clear();
    const Sheet sheet = LayOut();
    EXPECT_EQ(sheet.texts[0].text, "a2");
    EXPECT_NEAR(sheet.texts[0].box.left, 3402, 0.001);
    EXPECT_EQ(sheet.tabs.size(), 24u);
}

TEST_F(ReportTest, TabsFlowAroundUsedSlots) {
    MakeDocument(0, 1, 2);
    const auto report = [&](const std::vector<int>& used) {
        rptVelmor made(layout);
        made.InitArray("PRINT", document.TabCount, 8, 3, 1, false, document, used);
        made.PrepareTabStyle(0, program.settings);
        made.FormatFields(1, 3, 0, fonts);
        return made;
    };
    rptVelmor flowing = report({2, 1, 6});
    EXPECT_EQ(flowing.SheetCount(), 3);
    Sheet sheet;
    flowing.LayOutSheet(1, sheet);
    ASSERT_EQ(sheet.texts.size(), 21u);
    EXPECT_EQ(sheet.texts[0].text, "a1");
    ExpectBox(sheet.texts[0].box, 2 * 3402, 23 * 56.7, 3402, 567); // slot 3
    EXPECT_EQ(sheet.texts[3].text, "a4");
    ExpectBox(sheet.texts[3].box, 0, (2 * 33 + 23) * 56.7, 3402, 567); // slot 7, behind slot 6
    flowing.LayOutSheet(2, sheet);
    EXPECT_EQ(sheet.texts[0].text, "a22") << "only the first sheet was begun before";
    EXPECT_NEAR(sheet.texts[0].box.left, 0, 0.001);
    flowing.LayOutSheet(3, sheet);
    EXPECT_EQ(sheet.texts.size(), 3u);
    for (int tab = 46; tab <= 48; ++tab)
        document.FieldA(tab).clear();
    EXPECT_EQ(report({1, 2, 6}).SheetCount(), 2) << "no sheet for empty tabs alone";
    EXPECT_THROW(report({25}), SubscriptError);
    std::vector<int> all(24);
    std::iota(all.begin(), all.end(), 1);
    EXPECT_THROW(report(all), Error);
}

TEST_F(ReportTest, APartPageEndsTheRun) {
    MakeDocument(0, 1);
    rptVelmor report(layout);
    EXPECT_THROW(report.InitArray("PRINT", 25, 8, 3, 1, false, document), SubscriptError);
    EXPECT_THROW(report.InitArray("PRINT", 0, 8, 3, 1, false, document), SubscriptError);
    EXPECT_THROW(report.InitArray("PRINT", 48, 8, 3, 1, false, document), SubscriptError);
    EXPECT_THROW(report.InitArray("TEST", 32784, 8, 3, 1, false, document), OverflowError);
}

} // namespace
} // namespace velmora
