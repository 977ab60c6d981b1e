// From text to glyphs: which glyph of which face stands where. Every output device draws what comes out of
// here, so that screen, paper and PDF agree to the last kerning pair.
#pragma once

#include "document/FontSettings.h"
#include "platform/FontCatalogue.h"
#include "report/FontFace.h"
#include "report/Sheet.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velmora {

/// A face as it is to be drawn. A family without a bold or an italic face has its regular one thickened or
/// slanted, unless that varies to a bold of its own.
struct Typeface {
    std::shared_ptr<const FontFace> face;
    bool embolden = false;
    bool slant = false;
};

/// How much a thickened glyph gains, as a part of the font size, and how far a slanted one leans to the
/// right.
inline constexpr double kEmboldenStroke = 1.0 / 24;
inline constexpr double kSlantShear = 0.2;

/// Lengths in font units of the run's face; offsets to the right and upwards.
struct ShapedGlyph {
    std::uint32_t id = 0;
    std::int32_t advance = 0;
    std::int32_t xOffset = 0;
    std::int32_t yOffset = 0;
    std::uint32_t sourceBegin = 0;  ///< its characters within ShapedText::characters; the same for all that share them
    std::uint32_t sourceLength = 0; ///< 0 where an earlier glyph stands for the characters
};

/// Glyphs of one face, from left to right as they are seen.
struct GlyphRun {
    Typeface typeface;
    std::vector<ShapedGlyph> glyphs;
    std::int64_t advance = 0; ///< of all glyphs, in font units
};

/// One line of text. Lengths in twips.
struct ShapedText {
    std::u32string characters; ///< those that draw something, in the order of reading; brackets as drawn
    std::vector<GlyphRun> runs;
    double fontSize = 0; ///< the em
    double width = 0;
    double ascent = 0; ///< of the font that was asked for, whatever face a glyph came from
    double descent = 0;
    double underlineTop = 0; ///< below the baseline
    double underlineThickness = 0;
    bool underline = false;
};

double RunWidth(const GlyphRun& run, double fontSize);
/// True where a font's box for a missing glyph stands for a character.
bool HasUnknownCharacter(const ShapedText& text);
/// What the ink covers, relative to the start of the baseline. Without ink: no width and no height.
Box InkBox(const ShapedText& text);
/// The characters of a UTF-8 text; U+FFFD for bytes that are none.
std::u32string Characters(std::string_view utf8);

/// The texts shaped lately. Two generations of limited size: a text that recurs stays, a series of thousands
/// of different numbers passes by.
class ShapedTextCache {
public:
    const ShapedText* Find(std::string_view text);
    /// Whether it was asked for before, by and large: what comes once is not worth a place.
    bool Recurs(std::string_view text);
    const ShapedText& Add(std::string_view text, ShapedText shaped);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    using Generation = std::unordered_map<std::string, ShapedText, Hash, std::equal_to<>>;

    void MakeRoom(const ShapedText& shaped);

    Generation young_;
    Generation old_;
    std::size_t youngCost_ = 0; ///< in glyphs
    std::array<std::size_t, 4096> asked_ = {};
};

/// Characters below this one are Latin letters, digits and signs, which neither combine nor run to the left.
inline constexpr char32_t kPlainCharacters = 0x300;

/// Shapes texts in the fonts of the three fields. Loads a font when it is first needed.
class TextShaper {
public:
    TextShaper(const FontCatalogue& catalogue, const FontSettings& fonts);

    /// One line in the font of `field` (0 to 2). Control characters have no ink; a character that the font
    /// lacks comes from another one, and where no font has it, it is the font's box for a missing glyph.
    /// Raises Error on a machine without fonts. The answer holds until the next call.
    const ShapedText& Shape(std::string_view text, int field);

private:
    struct FieldState {
        FieldFont font;
        FontRequest request;
        Typeface typeface; ///< no face before the field's first text
        /// Whether its face has a plain character; nullopt: not asked yet.
        std::array<std::optional<bool>, kPlainCharacters> plainGlyphs;
        std::unordered_map<char32_t, Typeface> fallbacks;
        ShapedTextCache cache;
    };
    struct Piece;
    using Pieces = std::vector<Piece>;

    void LoadTypeface(FieldState& state);
    Typeface Open(const FontFile& file);
    /// Into `fresh_`, whose memory goes from text to text.
    void ShapeNew(FieldState& state, std::string_view text);
    Pieces Itemize(FieldState& state, const std::u32string& characters);
    static bool HasPlainGlyph(FieldState& state, char32_t character);
    const Typeface& TypefaceFor(FieldState& state, std::u32string_view cluster);
    const Typeface& Fallback(FieldState& state, char32_t character);
    void ShapePiece(const std::u32string& characters, const Piece& piece, GlyphRun& run);

    const FontCatalogue& catalogue_;
    std::vector<FieldState> fields_;
    std::map<std::tuple<std::filesystem::path, int, Weight>, std::shared_ptr<const FontFace>> faces_; ///< with index
    ShapedText fresh_;
    HbBuffer buffer_;
    hb_language_t language_;
};

} // namespace velmora
