// Font files as fonts of a device context, by which their glyphs are drawn by number.
#pragma once

#include "base/windows/Api.h"

#include <dwrite.h>

#include <filesystem>
#include <map>
#include <memory>
#include <tuple>

namespace velmora {

/// A reference to an object of the system's.
struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Object> using ObjectPointer = std::unique_ptr<Object, ReleaseObject>;

struct DeleteFont {
    using pointer = HFONT;
    void operator()(HFONT font) const { ::DeleteObject(font); }
};

/// The fonts of one device context. It must not be in use with any of them when they go.
class GdiFonts {
public:
    explicit GdiFonts(HDC context);

    /// The installed font of that very face, `em` high, in tenths of a degree against the clock. Null where there is
    /// none: the system knows fonts by their names, and takes another one for a name that it does not know.
    HFONT Find(const std::filesystem::path& path, int face, int em, int turn);

private:
    using Key = std::tuple<std::filesystem::path, int, int, int>;

    HFONT Make(const Key& key);

    HDC context_;
    ObjectPointer<IDWriteFactory> factory_;
    ObjectPointer<IDWriteGdiInterop> interop_;
    std::map<Key, std::unique_ptr<HFONT, DeleteFont>> fonts_;
};

} // namespace velmora
