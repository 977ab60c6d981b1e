#include "report/TextShaper.h"

#include "base/Error.h"
#include "report/Twips.h"

#include <algorithm>
#include <fribidi.h>
#include <limits>
#include <new>
#include <optional>
#include <span>

namespace velmora {
namespace {

constexpr std::size_t kGenerationCost = 24'000; // glyphs; about a megabyte
constexpr std::size_t kTextCost = 8;            // what a text weighs beside its glyphs
constexpr int kLowestReversedLevel = 1;

hb_unicode_general_category_t Category(char32_t character) {
    return hb_unicode_general_category(hb_unicode_funcs_get_default(), character);
}

bool IsPlain(char32_t character) {
    return character < kPlainCharacters;
}

bool DrawsNothing(char32_t character) {
    constexpr char32_t kSpace = 0x20, kDelete = 0x7F, kLastControl = 0x9F;
    if (IsPlain(character))
        return character < kSpace || (character >= kDelete && character <= kLastControl);
    switch (Category(character)) {
    case HB_UNICODE_GENERAL_CATEGORY_LINE_SEPARATOR:
    case HB_UNICODE_GENERAL_CATEGORY_PARAGRAPH_SEPARATOR: return true;
    default: return false;
    }
}

/// Accents, joiners and the like, which belong to the character before them.
bool ExtendsCluster(char32_t character) {
    switch (Category(character)) {
    case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_FORMAT: return true;
    default: return false;
    }
}

std::size_t ClusterEnd(std::u32string_view characters, std::size_t begin) {
    std::size_t end = begin + 1;
    while (end < characters.size() && !IsPlain(characters[end]) && ExtendsCluster(characters[end]))
        ++end;
    return end;
}

/// The first character that `face` has no glyph for. An accent that the face has only as part of a ready-made
/// letter counts as there.
std::optional<char32_t> FirstMissing(const FontFace& face, std::u32string_view cluster) {
    hb_codepoint_t composed = 0;
    if (cluster.size() == 2 && hb_unicode_compose(hb_unicode_funcs_get_default(), cluster[0], cluster[1], &composed) &&
        face.HasGlyph(composed))
        return std::nullopt;
    for (const char32_t character : cluster)
        if (!face.HasGlyph(character) && Category(character) != HB_UNICODE_GENERAL_CATEGORY_FORMAT)
            return character;
    return std::nullopt;
}

bool SameTypeface(const Typeface& a, const Typeface& b) {
    return a.face == b.face && a.embolden == b.embolden && a.slant == b.slant;
}

bool MayRunToTheLeft(char32_t character) {
    constexpr FriBidiCharType kAny = FRIBIDI_MASK_RTL | FRIBIDI_MASK_ARABIC; // Arabic: its digits too
    return !IsPlain(character) && (fribidi_get_bidi_type(character) & kAny) != 0;
}

/// The nesting level of each character by the Unicode bidirectional algorithm: odd ones run to the left. A line reads
/// in the direction of its first letter.
std::vector<FriBidiLevel> Levels(std::u32string_view characters) {
    std::vector<FriBidiLevel> levels(characters.size(), 0);
    if (std::none_of(characters.begin(), characters.end(), MayRunToTheLeft))
        return levels;
    const std::vector<FriBidiChar> text(characters.begin(), characters.end());
    const auto length = static_cast<FriBidiStrIndex>(text.size());
    std::vector<FriBidiCharType> types(text.size());
    std::vector<FriBidiBracketType> brackets(text.size());
    fribidi_get_bidi_types(text.data(), length, types.data());
    fribidi_get_bracket_types(text.data(), length, types.data(), brackets.data());
    FriBidiParType line = FRIBIDI_PAR_ON;
    if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), length, &line, levels.data()) == 0)
        throw std::bad_alloc();
    return levels;
}

/// A damaged font may lead to a glyph that it does not have: there is its box for a missing one.
ShapedGlyph GlyphOf(const FontFace& face, const hb_glyph_info_t& info, const hb_glyph_position_t& position) {
    if (info.codepoint >= face.GlyphCount())
        return {0, hb_font_get_glyph_h_advance(face.Font(), 0), 0, 0};
    return {info.codepoint, position.x_advance, position.x_offset, position.y_offset};
}

