// Which font a text gets, and what the shaper makes of hard cases.
#include "base/AtomicFile.h"
#include "base/Error.h"
#include "base/Text.h"
#include "tests/print_ink/Ink.h"
#include "tests/support/FewFonts.h"
#include "tests/support/RightToLeft.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace velmora::ink {
namespace {

TEST(FontconfigCatalogue, FindsTheFamilyOrItsReplacementInTheStyleAskedFor) {
    const InstalledFonts catalogue;
    struct Case {
        const char* asked;
        bool bold;
        bool italic;
        std::vector<std::string_view> families; ///< any of these
        bool embolden;
        bool slant;
    };
    const Case cases[] = {
        {"Arial", false, false, {"Arial", "Liberation Sans", "Arimo"}, false, false},
        {"Arial", true, true, {"Arial", "Liberation Sans", "Arimo"}, false, false},
        {"Times New Roman", true, false, {"Times New Roman", "Liberation Serif", "Tinos"}, false, false},
        {"DejaVu Math TeX Gyre", true, true, {"DejaVu Math TeX Gyre"}, true, true}, // has but one face
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.asked);
        const auto file = catalogue.Match({row.asked, row.bold, row.italic});
        ASSERT_TRUE(file);
        EXPECT_NE(std::find(row.families.begin(), row.families.end(), file->family), row.families.end())
            << file->family << ": install fonts-liberation and fonts-dejavu";
        EXPECT_EQ(file->embolden, row.embolden);
        EXPECT_EQ(file->slant, row.slant);
        EXPECT_NO_THROW(FontFace(file->path, file->index));
    }
    EXPECT_TRUE(catalogue.Match({"No Such Family", false, false}));
}

TEST(FontconfigCatalogue, EveryFamilyListedIsFoundUnderItsName) {
    const InstalledFonts catalogue;
    const std::vector<std::string> families = catalogue.Families();
    for (const char* known : {"DejaVu Sans", "Liberation Serif"})
        EXPECT_EQ(std::count(families.begin(), families.end(), known), 1) << known;
    for (std::size_t i = 0; i < families.size(); ++i) {
        const auto file = catalogue.Match({families[i], false, false});
        EXPECT_TRUE(file && file->family == families[i]) << families[i];
        EXPECT_TRUE(i == 0 || FoldCase(families[i - 1]) <= FoldCase(families[i])) << families[i];
    }
}

TEST(FontconfigCatalogue, ACharacterComesFromAFontThatHasItOrFromNone) {
    const InstalledFonts catalogue;
    const auto snowman = catalogue.MatchCharacter({"Arial", false, false}, U'☃');
    ASSERT_TRUE(snowman);
    EXPECT_TRUE(FontFace(snowman->path, snowman->index).HasGlyph(U'☃'));
    EXPECT_FALSE(catalogue.MatchCharacter({"Arial", false, false}, U'\U000F1234')); // for private use
}

TEST(FontFace, AFileThatIsNoFontIsAnError) {
    const TemporaryFolder folder;
    EXPECT_THROW(FontFace((folder / "missing.ttf").string(), 0), Error);
    std::ofstream(folder / "text.ttf") << "not a font";
    EXPECT_THROW(FontFace((folder / "text.ttf").string(), 0), Error);
}

TEST(TextShaper, AMachineWithoutFontsIsAnErrorNotAnEmptySheet) {
    const FewFonts none;
    TextShaper shaper(none, {});
    EXPECT_THROW(shaper.Shape("text", 0), Error);
}

TEST(TextShaper, ACharacterThatNoFontHasIsTheBoxForAMissingGlyph) {
    DressedCatalogue catalogue;
    catalogue.hasFallback = false;
    TextShaper shaper(catalogue, {});
    const ShapedText& text = shaper.Shape("a☃b", 0);
    ASSERT_EQ(text.runs.size(), 1U);
    EXPECT_EQ(text.runs[0].glyphs.at(1).id, 0U);
    EXPECT_GT(text.runs[0].glyphs.at(1).advance, 0);
}

