#include "platform/windows/GdiFonts.h"

#include <vector>

namespace velmora {
namespace {

/// What `make` puts into a pointer; null where it fails.
template <typename Object, typename Make> ObjectPointer<Object> Made(Make make) {
    Object* object = nullptr;
    return ObjectPointer<Object>(SUCCEEDED(make(&object)) ? object : nullptr);
}

ObjectPointer<IDWriteFactory> MakeFactory() {
    return Made<IDWriteFactory>([](IDWriteFactory** factory) {
        return ::DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                     reinterpret_cast<IUnknown**>(factory));
    });
}

ObjectPointer<IDWriteFontFace> OpenFace(IDWriteFactory& factory, const std::filesystem::path& path, int index) {
    const auto file = Made<IDWriteFontFile>(
        [&](IDWriteFontFile** made) { return factory.CreateFontFileReference(path.c_str(), nullptr, made); });
    BOOL isSupported = FALSE;
    DWRITE_FONT_FILE_TYPE fileType{};
    DWRITE_FONT_FACE_TYPE faceType{};
    UINT32 faces = 0;
    if (!file || FAILED(file->Analyze(&isSupported, &fileType, &faceType, &faces)) || !isSupported)
        return nullptr;
    IDWriteFontFile* files = file.get();
    return Made<IDWriteFontFace>([&](IDWriteFontFace** made) {
        return factory.CreateFontFace(faceType, 1, &files, static_cast<UINT32>(index), DWRITE_FONT_SIMULATIONS_NONE,
                                      made);
    });
}

/// The table that holds the sum of the whole font.
constexpr DWORD kHead = 'h' | 'e' << 8U | 'a' << 16U | 'd' << 24U;

std::string HeadOf(IDWriteFontFace& face) {
    const void* data = nullptr;
    void* hold = nullptr;
    UINT32 size = 0;
    BOOL isThere = FALSE;
    if (FAILED(face.TryGetFontTable(kHead, &data, &size, &hold, &isThere)) || !isThere)
        return "";
    std::string head(static_cast<const char*>(data), size);
    face.ReleaseFontTable(hold);
    return head;
}

std::string HeadOf(HDC context, HFONT font) {
    const HGDIOBJ before = ::SelectObject(context, font);
    const DWORD size = ::GetFontData(context, kHead, 0, nullptr, 0);
    std::string head(size == GDI_ERROR ? 0 : size, '\0');
    ::GetFontData(context, kHead, 0, head.data(), static_cast<DWORD>(head.size()));
    ::SelectObject(context, before);
    return head;
}

} // namespace

GdiFonts::GdiFonts(HDC context) : context_(context), factory_(MakeFactory()) {
    if (factory_)
        interop_ = Made<IDWriteGdiInterop>([&](IDWriteGdiInterop** made) { return factory_->GetGdiInterop(made); });
}

HFONT GdiFonts::Find(const std::filesystem::path& path, int face, int em, int turn) {
    const Key key(path, face, em, turn);
    const auto known = fonts_.find(key);
    if (known != fonts_.end())
        return known->second.get();
    return fonts_.emplace(key, Make(key)).first->second.get();
}

HFONT GdiFonts::Make(const Key& key) {
    const auto& [path, index, em, turn] = key;
    const auto face = interop_ ? OpenFace(*factory_, path, index) : nullptr;
    LOGFONTW wanted{};
    if (!face || FAILED(interop_->ConvertFontFaceToLOGFONT(face.get(), &wanted)))
        return nullptr;
    wanted.lfHeight = -em;
    wanted.lfEscapement = wanted.lfOrientation = turn;
    std::unique_ptr<HFONT, DeleteFont> font(::CreateFontIndirectW(&wanted));
    const std::string head = HeadOf(*face);
    return !head.empty() && HeadOf(context_, font.get()) == head ? font.release() : nullptr;
}

} // namespace velmora
