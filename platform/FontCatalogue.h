// The fonts installed on the machine, as files: text is shaped and embedded from the file itself, so that screen,
// paper and PDF use the very same glyphs.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

struct FontRequest {
    std::string family;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontRequest&) const = default;
};

/// One face of an outline font file (TrueType or OpenType).
struct FontFile {
    std::filesystem::path path;
    int index = 0;         ///< of the face within a collection
    std::string family;    ///< the family found, which may differ from the one asked for
    bool embolden = false; ///< the family has no bold face: thicken this one
    bool slant = false;    ///< the family has no italic face: slant this one
    bool operator==(const FontFile&) const = default;
};

class FontCatalogue {
public:
    virtual ~FontCatalogue() = default;
    /// The nearest installed face; nullopt on a machine without any outline font.
    virtual std::optional<FontFile> Match(const FontRequest& request) const = 0;
    /// The nearest face that has a glyph for `character`; nullopt when no installed font has one.
    virtual std::optional<FontFile> MatchCharacter(const FontRequest& request, char32_t character) const = 0;
    /// The names of the installed families that Match can give, each once, sorted whatever their case.
    virtual std::vector<std::string> Families() const = 0;
};

} // namespace velmora
