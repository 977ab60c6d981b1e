// The painter's picture beside the rendered PDF: what is seen must be what is printed.
#include "print/ui/PainterCanvas.h"
#include "tests/print_ink/Ink.h"

#include <QImage>
#include <gtest/gtest.h>

namespace velmora::ink {
namespace {

PdfFile::Picture Draw(const Sheet& sheet, const FontSettings& fonts, const FontCatalogue& catalogue,
                      SheetView view, Outlines outlines = Outlines::Hidden) {
    const bool upright = sheet.paper.turned && view == SheetView::AsRead;
    PdfFile::Picture page;
    page.width = static_cast<int>((upright ? sheet.paper.heightMm : sheet.paper.widthMm) * kPixelsPerMm);
    page.height = static_cast<int>((upright ? sheet.paper.widthMm : sheet.paper.heightMm) * kPixelsPerMm);
    page.pixels.assign(static_cast<std::size_t>(page.width * page.height), 255);
    QImage image(page.pixels.data(), page.width, page.height, page.width, QImage::Format_Grayscale8);
    QPainter painter(&image);
    painter.scale(kPixelsPerMm / kTwipsPerMmOfPaper, kPixelsPerMm / kTwipsPerMmOfPaper);
    PainterFonts painterFonts;
    PainterCanvas canvas(painter, painterFonts, view);
    SheetPainter(catalogue, fonts).Paint(sheet, canvas, outlines);
    return page;
}

struct Case {
    const char* name;
    const char* text;
    const char* family;
    std::int16_t size;
    enum Style { Plain, Bold, Italic, Underlined } style = Plain;
    Paper paper = kA4;
    bool embolden = false;
    bool slant = false;
};

const Case kCases[] = {
    {"plain", "No.0017 Môre", "Arial", 14, Case::Plain},
    {"kerned, large", "AVAVA To", "Arial", 30, Case::Plain},
    {"bold, turned", "No.0017 gj", "Arial", 14, Case::Bold, kTurnedDl},
    {"italic serif", "office fjord", "Times New Roman", 24, Case::Italic},
    {"other fonts, accents of their own", "αβ → é̂", "Arial", 18, Case::Plain},
    {"right to left", "אבג 123", "Arial", 18, Case::Plain},
    {"thickened", "No.0017 gj", "Arial", 24, Case::Plain, kA4, true, false},
    {"slanted, turned", "No.0017 gj", "Arial", 24, Case::Plain, kTurnedDl, false, true},
    {"thickened and slanted", "WA 17", "Arial", 24, Case::Plain, kA4, true, true},
    {"underlined", "No.0017", "Arial", 14, Case::Underlined},
    {"too wide", "No.0017 and then very much more of it", "Arial", 36, Case::Underlined},
    {"too wide, slanted, turned", "No.0017 and then very much more", "Arial", 36, Case::Plain, kTurnedDl,
     false, true},
};

TEST(PainterCanvas, DrawsWhatThePdfShows) {
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        DressedCatalogue catalogue;
        catalogue.embolden = row.embolden;
        catalogue.slant = row.slant;
        const FontSettings fonts = AllFields({row.family, row.size, row.style == Case::Bold,
                                              row.style == Case::Italic, row.style == Case::Underlined});
        const Sheet sheet = OneText(row.text, MmBox(20, 30, 70, 12), kAlignCentre, row.paper);
        const auto printed = PdfFile({sheet}, fonts, catalogue).Render();
        const auto drawn = Draw(sheet, fonts, catalogue, SheetView::AsPrinted);
        ExpectNear(drawn.InkBox(), printed.InkBox());
        EXPECT_NEAR(drawn.DarkPixels(), printed.DarkPixels(), printed.DarkPixels() * 0.06);
    }
}

TEST(PainterCanvas, ShowsATurnedSheetUprightWhereItIsToBeRead) {
    const FontconfigCatalogue catalogue;
    const Sheet turned = OneText("No.0017", MmBox(120, 30, 70, 12), kAlignLeft, kTurnedDl);
    const Rect printed = PdfFile({turned}, AllFields({}), catalogue).Render().InkBox();
    const Rect read = Draw(turned, AllFields({}), catalogue, SheetView::AsRead).InkBox();
    ExpectNear(OnPaper(kTurnedDl, read), printed);
}

TEST(PainterCanvas, OutlinesAreThoseOfThePdf) {
    const FontconfigCatalogue catalogue;
    const Sheet sheet = OneText("0000", MmBox(20, 30, 60, 12));
    const auto drawn = Draw(sheet, AllFields({}), catalogue, SheetView::AsPrinted, Outlines::Shown);
    ExpectNear(drawn.InkBox(), {20, 30, 80, 42});
}

/// Thickening and slanting must show at all, in both.
TEST(PainterCanvas, ThickenedIsThickerAndSlantedLeans) {
    DressedCatalogue plain, thick, slanted;
    thick.embolden = true;
    slanted.slant = true;
    const Sheet sheet = OneText("Illl", MmBox(20, 30, 70, 15));
    const FontSettings fonts = AllFields({"Arial", 36});
    const auto draw = [&](const FontCatalogue& catalogue) {
        return Draw(sheet, fonts, catalogue, SheetView::AsPrinted);
    };
    EXPECT_GT(draw(thick).DarkPixels(), draw(plain).DarkPixels() * 1.3);
    // A letter 0.73 em high leans by a fifth of that.
    EXPECT_NEAR(draw(slanted).InkBox().right - draw(plain).InkBox().right,
                0.73 * 36 * 25.4 / 72 * kSlantShear, 0.2);
}

} // namespace
} // namespace velmora::ink