/// Gives each glyph the characters it stands for; where several stand for the same, the first in reading has
/// them.
void AssignSources(std::vector<ShapedGlyph>& glyphs, const hb_glyph_info_t* infos, bool toTheLeft, std::size_t end) {
    ShapedGlyph* first = nullptr;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const std::size_t place = toTheLeft ? glyphs.size() - 1 - i : i;
        ShapedGlyph& glyph = glyphs[place];
        glyph.sourceBegin = infos[place].cluster;
        if (first && first->sourceBegin == glyph.sourceBegin)
            continue;
        if (first)
            first->sourceLength = glyph.sourceBegin - first->sourceBegin;
        first = &glyph;
    }
    if (first)
        first->sourceLength = static_cast<std::uint32_t>(end) - first->sourceBegin;
}

/// A bracket in a run to the left is drawn as its counterpart, and that is what the glyph stands for
/// elsewhere too.
void Mirror(std::u32string& characters, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i)
        characters[i] = hb_unicode_mirroring(hb_unicode_funcs_get_default(), characters[i]);
}

/// From the order of reading to the order from left to right: each stretch of a level or above is turned
/// around, from the highest level down to the first odd one.
template <class Pieces> void OrderForTheEye(Pieces& pieces) {
    int level = 0;
    for (const auto& piece : pieces)
        level = std::max(level, piece.level);
    for (; level >= kLowestReversedLevel; --level) {
        const auto below = [&](const auto& piece) { return piece.level < level; };
        for (auto begin = pieces.begin(); begin != pieces.end();) {
            begin = std::find_if_not(begin, pieces.end(), below);
            const auto end = std::find_if(begin, pieces.end(), below);
            std::reverse(begin, end);
            begin = end;
        }
    }
}

} // namespace

/// A stretch of characters that is shaped in one go.
struct TextShaper::Piece {
    std::size_t begin = 0;
    std::size_t end = 0;
    const Typeface* typeface = nullptr;
    int level = 0;
};

double RunWidth(const GlyphRun& run, double fontSize) {
    return static_cast<double>(run.advance) * fontSize / run.typeface.face->UnitsPerEm();
}

bool HasUnknownCharacter(const ShapedText& text) {
    return std::any_of(text.runs.begin(), text.runs.end(), [](const GlyphRun& run) {
        return std::any_of(run.glyphs.begin(), run.glyphs.end(),
                           [](const ShapedGlyph& glyph) { return glyph.id == 0; });
    });
}

namespace {

/// Edges in twips, `top` and `bottom` below the baseline. Empty until the first ink.
struct Ink {
    double left = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::lowest();

    void Add(const hb_glyph_extents_t& glyph, double x, double baseline, double unit, double shear) {
        const double highest = baseline - glyph.y_bearing * unit;
        const double lowest = highest - glyph.height * unit;
        left = std::min(left, x + glyph.x_bearing * unit - lowest * shear);
        right = std::max(right, x + (glyph.x_bearing + glyph.width) * unit - highest * shear);
        top = std::min(top, highest);
        bottom = std::max(bottom, lowest);
    }
};

} // namespace

Box InkBox(const ShapedText& text) {
    Ink ink;
    double pen = 0;
    double stroke = 0;
    for (const GlyphRun& run : text.runs) {
        const double unit = text.fontSize / run.typeface.face->UnitsPerEm();
        if (run.typeface.embolden)
            stroke = text.fontSize * kEmboldenStroke;
        for (const ShapedGlyph& glyph : run.glyphs) {
            hb_glyph_extents_t extents{};
            if (hb_font_get_glyph_extents(run.typeface.face->Font(), glyph.id, &extents) && extents.width != 0)
                ink.Add(extents, pen + glyph.xOffset * unit, -glyph.yOffset * unit, unit,
                        run.typeface.slant ? kSlantShear : 0);
            pen += glyph.advance * unit;
        }
    }
    if (ink.left > ink.right)
        return {};
    return {ink.left - stroke / 2, ink.top - stroke / 2, ink.right - ink.left + stroke, ink.bottom - ink.top + stroke};
}

