// The tab report: where every text of a sheet stands, as numbers, and what is found before it is printed.
#include "base/Error.h"
#include "report/PrepareReport.h"
#include "report/PrintChecks.h"
#include "report/rptVelmor.h"
#include "tests/support/Documents.h"
#include "tests/support/InstalledFonts.h"
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
        MakePages(main, pages, 1, type, [](int field, int tab) { return field == 0 ? "a" + std::to_string(tab) : ""; });
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

std::string Findings(const std::vector<PrintFinding>& findings) {
    std::string text;
    for (const PrintFinding& finding : findings)
        text += std::to_string(static_cast<int>(finding.problem)) + ":" + std::to_string(finding.box.tab) + "." +
                std::to_string(finding.box.field) + " ";
    return text;
}

TEST_F(ReportTest, ChecksFindWhatPaperWouldShow) {
    MakePages(main, 1, 2, 0, [](int, int) { return ""; });
    const InstalledFonts catalogue;
    const auto check = [&](const std::optional<PaperSupport>& printer, const std::vector<int>& used = {}) {
        ReportRequest request = DocumentRequest(document);
        request.labels.used = used;
        rptVelmor report = MakeReport(layout, request, {document, main.settings, main.fonts});
        return Findings(CheckBeforePrinting({main.fonts, catalogue, report, printer}));
    };
    const auto margins = [](double left, double top, double right, double bottom) {
        return PaperSupport{true, UnprintableMargins{left, top, right, bottom}};
    };
    const std::string wide(40, 'W');
    document.FieldA(1) = document.FieldB(24) = "short";
    document.FieldB(5) = wide;
    EXPECT_EQ(check({}), "1:5.1 ");
    EXPECT_EQ(check(PaperSupport{}), "0:0.0 1:5.1 ");
    EXPECT_EQ(check(margins(4, 0, 0, 0)), "2:1.0 1:5.1 ") << "the left column starts at the edge";
    EXPECT_EQ(check(margins(4, 0, 0, 0), {1}), "1:5.1 2:24.1 ") << "one place further on";
    program.Store("Settings", "Margin Value Left", "4");
    EXPECT_EQ(check(margins(4, 0, 0, 0)), "1:5.1 ");
    program.Store("Settings", "Margin Value Top", "40");
    EXPECT_EQ(check({}), "1:5.1 2:24.1 ") << "the last row is off the paper";

    // A turned sheet: its left edge is the paper's bottom.
    program.Store("Settings", "Margin Value Left", "0");
    program.Store("Settings", "Margin Value Top", "0");
    document = {};
    document.setup.OptType = 4;
    document.setup.StationeryType = "DL_v";
    NormalisePages(document);
    document.FieldA(1) = "left";
    EXPECT_EQ(check(margins(0, 0, 0, 5)), "2:1.0 ");
    EXPECT_EQ(check(margins(5, 5, 5, 0)), "");

    document.FieldA(1) = "\U000F1234";
    main.fonts[0].Name = "Calibri";
    EXPECT_EQ(check({}), "4:0.0 3:1.0 ") << "no font has it, nor the family";
    main.fonts[0].Name = "ARIAL";
    document.FieldA(1) = "in a family of the same widths";
    EXPECT_EQ(check({}), "1:1.0 ");
    document.FieldA(1).clear();
    EXPECT_EQ(check({}), "6:0.0 ");
    const PrintFinding cut{PrintProblem::TextCut, {5, 1}, 1, 5, "Abrahams & Seun"};
    EXPECT_EQ(FindingText(cut) + "|" + FindingPlace(cut), "Abrahams & Seun: will be cut off|Tab 5, Field B");
}

} // namespace
} // namespace velmora
