// Font files as fonts of a device context, by which their glyphs are drawn by number.
#pragma once

#include "base/windows/Api.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <tuple>

namespace velmora {

struct RemoveFont {
    using pointer = HANDLE;
    void operator()(HANDLE font) const { ::RemoveFontMemResourceEx(font); }
};
struct DeleteFont {
    using pointer = HFONT;
    void operator()(HFONT font) const { ::DeleteObject(font); }
};

/// The fonts of one device context. It must not be in use with any of them when they go.
///
/// The system knows fonts by their names, and takes another one for a name that it does not know; and some drivers send
/// each page a font's measures whole. So it is given the part of a face that is drawn, without its hints, under a name
/// that nothing else has.
class GdiFonts {
public:
    explicit GdiFonts(HDC context) : context_(context) {}

    /// A face `em` high, in tenths of a degree against the clock, with its glyphs up to `glyph` at least, under the
    /// numbers that they have in the file. Null where there is none.
    HFONT Find(const std::filesystem::path& path, int face, std::uint32_t glyph, int em, int turn);

private:
    /// The first glyphs of a face, so many.
    using PartKey = std::tuple<std::filesystem::path, int, std::uint32_t>;
    struct Part {
        std::wstring name;
        std::unique_ptr<HANDLE, RemoveFont> font; ///< null where the system does not take it
    };
    /// A part's name, height and turn.
    using FontKey = std::tuple<std::wstring, int, int>;

    const std::wstring& NameOf(const PartKey& key);
    HFONT Make(const FontKey& key) const;

    HDC context_;
    std::map<PartKey, Part> parts_;
    std::map<FontKey, std::unique_ptr<HFONT, DeleteFont>> fonts_;
};

} // namespace velmora
