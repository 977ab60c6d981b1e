// Where the ink is, measured in millimetres by other programs.
#include "tests/print_ink/Ink.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::ink {
namespace {

constexpr double kMmPerPoint = 25.4 / 72;

struct Placement {
    std::int16_t horizontal;
    std::int16_t vertical;
    Paper paper;
    double part;      ///< of the room beside the text that is to its left
    double partAbove; ///< of the room above and below the line
};

const Placement kPlacements[] = {
    {kAlignLeft, kAlignTop, kA4, 0, 0},
    {kAlignRight, kAlignMiddle, kA4, 1, 0.5},
    {kAlignCentre, kAlignBottom, kA4, 0.5, 1},
    {9, 9, kA4, 0, 0.5},
    {kAlignLeft, kAlignTop, kTurnedDl, 0, 0},
    {kAlignRight, kAlignBottom, kTurnedDl, 1, 1},
    {kAlignCentre, kAlignMiddle, kTurnedDl, 0.5, 0.5},
    {kAlignRight, kAlignTop, {220, 110, false}, 1, 0},
};

/// Where a text of digits must be: `digits` wide, in a box of 20, 30 mm and 60 x 12 mm.
Rect Expected(const Placement& placement, int digits, double sizePoints) {
    const double width = digits * kDigitWidth * sizePoints * kMmPerPoint;
    const double height = (kAscent + kDescent) * sizePoints * kMmPerPoint;
    const double left = 20 + (60 - width) * placement.part;
    const double top = 30 + (12 - height) * placement.partAbove;
    return OnPaper(placement.paper, {left, top, left + width, top + height});
}

FontSettings FontOf(const Placement& placement, std::int16_t size) {
    return AllFields({"Arial", size, false, false, false, 0, placement.vertical});
}

TEST(Placement, ATextStandsInItsBoxAsItsAlignmentsSay) {
    const InstalledFonts catalogue;
    for (const Placement& placement : kPlacements) {
        SCOPED_TRACE(testing::Message() << placement.horizontal << " " << placement.vertical << " "
                                        << placement.paper.widthMm << " mm wide");
        const Sheet sheet = OneText("0246800", MmBox(20, 30, 60, 12), placement.horizontal, placement.paper);
        const auto words = PdfFile({sheet}, FontOf(placement, 18), catalogue).Words();
        ASSERT_EQ(words.size(), 1U);
        ExpectNear(words[0], Expected(placement, 7, 18));
    }
}

TEST(Placement, ATooWideTextShowsItsAlignedEndAndNoInkOutsideItsBox) {
    const InstalledFonts catalogue;
    for (const Placement& placement : kPlacements) {
        SCOPED_TRACE(testing::Message() << placement.horizontal << " " << placement.paper.widthMm << " mm wide");
        const std::string text(40, '0');
        const Sheet sheet = OneText(text, MmBox(20, 30, 60, 12), placement.horizontal, placement.paper);
        const PdfFile pdf({sheet}, FontOf(placement, 18), catalogue);
        const auto words = pdf.Words();
        ASSERT_EQ(words.size(), 1U);
        // Poppler may cut the word's box at the paper's edge, but the aligned end is on the paper.
        const Rect whole = Expected(placement, 40, 18), box = OnPaper(placement.paper, {20, 30, 80, 42});
        if (placement.part == 0 && !placement.paper.turned) {
            EXPECT_NEAR(words[0].left, whole.left, 0.2);
        }
        if (placement.part == 1 && placement.paper.turned) {
            EXPECT_NEAR(words[0].top, whole.top, 0.2);
        }
        const Rect ink = pdf.Render().InkBox();
        constexpr double kPixel = 1.01 / kPixelsPerMm, kSideBearing = 0.5;
        EXPECT_GE(ink.left, box.left - kPixel);
        EXPECT_GE(ink.top, box.top - kPixel);
        EXPECT_LE(ink.right, box.right + kPixel);
        EXPECT_LE(ink.bottom, box.bottom + kPixel);
        const double shown = placement.paper.turned ? ink.bottom - ink.top : ink.right - ink.left;
        EXPECT_NEAR(shown, 60, 2 * kSideBearing);
    }
}

TEST(Placement, ALineHigherThanItsBoxIsCutOnlyWhereItsInkSticksOut) {
    const InstalledFonts catalogue;
    struct Lines {
        const char* text;
        double boxHeight;
        bool cut;
    };
    // 24 points: the line is 9.46 mm high, a digit 6 mm, and the tail of a "g" goes 1.8 mm below the
    // baseline.
    for (const Lines& row : {Lines{"000", 8.0, false}, {"ggg", 8.0, true}, {"000", 3.0, true}}) {
        SCOPED_TRACE(row.text);
        const auto font = AllFields({"Arial", 24, false, false, false, 0, kAlignMiddle});
        const PdfFile cut({OneText(row.text, MmBox(20, 30, 60, row.boxHeight))}, font, catalogue);
        const PdfFile whole({OneText(row.text, MmBox(20, 30 - 6, 60, row.boxHeight + 12))}, font, catalogue);
        if (row.cut) {
            EXPECT_LT(cut.Render().DarkPixels(), whole.Render().DarkPixels());
        } else {
            EXPECT_TRUE(cut.Render().pixels == whole.Render().pixels);
        }
    }
}

TEST(Placement, AnUnderlineIsAsLongAsItsTextAndEndsWithTheBox) {
    const InstalledFonts catalogue;
    const auto font = AllFields({"Arial", 18, false, false, true, 0, kAlignTop});
    for (const int digits : {5, 40}) {
        const std::string text(static_cast<std::size_t>(digits), '0');
        const auto page = PdfFile({OneText(text, MmBox(20, 30, 60, 12))}, font, catalogue).Render();
        const double baseline = 30 + kAscent * 18 * kMmPerPoint; // digits do not go below it
        const int firstBelow = static_cast<int>(baseline * kPixelsPerMm) + 2;
        int dark = 0;
        for (int y = firstBelow; y < page.height; ++y)
            dark = std::max(dark, page.DarkPixels(y));
        EXPECT_NEAR(static_cast<double>(dark) / kPixelsPerMm, std::min(60.0, digits * kDigitWidth * 18 * kMmPerPoint),
                    0.3);
    }
}

TEST(Placement, OutlinesAreDrawnWhenAskedForAndLeaveTheTextAlone) {
    const InstalledFonts catalogue;
    Sheet sheet = OneText("0000", MmBox(20, 30, 60, 12));
    sheet.fields = {MmBox(15, 25, 90, 40)};
    const PdfFile plain({sheet}, AllFields({}), catalogue);
    const PdfFile outlined({sheet}, AllFields({}), catalogue, Outlines::Shown);
    ExpectNear(outlined.Words().at(0), plain.Words().at(0));
    ExpectNear(outlined.Render().InkBox(), {20, 30, 80, 42}); // the field's line is lighter than ink
    EXPECT_LT(plain.Render().InkBox().right, 40);
}

} // namespace
} // namespace velmora::ink
