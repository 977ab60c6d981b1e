// One face of a font file, open for shaping, drawing and embedding.
#pragma once

#include <hb.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace velmora {

/// Frees an object of the shaping library.
template <auto destroy> struct HbRelease {
    void operator()(auto* object) const { destroy(object); }
};
using HbBlob = std::unique_ptr<hb_blob_t, HbRelease<hb_blob_destroy>>;
using HbFace = std::unique_ptr<hb_face_t, HbRelease<hb_face_destroy>>;
using HbFont = std::unique_ptr<hb_font_t, HbRelease<hb_font_destroy>>;
using HbBuffer = std::unique_ptr<hb_buffer_t, HbRelease<hb_buffer_destroy>>;

/// How a variable font is used.
enum class Weight { AsItIs, OwnBold };

/// Lengths are in font units, of which UnitsPerEm make the font size.
class FontFace {
public:
    /// Raises Error when the file cannot be read or has no outlines in that face that a PDF can take in.
    FontFace(const std::filesystem::path& path, int index, Weight weight = Weight::AsItIs);

    const std::filesystem::path& Path() const { return path_; }
    int Index() const { return index_; }
    hb_face_t* Face() const { return face_.get(); }
    hb_font_t* Font() const { return font_.get(); } ///< scaled to font units
    std::uint32_t GlyphCount() const { return glyphCount_; }
    int UnitsPerEm() const { return unitsPerEm_; }
    int Ascent() const { return ascent_; }                         ///< of a line, above the baseline
    int Descent() const { return descent_; }                       ///< of a line, below the baseline
    int UnderlineTop() const { return underlineTop_; }             ///< below the baseline
    int UnderlineThickness() const { return underlineThickness_; } ///< at least 1

    /// The design's weight that is drawn; nullopt: its own, as the file has it.
    std::optional<float> VariedWeight() const { return variedWeight_; }
    /// Whether the design varies to a bold.
    bool HasOwnBold() const;
    /// Whether its maker forbids that it goes into a document.
    bool ForbidsEmbedding() const;
    bool IsGlyphOf(std::uint32_t glyph, char32_t character) const;
    /// False as well where the font's map leads beyond its last glyph.
    bool HasGlyph(char32_t character) const;

private:
    std::filesystem::path path_;
    int index_;
    HbFace face_;
    HbFont font_;
    std::optional<float> variedWeight_;
    std::uint32_t glyphCount_ = 0;
    int unitsPerEm_ = 0;
    int ascent_ = 0;
    int descent_ = 0;
    int underlineTop_ = 0;
    int underlineThickness_ = 0;
};

} // namespace velmora