/// Neither a font without the character, as this one with A and B only, nor one that cannot be read.
TEST(TextShaper, AReplacementThatIsNoneDoesNotStopTheSheet) {
    struct Useless : DressedCatalogue {
        std::string path;
        std::optional<FontFile> MatchCharacter(const FontRequest&, char32_t) const override {
            return FontFile{path, 0, "Boxes"};
        }
    } catalogue;
    for (const char* path : {VELMORA_TEST_FONTS "/named.otf", "/nowhere/font.ttf"}) {
        catalogue.path = path;
        TextShaper shaper(catalogue, {});
        const ShapedText& text = shaper.Shape("a☃", 0);
        ASSERT_EQ(text.runs.size(), 1U) << path;
        EXPECT_EQ(text.runs[0].glyphs.at(1).id, 0U) << path;
    }
}

/// A font that says it has no glyph behind the A, while its map still leads to one for the B.
TEST(TextShaper, AMapThatLeadsBeyondTheLastGlyphLeadsToNone) {
    const TemporaryFolder folder;
    std::string font = ReadFile(VELMORA_TEST_FONTS "/collection.ttc");
    constexpr std::size_t kOffsetInEntry = 8, kCountInTable = 4;
    const auto number = [&](std::size_t at) { return static_cast<unsigned char>(font.at(at)); };
    const std::size_t entry = font.find("maxp") + kOffsetInEntry;
    const std::size_t maxp = number(entry + 2) << 8U | number(entry + 3);
    ASSERT_EQ(number(maxp + kCountInTable + 1), 3);
    font[maxp + kCountInTable + 1] = 2;
    ReplaceFile(folder / "cut.ttc", font);
    DressedCatalogue catalogue;
    catalogue.own = FontFile{(folder / "cut.ttc").string(), 0, "Boxes"};
    EXPECT_GT(TextShaper(catalogue, {}).Shape("AB", 0).runs.size(), 1U) << "another font has a B";
    catalogue.hasFallback = false;
    TextShaper shaper(catalogue, {});
    const std::vector<ShapedGlyph> glyphs = shaper.Shape("AB☃", 0).runs.at(0).glyphs;
    EXPECT_EQ(glyphs.at(1).id, 0U);
    EXPECT_EQ(glyphs.at(1).advance, glyphs.at(2).advance);
    const auto printed = [&](const char* text) {
        return PdfFile({OneText(text, MmBox(10, 10, 100, 20))}, AllFields({"Boxes", 20}), catalogue).Render();
    };
    EXPECT_EQ(printed("AB").pixels, printed("A☃").pixels);
}

TEST(TextShaper, ALetterAndItsAccentComeFromOneFace) {
    const InstalledFonts catalogue;
    TextShaper shaper(catalogue, {});
    for (const char* text : {"é", "б̀", "ẖ̄"})
        EXPECT_EQ(shaper.Shape(text, 0).runs.size(), 1U) << text;
}

TEST(TextShaper, ATextIsTheSameAfterThousandsOfOthers) {
    const InstalledFonts catalogue;
    TextShaper shaper(catalogue, {});
    const double january = shaper.Shape("January", 0).width;
    for (int i = 0; i < 20'000; ++i) {
        shaper.Shape("No." + std::to_string(i), 0);
        if (i % 1000 == 0) {
            EXPECT_EQ(shaper.Shape("January", 0).width, january);
        }
    }
    EXPECT_EQ(shaper.Shape("January", 0).width, january);
    EXPECT_EQ(shaper.Shape("No.0", 0).characters, U"No.0");
}

/// From left to right as they are seen; numbers stay readable among letters that run to the left.
TEST(TextShaper, RunsStandInTheOrderOfTheEye) {
    const InstalledFonts catalogue;
    TextShaper shaper(catalogue, {});
    for (const auto& [text, expected] : kRightToLeft) {
        const ShapedText& shaped = shaper.Shape(text, 0);
        std::u32string seen;
        for (const GlyphRun& run : shaped.runs)
            for (const ShapedGlyph& glyph : run.glyphs)
                seen += shaped.characters.substr(glyph.sourceBegin, glyph.sourceLength);
        EXPECT_EQ(seen, expected) << text;
    }
}

} // namespace
} // namespace velmora::ink
