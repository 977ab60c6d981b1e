// The painter's picture, and that of a job which is drawn, beside the rendered PDF: what is seen must be what is
// printed.
#include "report/ui/PainterCanvas.h"
#include "report/SurfaceCanvas.h"
#include "tests/print_ink/Ink.h"
#include "tests/print_ink/PictureSurface.h"
#include "tests/support/RightToLeft.h"

#include <QImage>
#include <gtest/gtest.h>

#include <array>

namespace velmora::ink {
namespace {

enum class Way { AsPrinted, AsRead, Surface, SurfaceWithoutFonts };

PdfFile::Picture Draw(const Sheet& sheet, const FontSettings& fonts, const FontCatalogue& catalogue, Way way,
                      Outlines outlines = Outlines::Hidden) {
    const bool upright = sheet.paper.turned && way == Way::AsRead;
    PdfFile::Picture page;
    page.width = static_cast<int>((upright ? sheet.paper.heightMm : sheet.paper.widthMm) * kPixelsPerMm);
    page.height = static_cast<int>((upright ? sheet.paper.widthMm : sheet.paper.heightMm) * kPixelsPerMm);
    page.pixels.assign(static_cast<std::size_t>(page.width * page.height), 255);
    QImage image(page.pixels.data(), page.width, page.height, page.width, QImage::Format_Grayscale8);
    QPainter painter(&image);
    painter.scale(kPixelsPerMm / kTwipsPerMmOfPaper, kPixelsPerMm / kTwipsPerMmOfPaper);
    PainterFonts painterFonts;
    PainterCanvas screen(painter, painterFonts, way == Way::AsRead ? SheetView::AsRead : SheetView::AsPrinted);
    PictureSurface surface(painter, way == Way::Surface);
    SurfaceCanvas job(surface);
    Canvas* canvas = &screen;
    if (way >= Way::Surface)
        canvas = &job;
    SheetPainter(catalogue, fonts).Paint(sheet, *canvas, outlines);
    return page;
}

struct Case {
    const char* name;
    const char* text;
    const char* family;
    std::int16_t size;
    enum Style { Plain, Bold, Italic, BoldItalic, Underlined } style = Plain;
    Paper paper = kA4;
    bool synthetic = false; ///< bold and italic are made from the regular face
};

const Case kCases[] = {
    {"plain", "No.0017 Môre", "Arial", 14},
    {"kerned, large", "AVAVA To", "Arial", 30},
    {"bold, turned", "No.0017 gj", "Arial", 14, Case::Bold, kTurnedDl},
    {"italic serif", "office fjord", "Times New Roman", 24, Case::Italic},
    {"characters of other fonts", "αβ → ☃ x", "Arial", 18},
    {"accents of their own", "X̂x̱̂ and q̂̂x", "DejaVu Sans", 30},
    {"right to left", "אבג 123", "Arial", 18},
    {"thickened", "No.0017 gj", "Arial", 24, Case::Bold, kA4, true},
    {"slanted, turned", "No.0017 gj", "Arial", 24, Case::Italic, kTurnedDl, true},
    {"thickened and slanted", "WA 17", "Arial", 24, Case::BoldItalic, kA4, true},
    {"underlined", "No.0017", "Arial", 14, Case::Underlined},
    {"too wide", "No.0017 and then very much more of it", "Arial", 36, Case::Underlined},
    {"too wide, slanted, turned", "No.0017 and then very much more", "Arial", 36, Case::Italic, kTurnedDl, true},
};

void ExpectAlike(const Sheet& sheet, const FontSettings& fonts, const FontCatalogue& catalogue) {
    const auto printed = PdfFile({sheet}, fonts, catalogue).Render();
    for (const Way way : {Way::AsPrinted, Way::Surface, Way::SurfaceWithoutFonts}) {
        SCOPED_TRACE(static_cast<int>(way));
        const auto drawn = Draw(sheet, fonts, catalogue, way);
        ExpectNear(drawn.InkBox(), printed.InkBox());
        EXPECT_NEAR(drawn.DarkPixels(), printed.DarkPixels(), printed.DarkPixels() * 0.06);
        // Ink in one where the other has none near would be a glyph astray.
        EXPECT_LT(drawn.PixelsFarFrom(printed), printed.DarkPixels() / 100);
        EXPECT_LT(printed.PixelsFarFrom(drawn), printed.DarkPixels() / 100);
    }
}

TEST(PainterCanvas, DrawsWhatThePdfShows) {
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        DressedCatalogue catalogue;
        catalogue.noBold = catalogue.noItalic = row.synthetic;
        const bool bold = row.style == Case::Bold || row.style == Case::BoldItalic;
        const bool italic = row.style == Case::Italic || row.style == Case::BoldItalic;
        const FontSettings fonts = AllFields({row.family, row.size, bold, italic, row.style == Case::Underlined});
        ExpectAlike(OneText(row.text, MmBox(20, 30, 70, 12), kAlignCentre, row.paper), fonts, catalogue);
    }
}

TEST(PainterCanvas, LinesThatRunToTheLeftAreThoseOfThePdf) {
    const InstalledFonts catalogue;
    Sheet sheet{kA4, {}, {}, {}};
    for (const auto& line : kRightToLeft)
        sheet.texts.push_back({line.first, MmBox(20, 10 + 11.0 * static_cast<int>(sheet.texts.size()), 80, 10)});
    ExpectAlike(sheet, AllFields({"DejaVu Sans", 14}), catalogue);
}

/// Nothing that one text sets may leak into the next: fonts, thickness, lean, clips, raised accents.
TEST(PainterCanvas, TextsOfManyKindsOnOneSheetDoNotDisturbEachOther) {
    DressedCatalogue catalogue;
    catalogue.noBold = catalogue.noItalic = true;
    const FontSettings fonts = {FieldFont{"Arial", 14}, FieldFont{"Arial", 14, true},
                                FieldFont{"Arial", 20, false, true}};
    Sheet sheet{kA4, {}, {}, {}};
    int row = 0;
    constexpr const char* kWide = "far too wide for its box"; // behind a raised accent, and behind another font
    constexpr std::array<std::array<const char*, 3>, 2> kTexts = {{{"X̂ᾷ 12", kWide, "xy"}, {kWide, "X̂ᾷ 12", "xy"}}};
    for (const int field : {0, 0, 1, 0, 2, 1, 2, 2, 0, 1, 1, 2, 0})
        for (const char* text : kTexts.at(row % 2)) {
            sheet.texts.push_back({text, MmBox(20 + 5.0 * (row % 7), 10 + 7.0 * row, 30, 8), field, 0});
            ++row;
        }
    ExpectAlike(sheet, fonts, catalogue);
}

/// Rectangles for glyphs tell from the ink which glyph of which face was drawn: A is 0.5 em wide and 0.7 em
/// high, B reaches from 0.1 to 0.8 em and 0.2 em below the baseline.
TEST(PainterCanvas, EveryKindOfFontFileShowsItsOwnGlyphsHereAndInThePdf) {
    constexpr double kEmMm = 40 * 25.4 / 72;
    const std::pair<const char*, int> files[] = {{"named.otf", 0}, {"numbered.otf", 0}, {"collection.ttc", 1}};
    for (const auto& [name, index] : files) {
        SCOPED_TRACE(name);
        DressedCatalogue catalogue;
        catalogue.own = FontFile{std::string(VELMORA_TEST_FONTS "/") + name, index, "Boxes"};
        const FontSettings fonts = AllFields({"Boxes", 40, false, false, false, 0, kAlignTop});
        const Sheet sheet = OneText("AB", MmBox(20, 30, 70, 20));
        const PdfFile pdf({sheet}, fonts, catalogue);
        const Rect expected = {20 + 0.1 * kEmMm, 30 + 0.1 * kEmMm, 20 + 1.5 * kEmMm, 30 + kEmMm};
        ExpectNear(pdf.Render().InkBox(), expected);
        for (const Way way : {Way::AsPrinted, Way::Surface})
            ExpectNear(Draw(sheet, fonts, catalogue, way).InkBox(), expected);
        EXPECT_EQ(pdf.Text(), "AB");
        EXPECT_NE(pdf.Ask("pdffonts %").find("yes yes yes"), std::string::npos);
        pdf.Ask("qpdf --check %");
    }
}

TEST(PainterCanvas, ShowsATurnedSheetUprightWhereItIsToBeRead) {
    const InstalledFonts catalogue;
    const Sheet turned = OneText("No.0017", MmBox(120, 30, 70, 12), kAlignLeft, kTurnedDl);
    const Rect printed = PdfFile({turned}, AllFields({}), catalogue).Render().InkBox();
    const Rect read = Draw(turned, AllFields({}), catalogue, Way::AsRead).InkBox();
    ExpectNear(OnPaper(kTurnedDl, read), printed);
}

TEST(PainterCanvas, OutlinesAreThoseOfThePdf) {
    const InstalledFonts catalogue;
    const Sheet sheet = OneText("0000", MmBox(20, 30, 60, 12));
    for (const Way way : {Way::AsPrinted, Way::Surface})
        ExpectNear(Draw(sheet, AllFields({}), catalogue, way, Outlines::Shown).InkBox(), {20, 30, 80, 42});
}

/// Thickening and slanting must show at all, in both.
TEST(PainterCanvas, ThickenedIsThickerAndSlantedLeans) {
    DressedCatalogue catalogue;
    catalogue.noBold = catalogue.noItalic = true;
    const Sheet sheet = OneText("Illl", MmBox(20, 30, 70, 15));
    const auto draw = [&](bool bold, bool italic) {
        return Draw(sheet, AllFields({"Arial", 36, bold, italic}), catalogue, Way::AsPrinted);
    };
    EXPECT_GT(draw(true, false).DarkPixels(), draw(false, false).DarkPixels() * 1.3);
    // A letter 0.73 em high leans by a fifth of that.
    EXPECT_NEAR(draw(false, true).InkBox().right - draw(false, false).InkBox().right,
                0.73 * 36 * 25.4 / 72 * kSlantShear, 0.2);
}

} // namespace
} // namespace velmora::ink
