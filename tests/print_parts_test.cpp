// What printing is made of, without a report: paper and its sources, labels struck out, lists of numbers.
#include "print/NumberList.h"
#include "print/PrintSheets.h"
#include "print/UsedLabels.h"
#include "tests/support/FakePrinters.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// DL that the printer knows short edge first alone: its top goes through as the sheet's left.
TEST(PaperSupport, ASheetSentTurnedIsCheckedAsItGoesThrough) {
    FakePrinters printers;
    printers.paperWidth = 110;
    printers.margins = UnprintableMargins{0, 12, 0, 0};
    const PaperSupport support = SupportOf(printers, "Office", {220, 110, false});
    EXPECT_TRUE(support.listed);
    EXPECT_EQ(support.unprintable->right, 12) << "what the printer leaves at the top";
    EXPECT_EQ(SupportOf(printers, "Office", {110, 220, true}).unprintable->top, 12);
}

TEST(PaperSource, IsMeantByItsNameOrItsLabel) {
    const std::vector<PaperSource> trays = {{"tray-1", "Tray 1"}, {"by-pass-tray", "Manual feed"}};
    EXPECT_EQ(FindSource(trays, "manual FEED", "Office", "tray").name, "by-pass-tray");
    EXPECT_EQ(FindSource(trays, "tray-1", "Office", "tray").name, "tray-1");
    try {
        FindSource(trays, "tray-9", "Office", "tray");
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "the printer \"Office\" has no tray \"tray-9\"; it has tray-1, by-pass-tray");
    }
}

TEST(UsedLabels, AreStruckOutOneByOneOrInAStretch) {
    UsedLabels labels(24);
    const auto shown = [&] { return NumberListText({labels.Labels().begin(), labels.Labels().end()}); };
    labels.ExtendTo(5);
    labels.Toggle(9);
    labels.ExtendTo(12);
    labels.ExtendTo(7);
    EXPECT_EQ(shown(), "1-5,7-9") << "as far as the pointer is";
    labels.Toggle(8);
    labels.ExtendTo(4);
    EXPECT_EQ(shown(), "1-3,9") << "a stretch that begins at one struck out is free again";
    EXPECT_EQ(labels.FirstFree(), 4);
    labels.StartAt(4);
    labels.ExtendTo(2);
    EXPECT_EQ(shown(), "1-3") << "behind the stretch they stay";
    labels.StartAt(24);
    labels.Toggle(24);
    EXPECT_EQ(shown(), "1-23") << "one is left";
}

TEST(NumberList, SpellsRangesOutAndRefusesTheRest) {
    const ListWords words{"page", "document"};
    EXPECT_EQ(ParseNumberList("3, 1-2", 3, words), (std::vector<int>{3, 1, 2}));
    for (const char* list : {"", "0", "2-1", "1-", "1,,2", "a", "4", "-1", "99999999999"})
        EXPECT_THROW(ParseNumberList(list, 3, words), Error) << list;
    EXPECT_EQ(NumberListText({300, 305, 306, 307, 9, 9}), "300,305-307,9,9");
}

} // namespace
} // namespace velmora
