// The PDF file as other programs read it.
#include "tests/print_ink/Ink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace velmora::ink {
namespace {

using namespace std::string_literals;

std::string ExtractedText(const std::string& text, const FontCatalogue& catalogue, const FieldFont& font = {}) {
    const PdfFile pdf({OneText(text, MmBox(20, 30, 160, 12))}, AllFields(font), catalogue);
    return pdf.Text();
}

TEST(Pdf, TextCanBeCopiedAsItWasTyped) {
    const InstalledFonts catalogue;
    const std::pair<std::string, std::string> cases[] = {
        {"Hoërskool Bêre Môre", "Hoërskool Bêre Môre"},
        {"office fi ffl", "office fi ffl"},           // ligatures
        {"AVAVA To (x)\\y *", "AVAVA To (x)\\y *"},   // kerning, and what strings must escape
        {"αβγ → ☃ Ж", "αβγ → ☃ Ж"},                   // characters of other fonts
        {"a\tb\0c\x01\x7F"s + "d\r\n", "abcd"},       // controls draw nothing
        {"x\xFF\xC3y", "x\xEF\xBF\xBD\xEF\xBF\xBDy"}, // no UTF-8
        {"אבג 123", "אבג 123"},                       // right to left, numbers within
        {"", ""},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ExtractedText(text, catalogue), expected) << text;
}

TEST(Pdf, LettersDrawnInAnotherOrderAreCopiedAsTheyAreRead) {
    DressedCatalogue catalogue;
    catalogue.own = FontFile{VELMORA_TEST_FONTS "/varied.ttf", 0, "BoxesVaried"};
    for (const char* text : {"दुनिया", "नि निन यिनि", "न नि"})
        EXPECT_EQ(ExtractedText(text, catalogue), text);
}

TEST(Pdf, ADesignThatVariesHasItsOwnBold) {
    DressedCatalogue catalogue;
    catalogue.own = FontFile{VELMORA_TEST_FONTS "/varied.ttf", 0, "BoxesVaried"};
    catalogue.noBold = true;
    const auto widthOf = [&](bool bold) {
        const PdfFile pdf({OneText("दद", MmBox(20, 30, 100, 20))}, AllFields({"BoxesVaried", 72, bold}), catalogue);
        const Rect ink = pdf.Render().InkBox();
        return (ink.right - ink.left) / 25.4;
    };
    EXPECT_NEAR(widthOf(false), 0.55 + 0.4, 0.01); // the way to the second letter, and its ink
    EXPECT_NEAR(widthOf(true), 0.85 + 0.7, 0.01) << "by three fifths of the way to the blackest";
}

TEST(Pdf, AnAccentOfItsOwnStaysWithItsLetter) {
    const InstalledFonts catalogue;
    const std::string apart = "Be\u0302re"; // a combining circumflex
    const std::string text = ExtractedText(apart, catalogue);
    EXPECT_TRUE(text == apart || text == "B\u00EAre") << text;
}

TEST(Pdf, FontsAreEmbeddedAsSubsetsAndSayWhatTheyMean) {
    const InstalledFonts catalogue;
    Sheet sheet = OneText("No.1", MmBox(20, 30, 60, 12));
    sheet.texts.push_back({"No.2", MmBox(20, 50, 60, 12), 1, 0});
    sheet.texts.push_back({"No.3", MmBox(20, 70, 60, 12), 2, 0}); // the face of field 1 in another size
    const PdfFile pdf({sheet}, {FieldFont{}, FieldFont{"Arial", 10, true}, FieldFont{"Arial", 20}}, catalogue);
    const std::string fonts = pdf.Ask("pdffonts %");
    const auto count = [&](const char* text) {
        int found = 0;
        for (auto at = fonts.find(text); at != std::string::npos; at = fonts.find(text, at + 1))
            ++found;
        return found;
    };
    EXPECT_EQ(count("Identity-H"), 2) << fonts;
    EXPECT_EQ(count("yes yes yes"), 2) << fonts; // embedded, subset, with Unicode
    EXPECT_LT(pdf.Bytes().size(), 20'000U);
}

TEST(Pdf, SaysThatNothingIsScaledAndWhatItIs) {
    const InstalledFonts catalogue;
    const PdfFile pdf({OneText("1", MmBox(20, 30, 60, 12))}, AllFields({}), catalogue);
    EXPECT_NE(pdf.Bytes().find("/PrintScaling/None"), std::string::npos);
    EXPECT_NE(pdf.Bytes().find("/Lang(und)"), std::string::npos);
    const auto id = [](const PdfFile& file) { return file.Bytes().substr(file.Bytes().find("/ID[<"), 80); };
    EXPECT_NE(id(pdf), id(PdfFile({OneText("2", MmBox(20, 30, 60, 12))}, AllFields({}), catalogue)));
    const std::string info = pdf.Ask("TZ=UTC pdfinfo -isodates %");
    EXPECT_NE(info.find("Hoërskool (1)"), std::string::npos) << info;
    EXPECT_NE(info.find("2024-02-29T00:00:00Z"), std::string::npos) << info;
}

TEST(Pdf, HundredsOfPagesAreValidAndAlikeInEveryRun) {
    const InstalledFonts catalogue;
    std::vector<std::string> numbers;
    for (int i = 0; i < 700; ++i)
        numbers.push_back("No." + std::to_string(i) + "/→é");
    std::vector<Sheet> sheets;
    for (const std::string& number : numbers)
        sheets.push_back(OneText(number, MmBox(20, 30, 60, 12)));
    const PdfFile pdf(sheets, AllFields({}), catalogue);
    pdf.Ask("qpdf --check %");
    EXPECT_EQ(pdf.Ask("pdftotext -f 700 % -").substr(0, 6), "No.699");
    const std::string end = pdf.Bytes().substr(pdf.Bytes().rfind("startxref\n") + 10);
    const std::string table = end.substr(0, end.find('\n'));
    EXPECT_NE(pdf.Ask("qpdf --show-xref %").find("uncompressed; offset = " + table + "\n"), std::string::npos);
    EXPECT_EQ(pdf.Bytes(), PdfFile(sheets, AllFields({}), catalogue).Bytes());
}

TEST(Pdf, SheetsLeaveMemoryAsTheyAreDrawn) {
    const InstalledFonts catalogue;
    std::size_t written = 0;
    PdfCanvas pdf([&](std::string_view bytes) { written += bytes.size(); }, {});
    SheetPainter painter(catalogue, AllFields({}));
    for (int i = 0; i < 2000; ++i)
        painter.Paint(OneText(std::to_string(i), MmBox(20, 30, 60, 12)), pdf);
    const std::size_t before = written;
    pdf.Finish();
    EXPECT_GT(before, written / 2);
}

TEST(Pdf, AnyBytesAtAllAsTextMakeAValidFile) {
    const InstalledFonts catalogue;
    std::mt19937 random(8);
    std::vector<std::string> texts(150);
    for (std::string& text : texts)
        for (auto length = random() % 60; length > 0; --length)
            text += static_cast<char>(random());
    std::vector<Sheet> sheets;
    for (const std::string& text : texts)
        sheets.push_back(OneText(text, MmBox(20, 30, 60, 12), kAlignCentre));
    PdfFile(sheets, AllFields({"Arial", 10, true, true, true}), catalogue).Ask("qpdf --check %");
}

TEST(Pdf, ABoxFarOffThePaperMakesAValidFile) {
    const InstalledFonts catalogue;
    const Box boxes[] = {{1e300, -1e300, 1e300, 1}, {std::nan(""), 0, 0, -5}, {-1e9, 1e9, 1e18, 1e18}};
    for (const Box& box : boxes)
        PdfFile({OneText("text", box, kAlignRight)}, AllFields({}), catalogue, Outlines::Shown).Ask("qpdf --check %");
}

} // namespace
} // namespace velmora::ink
