// The tab report: where every text of a sheet stands, as numbers.
#include "base/Error.h"
#include "platform/Machine.h"
#include "report/rptVelmor.h"
#include "tests/support/ProgramTest.h"

#include <numeric>
#include <sstream>

namespace velmora {
namespace {

struct ReportTest : ProgramTest {
    LayoutValues layout;
    FontSettings fonts;

    /// Of one field.
    void MakeDocument(int type, int pages = 1) {
        SetType(type, 1);
        document.TabCount = 0;
        document.CurrentTab = 2;
        NormalisePages(document);
        document.TabCount = pages * document.setup.TabsPerPage;
        document.FieldA.ReDim(document.TabCount);
        NormalisePages(document);
        for (int tab = 1; tab <= document.TabCount; ++tab)
            document.FieldA(tab) = "a" + std::to_string(tab);
    }
    rptVelmor Report(const std::vector<int>& used = {}) {
        rptVelmor report(layout);
        const auto& setup = document.setup;
        report.InitArray("PRINT", document.TabCount, setup.RowsPerPage, setup.ColsPerPage, 1, false, document, {used});
        report.PrepareTabStyle(setup.OptType, program.settings);
        report.FormatFields(1, setup.ColsPerPage, setup.OptType, fonts);
        report.SetPage(SheetPaper("A4", "A4"), ReadPageMargins(program.settings));
        return report;
    }
    Sheet LayOut(int number = 1, const std::vector<int>& used = {}) {
        Sheet sheet;
        Report(used).LayOutSheet(number, sheet);
        return sheet;
    }
};

/// A text, and in units of 56.7 twips where it stands and how large its box is.
std::string Placed(const PlacedText& placed) {
    const Box& box = placed.box;
    std::ostringstream text;
    text << placed.text << " " << box.left / 56.7 << " " << box.top / 56.7 << " " << box.width / 56.7 << " "
         << box.height / 56.7;
    return text.str();
}

TEST_F(ReportTest, AStoredTabTopHoldsForAllStylesThatShareIt) {
    MakeDocument(0);
    LayOut();
    MakeDocument(2);
    EXPECT_EQ(Placed(LayOut().texts[0]), "a1 0 20 60 10"); // printing style 0 before has stored nothing
    program.Store("Settings", "Tab Top A4_1", "15.5");
    for (const int type : {0, 1, 2, 3}) {
        MakeDocument(type);
        EXPECT_NEAR(LayOut().texts[0].box.top, 15.5 * 56.7, 0.001);
    }
    program.Store("Settings", "Tab Top DL_2", "x");
    MakeDocument(5);
    EXPECT_THROW(LayOut(), TypeMismatchError);
}

TEST_F(ReportTest, EmptyTabsKeepTheirPlace) {
    MakeDocument(0);
    document.FieldA(1).clear();
    const Sheet sheet = LayOut();
    EXPECT_EQ(Placed(sheet.texts[0]), "a2 60 23 60 10");
    EXPECT_EQ(sheet.tabs.size(), 24u);
}

TEST_F(ReportTest, TabsFlowAroundUsedSlots) {
    MakeDocument(0, 2);
    EXPECT_EQ(Report({2, 1, 6}).SheetCount(), 3);
    const Sheet begun = LayOut(1, {2, 1, 6});
    ASSERT_EQ(begun.texts.size(), 21u);
    EXPECT_EQ(Placed(begun.texts[0]), "a1 120 23 60 10") << "slot 3";
    EXPECT_EQ(Placed(begun.texts[3]), "a4 0 89 60 10") << "slot 7, behind slot 6";
    const PlacedText next = LayOut(2, {2, 1, 6}).texts.at(0);
    EXPECT_EQ(Placed(next), "a22 0 23 60 10") << "only the first sheet was begun before";
    EXPECT_EQ(LayOut(3, {2, 1, 6}).texts.size(), 3u);
    for (int tab = 46; tab <= 48; ++tab)
        document.FieldA(tab).clear();
    EXPECT_EQ(Report({1, 2, 6}).SheetCount(), 2) << "no sheet for empty tabs alone";
    EXPECT_THROW(Report({25}), SubscriptError);
    std::vector<int> all(24);
    std::iota(all.begin(), all.end(), 1);
    EXPECT_THROW(Report(all), Error);
}

TEST(LabelPlan, ChosenTabsKeepTheirPlacesOrFlowOntoTheLabelsLeft) {
    const auto shown = [](const LabelPlan& plan) {
        std::string text = "of " + std::to_string(plan.size());
        for (std::size_t label = plan.size(); label > 0; --label)
            if (const auto tab = plan[label - 1]; tab > 0)
                text = std::to_string(tab) + "@" + std::to_string(label) + " " + text;
        return text;
    };
    EXPECT_EQ(shown(KeepPlaces({480, 457, 24, 480}, 24)), "24@24 457@25 480@48 of 48");
    EXPECT_EQ(shown(FlowTabs({300, 299, 300}, 24, {1, 3, 2})), "300@4 299@5 300@6 of 24");
    EXPECT_EQ(shown(FlowTabs({5, 1}, 24, TabsFrom(2, 23))), "5@1 1@25 of 48");
}

TEST(DesktopLanguage, IsATagOrNotKnown) {
    const std::pair<const char*, const char*> cases[] = {
        {"de_CH.UTF-8", "de-CH"}, {"sr_RS@latin", "sr-RS"}, {"C.UTF-8", "und"}, {"POSIX", "und"}, {"a)b", "und"}};
    for (const auto& [locale, tag] : cases)
        EXPECT_EQ(DesktopLanguage([text = locale](const char*) { return std::optional<std::string>(text); }), tag);
    EXPECT_EQ(DesktopLanguage([](const char*) { return std::nullopt; }), "und");
}

} // namespace
} // namespace velmora
