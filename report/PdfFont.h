// A font inside a PDF: only the glyphs in use are embedded, and each says which characters it stands for, so
// that the text can be searched and copied.
#pragma once

#include "report/FontFace.h"
#include "report/PdfWriter.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class PdfFont {
public:
    /// `object` is the number under which Write puts the font.
    PdfFont(std::shared_ptr<const FontFace> face, int object);

    const FontFace& Face() const { return *face_; }
    int Object() const { return object_; }
    /// Marks the glyph as used and remembers the first characters that it stands for. Gives the width that a
    /// reader takes for it, in font units.
    std::int32_t Use(std::uint32_t glyph, std::u32string_view source) {
        const Entry& entry = entries_.at(glyph);
        if (!entry.used || (!entry.hasSource && !source.empty()))
            Remember(glyph, source);
        return entry.advance;
    }
    /// The two-byte code of a used glyph in a text string.
    std::uint16_t CodeOf(std::uint32_t glyph) const { return entries_[glyph].code; }

    void Write(PdfWriter& writer) const;

private:
    struct Entry {
        std::int32_t advance = 0;
        std::uint16_t code = 0;
        bool used = false;
        bool hasSource = false;
    };

    void Remember(std::uint32_t glyph, std::u32string_view source);
    void WriteDescendant(PdfWriter& writer, int object, int descriptor) const;
    void WriteDescriptor(PdfWriter& writer, int object, int file) const;
    void WriteFile(PdfWriter& writer, int object) const;
    std::string Widths() const;
    std::string ToUnicode() const;

    std::shared_ptr<const FontFace> face_;
    int object_;
    bool hasCff_;
    std::string name_;                                ///< the PostScript name
    std::vector<Entry> entries_;                      ///< by glyph
    std::map<std::uint16_t, std::uint32_t> glyphs_;   ///< those in use, by code
    std::map<std::uint16_t, std::u32string> sources_; ///< by code
};

} // namespace velmora
