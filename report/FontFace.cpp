#include "report/FontFace.h"

#include "base/Error.h"
#include "base/Paths.h"

#include <hb-ot.h>

#include <algorithm>

namespace velmora {
namespace {

bool HasTable(hb_face_t* face, hb_tag_t tag) {
    const HbBlob table(hb_face_reference_table(face, tag));
    return hb_blob_get_length(table.get()) > 0;
}

/// The file is mapped, not read: of a font of many megabytes only the pages in use take memory.
HbFace OpenFace(const std::filesystem::path& path, int index) {
    const HbBlob blob(hb_blob_create_from_file_or_fail(PathText(path).c_str()));
    if (!blob)
        throw Error("The font file cannot be read:\r\n[" + PathText(path) + "]");
    HbFace face(hb_face_create(blob.get(), static_cast<unsigned>(index)));
    const bool hasOutlines =
        HasTable(face.get(), HB_TAG('g', 'l', 'y', 'f')) || HasTable(face.get(), HB_TAG('C', 'F', 'F', ' '));
    if (!hasOutlines || hb_face_get_glyph_count(face.get()) == 0)
        throw Error("The file is not a font that can be printed:\r\n[" + PathText(path) + "]");
    return face;
}

} // namespace

FontFace::FontFace(const std::filesystem::path& path, int index)
    : path_(path), index_(index), face_(OpenFace(path, index)), font_(hb_font_create(face_.get())),
      glyphCount_(hb_face_get_glyph_count(face_.get())), unitsPerEm_(static_cast<int>(hb_face_get_upem(face_.get()))) {
    hb_font_extents_t extents{};
    if (!hb_font_get_h_extents(font_.get(), &extents)) {
        extents.ascender = unitsPerEm_ * 4 / 5;
        extents.descender = -unitsPerEm_ / 5;
    }
    ascent_ = extents.ascender;
    descent_ = -extents.descender;
    hb_position_t offset = 0, thickness = 0;
    hb_ot_metrics_get_position_with_fallback(font_.get(), HB_OT_METRICS_TAG_UNDERLINE_OFFSET, &offset);
    hb_ot_metrics_get_position_with_fallback(font_.get(), HB_OT_METRICS_TAG_UNDERLINE_SIZE, &thickness);
    underlineTop_ = -offset;
    underlineThickness_ = std::max(1, thickness);
}

bool FontFace::HasGlyph(char32_t character) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font_.get(), character, &glyph) != 0 && glyph < glyphCount_;
}

} // namespace velmora
