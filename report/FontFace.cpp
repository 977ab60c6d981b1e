#include "report/FontFace.h"

#include "base/Error.h"
#include "base/MappedFile.h"
#include "base/Paths.h"

#include <hb-ot.h>

#include <algorithm>
#include <memory>

namespace velmora {
namespace {

bool HasTable(hb_face_t* face, hb_tag_t tag) {
    const HbBlob table(hb_face_reference_table(face, tag));
    return hb_blob_get_length(table.get()) > 0;
}

/// Of a font of many megabytes only the pages in use take memory. Null for a file that cannot be read.
HbBlob OpenBlob(const std::filesystem::path& path) {
    auto file = std::make_unique<MappedFile>(path);
    const std::string_view bytes = file->Bytes();
    if (bytes.empty())
        return nullptr;
    return HbBlob(hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_READONLY,
                                 file.release(), [](void* mapped) { delete static_cast<MappedFile*>(mapped); }));
}

HbFace OpenFace(const std::filesystem::path& path, int index) {
    const HbBlob blob = OpenBlob(path);
    if (!blob)
        throw Error("The font file cannot be read:\r\n[" + PathText(path) + "]");
    HbFace face(hb_face_create(blob.get(), static_cast<unsigned>(index)));
    const bool hasOutlines =
        HasTable(face.get(), HB_TAG('g', 'l', 'y', 'f')) || HasTable(face.get(), HB_TAG('C', 'F', 'F', ' '));
    if (!hasOutlines || hb_face_get_glyph_count(face.get()) == 0)
        throw Error("The file is not a font that can be printed:\r\n[" + PathText(path) + "]");
    return face;
}

constexpr hb_tag_t kWeightAxis = HB_TAG('w', 'g', 'h', 't');
constexpr float kBold = 700;
constexpr float kLeastBold = 600;

/// Of the design's bold; nullopt where it has none.
std::optional<float> BoldOf(hb_face_t* face) {
    hb_ot_var_axis_info_t axis{};
    if (!hb_ot_var_find_axis_info(face, kWeightAxis, &axis) || axis.max_value < kLeastBold)
        return std::nullopt;
    return std::min(kBold, axis.max_value);
}

} // namespace

FontFace::FontFace(const std::filesystem::path& path, int index, Weight weight)
    : path_(path), index_(index), face_(OpenFace(path, index)), font_(hb_font_create(face_.get())),
      glyphCount_(hb_face_get_glyph_count(face_.get())), unitsPerEm_(static_cast<int>(hb_face_get_upem(face_.get()))) {
    if (weight == Weight::OwnBold)
        variedWeight_ = BoldOf(face_.get());
    if (variedWeight_) {
        const hb_variation_t bold = {kWeightAxis, *variedWeight_};
        hb_font_set_variations(font_.get(), &bold, 1);
    }
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

bool FontFace::HasOwnBold() const {
    return BoldOf(face_.get()).has_value();
}

bool FontFace::ForbidsEmbedding() const {
    constexpr unsigned kRightsInTable = 8, kUsage = 0xF, kRestricted = 0x2, kBitmapsOnly = 0x200;
    const HbBlob table(hb_face_reference_table(face_.get(), HB_TAG('O', 'S', '/', '2')));
    unsigned length = 0;
    const char* data = hb_blob_get_data(table.get(), &length);
    if (length < kRightsInTable + 2)
        return false;
    const auto byte = [&](unsigned at) { return static_cast<unsigned>(static_cast<unsigned char>(data[at])); };
    const unsigned rights = byte(kRightsInTable) << 8U | byte(kRightsInTable + 1);
    // Where more than one usage is named, the freest holds.
    return (rights & kUsage) == kRestricted || (rights & kBitmapsOnly) != 0;
}

bool FontFace::IsGlyphOf(std::uint32_t glyph, char32_t character) const {
    hb_codepoint_t own = 0;
    return hb_font_get_nominal_glyph(font_.get(), character, &own) != 0 && own == glyph;
}

bool FontFace::HasGlyph(char32_t character) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font_.get(), character, &glyph) != 0 && glyph < glyphCount_;
}

} // namespace velmora