std::u32string Characters(std::string_view utf8) {
    if (std::all_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return {utf8.begin(), utf8.end()};
    const HbBuffer buffer(hb_buffer_create());
    hb_buffer_add_utf8(buffer.get(), utf8.data(), static_cast<int>(utf8.size()), 0, static_cast<int>(utf8.size()));
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
    std::u32string characters;
    characters.reserve(count);
    for (const hb_glyph_info_t& info : std::span(infos, count))
        characters.push_back(info.codepoint);
    return characters;
}

const ShapedText* ShapedTextCache::Find(std::string_view text) {
    if (const auto found = young_.find(text); found != young_.end())
        return &found->second;
    const auto found = old_.find(text);
    if (found == old_.end())
        return nullptr;
    auto node = old_.extract(found);
    MakeRoom(node.mapped());
    return &young_.insert(std::move(node)).position->second;
}

bool ShapedTextCache::Recurs(std::string_view text) {
    const std::size_t hash = Hash()(text);
    return std::exchange(asked_[hash % asked_.size()], hash) == hash;
}

const ShapedText& ShapedTextCache::Add(std::string_view text, ShapedText shaped) {
    MakeRoom(shaped);
    return young_.insert_or_assign(std::string(text), std::move(shaped)).first->second;
}

void ShapedTextCache::MakeRoom(const ShapedText& shaped) {
    if (youngCost_ > kGenerationCost) {
        old_ = std::exchange(young_, {});
        youngCost_ = 0;
    }
    youngCost_ += kTextCost + shaped.characters.size();
}

TextShaper::TextShaper(const FontCatalogue& catalogue, const FontSettings& fonts)
    : catalogue_(catalogue), buffer_(hb_buffer_create()), language_(hb_language_from_string("und", -1)) {
    for (const FieldFont& font : fonts)
        fields_.push_back({font, {font.Name, font.Bold, font.Italic}, {}, {}, {}, {}});
    // A cluster for each character keeps the accents of a letter apart: text copied from a PDF is then exact.
    hb_buffer_set_cluster_level(buffer_.get(), HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
}

const ShapedText& TextShaper::Shape(std::string_view text, int field) {
    FieldState& state = fields_.at(static_cast<std::size_t>(field));
    if (!state.typeface.face)
        LoadTypeface(state);
    if (const ShapedText* known = state.cache.Find(text))
        return *known;
    ShapeNew(state, text);
    return state.cache.Recurs(text) ? state.cache.Add(text, fresh_) : fresh_;
}

void TextShaper::LoadTypeface(FieldState& state) {
    const auto file = catalogue_.Match(state.request);
    if (!file)
        throw Error("No font is installed that can be printed.");
    state.typeface = Open(*file);
}

Typeface TextShaper::Open(const FontFile& file) {
    const auto open = [&](Weight weight) {
        auto& face = faces_[{file.path, file.index, weight}];
        if (!face)
            face = std::make_shared<const FontFace>(file.path, file.index, weight);
        return face;
    };
    auto face = open(Weight::AsItIs);
    if (file.embolden && face->HasOwnBold())
        return {open(Weight::OwnBold), false, file.slant};
    return {std::move(face), file.embolden, file.slant};
}

void TextShaper::ShapeNew(FieldState& state, std::string_view text) {
    ShapedText& shaped = fresh_;
    shaped.characters = Characters(text);
    std::erase_if(shaped.characters, DrawsNothing);
    const FontFace& face = *state.typeface.face;
    shaped.fontSize = std::max<int>(state.font.Size, 1) * kTwipsPerPoint;
    const double unit = shaped.fontSize / face.UnitsPerEm();
    shaped.ascent = face.Ascent() * unit;
    shaped.descent = face.Descent() * unit;
    shaped.underline = state.font.Underline;
    shaped.underlineTop = face.UnderlineTop() * unit;
    shaped.underlineThickness = face.UnderlineThickness() * unit;
    shaped.width = 0;
    const Pieces pieces = Itemize(state, shaped.characters);
    shaped.runs.resize(pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        ShapePiece(shaped.characters, pieces[i], shaped.runs[i]);
        shaped.width += RunWidth(shaped.runs[i], shaped.fontSize);
        if (pieces[i].level % 2 == 1)
            Mirror(shaped.characters, pieces[i].begin, pieces[i].end);
    }
}

TextShaper::Pieces TextShaper::Itemize(FieldState& state, const std::u32string& characters) {
    const auto isSimple = [&](char32_t character) { return IsPlain(character) && HasPlainGlyph(state, character); };
    if (!characters.empty() && std::all_of(characters.begin(), characters.end(), isSimple))
        return {{0, characters.size(), &state.typeface, 0}};
    const std::vector<FriBidiLevel> levels = Levels(characters);
    Pieces pieces;
    for (std::size_t begin = 0; begin < characters.size();) {
        const std::size_t end = ClusterEnd(characters, begin);
        const Typeface& typeface = TypefaceFor(state, std::u32string_view(characters).substr(begin, end - begin));
        if (!pieces.empty() && pieces.back().level == levels[begin] && SameTypeface(*pieces.back().typeface, typeface))
            pieces.back().end = end;
        else
            pieces.push_back({begin, end, &typeface, levels[begin]});
        begin = end;
    }
    OrderForTheEye(pieces);
    return pieces;
}

bool TextShaper::HasPlainGlyph(FieldState& state, char32_t character) {
    auto& presence = state.plainGlyphs[character];
    if (!presence)
        presence = state.typeface.face->HasGlyph(character);
    return *presence;
}

/// The field's own typeface unless it lacks a character of the cluster that another one has.
const Typeface& TextShaper::TypefaceFor(FieldState& state, std::u32string_view cluster) {
    const auto missing = FirstMissing(*state.typeface.face, cluster);
    if (!missing)
        return state.typeface;
    const Typeface& other = Fallback(state, *missing);
    // A letter is never parted from its accent: better the own font's box than an accent over another font's
    // letter.
    return FirstMissing(*other.face, cluster) ? state.typeface : other;
}

const Typeface& TextShaper::Fallback(FieldState& state, char32_t character) {
    const auto [entry, isNew] = state.fallbacks.try_emplace(character, state.typeface);
    if (!isNew)
        return entry->second;
    if (const auto file = catalogue_.MatchCharacter(state.request, character)) {
        try {
            entry->second = Open(*file);
        } catch (const Error&) {
            // A damaged font file must not keep the sheet from being printed: the own font shows its box.
        }
    }
    return entry->second;
}

void TextShaper::ShapePiece(const std::u32string& characters, const Piece& piece, GlyphRun& run) {
    hb_buffer_t* buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    static_assert(sizeof(char32_t) == sizeof(hb_codepoint_t));
    hb_buffer_add_utf32(buffer, reinterpret_cast<const std::uint32_t*>(characters.data()),
                        static_cast<int>(characters.size()), static_cast<unsigned>(piece.begin),
                        static_cast<int>(piece.end - piece.begin));
    const bool toTheLeft = piece.level % 2 == 1;
    hb_buffer_set_direction(buffer, toTheLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_language(buffer, language_); // not the desktop's: a sheet looks the same on every machine
    hb_buffer_guess_segment_properties(buffer);
    const FontFace& face = *piece.typeface->face;
    hb_shape(face.Font(), buffer, nullptr, 0);

    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
    run.typeface = *piece.typeface;
    run.glyphs.assign(count, {});
    run.advance = 0;
    for (unsigned i = 0; i < count; ++i) {
        run.glyphs[i] = GlyphOf(face, infos[i], positions[i]);
        run.advance += run.glyphs[i].advance;
    }
    AssignSources(run.glyphs, infos, toTheLeft, piece.end);
}

} // namespace velmora
