#include "platform/windows/DirectWriteCatalogue.h"

#include "base/Text.h"
#include "base/windows/Com.h"
#include "platform/FontWidths.h"

#include <algorithm>
#include <dwrite.h>
#include <set>
#include <utility>

namespace velmora {
namespace {

/// Looked at in this order before any other family.
constexpr const char* kUsual[] = {"Segoe UI", "DejaVu Sans", "Arial", "Liberation Sans"};

std::string NameOf(IDWriteFontFamily& family) {
    Com<IDWriteLocalizedStrings> names;
    if (FAILED(family.GetFamilyNames(names.Out())))
        return {};
    UINT32 index = 0, length = 0;
    BOOL exists = FALSE;
    if (FAILED(names->FindLocaleName(L"en-us", &index, &exists)) || exists == FALSE)
        index = 0;
    if (FAILED(names->GetStringLength(index, &length)))
        return {};
    std::wstring name(length + 1, 0);
    names->GetString(index, name.data(), length + 1);
    name.resize(length);
    return Narrow(name);
}

bool HasTable(IDWriteFontFace& face, const char (&tag)[5]) {
    const void* data = nullptr;
    void* context = nullptr;
    UINT32 size = 0;
    BOOL exists = FALSE;
    const UINT32 name = DWRITE_MAKE_OPENTYPE_TAG(tag[0], tag[1], tag[2], tag[3]);
    if (FAILED(face.TryGetFontTable(name, &data, &size, &context, &exists)) || exists == FALSE)
        return false;
    face.ReleaseFontTable(context);
    return true;
}

/// Bitmap fonts and colour pictures can be neither shaped nor embedded.
bool IsUsable(IDWriteFontFace& face) {
    const DWRITE_FONT_FACE_TYPE type = face.GetType();
    const bool isOutline = type == DWRITE_FONT_FACE_TYPE_CFF || type == DWRITE_FONT_FACE_TYPE_TRUETYPE ||
                           type == DWRITE_FONT_FACE_TYPE_TRUETYPE_COLLECTION;
    return isOutline && (HasTable(face, "glyf") || HasTable(face, "CFF ")) && !HasTable(face, "COLR") &&
           !HasTable(face, "CBDT") && !HasTable(face, "sbix");
}

/// Empty for a font that lies in no file of its own.
std::filesystem::path PathOfFace(IDWriteFontFace& face) {
    UINT32 count = 1, size = 0, length = 0;
    Com<IDWriteFontFile> file;
    Com<IDWriteFontFileLoader> loader;
    Com<IDWriteLocalFontFileLoader> local;
    const void* key = nullptr;
    if (FAILED(face.GetFiles(&count, file.Out())) || FAILED(file->GetLoader(loader.Out())) ||
        FAILED(loader->QueryInterface(__uuidof(IDWriteLocalFontFileLoader), local.OutAs<void>())) ||
        FAILED(file->GetReferenceKey(&key, &size)) || FAILED(local->GetFilePathLengthFromKey(key, size, &length)))
        return {};
    std::wstring path(length + 1, 0);
    if (FAILED(local->GetFilePathFromKey(key, size, path.data(), length + 1)))
        return {};
    path.resize(length);
    return path;
}

/// nullopt for one that cannot be used. A font that the system makes up claims to have the style.
std::optional<FontFile> FileOf(IDWriteFont& font, const std::string& family, const FontRequest& request) {
    Com<IDWriteFontFace> face;
    if (FAILED(font.CreateFontFace(face.Out())) || !IsUsable(*face))
        return std::nullopt;
    std::filesystem::path path = PathOfFace(*face);
    if (path.empty())
        return std::nullopt;
    const auto madeUp = static_cast<unsigned>(font.GetSimulations());
    const bool isBold =
        font.GetWeight() >= DWRITE_FONT_WEIGHT_SEMI_BOLD && (madeUp & DWRITE_FONT_SIMULATIONS_BOLD) == 0;
    const bool isItalic =
        font.GetStyle() != DWRITE_FONT_STYLE_NORMAL && (madeUp & DWRITE_FONT_SIMULATIONS_OBLIQUE) == 0;
    return FontFile{std::move(path), static_cast<int>(face->GetIndex()), family, request.bold && !isBold,
                    request.italic && !isItalic};
}

bool Before(const std::string& a, const std::string& b) {
    return std::pair(FoldCase(a), a) < std::pair(FoldCase(b), b);
}

} // namespace

/// The families of the system.
class DirectWriteCatalogue::Fonts {
public:
    Fonts() {
        Com<IDWriteFactory> factory;
        if (SUCCEEDED(
                ::DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory), factory.OutAs<IUnknown>())))
            factory->GetSystemFontCollection(collection_.Out(), FALSE);
        for (UINT32 i = 0; collection_ && i < collection_->GetFontFamilyCount(); ++i)
            if (const auto family = Family(i))
                names_.emplace_back(NameOf(*family), i);
    }

    /// The nearest face of the family asked for, else of the first that has one. 0: whatever characters it has.
    std::optional<FontFile> Find(const FontRequest& request, char32_t character) const {
        for (const auto& [name, index] : InOrder(request.family))
            if (auto file = Find(name, index, request, character))
                return file;
        return std::nullopt;
    }

    std::vector<std::string> Usable() const {
        std::set<std::string, decltype(&Before)> names(Before);
        for (const auto& [name, index] : names_)
            if (Find(name, index, {}, 0))
                names.insert(name);
        return {names.begin(), names.end()};
    }

private:
    using Named = std::pair<std::string, UINT32>;

    Com<IDWriteFontFamily> Family(UINT32 index) const {
        Com<IDWriteFontFamily> family;
        collection_->GetFontFamily(index, family.Out());
        return family;
    }

    std::optional<FontFile> Find(const std::string& name, UINT32 index, const FontRequest& request,
                                 char32_t character) const {
        const auto family = Family(index);
        Com<IDWriteFont> font;
        const auto weight = request.bold ? DWRITE_FONT_WEIGHT_BOLD : DWRITE_FONT_WEIGHT_NORMAL;
        const auto style = request.italic ? DWRITE_FONT_STYLE_ITALIC : DWRITE_FONT_STYLE_NORMAL;
        BOOL has = TRUE;
        if (!family || FAILED(family->GetFirstMatchingFont(weight, DWRITE_FONT_STRETCH_NORMAL, style, font.Out())) ||
            (character != 0 && FAILED(font->HasCharacter(character, &has))) || has == FALSE)
            return std::nullopt;
        return FileOf(*font, name, request);
    }

    /// That family, those of its widths, the usual ones, all others.
    std::vector<Named> InOrder(const std::string& wanted) const {
        const auto rank = [widths = WidthsOf(wanted), folded = FoldCase(wanted)](const std::string& name) {
            if (FoldCase(name) == folded)
                return std::pair<std::ptrdiff_t, std::string>(-2, "");
            if (WidthsOf(name) == widths)
                return std::pair<std::ptrdiff_t, std::string>(-1, name);
            return std::pair<std::ptrdiff_t, std::string>(
                std::find(std::begin(kUsual), std::end(kUsual), name) - kUsual, FoldCase(name));
        };
        std::vector<std::pair<std::pair<std::ptrdiff_t, std::string>, Named>> ranked;
        for (const Named& named : names_)
            ranked.emplace_back(rank(named.first), named);
        std::sort(ranked.begin(), ranked.end());
        std::vector<Named> order;
        for (auto& [place, named] : ranked)
            order.push_back(std::move(named));
        return order;
    }

    Com<IDWriteFontCollection> collection_;
    std::vector<Named> names_;
};

DirectWriteCatalogue::DirectWriteCatalogue() = default;
DirectWriteCatalogue::~DirectWriteCatalogue() = default;

const DirectWriteCatalogue::Fonts& DirectWriteCatalogue::All() const {
    if (!fonts_)
        fonts_ = std::make_unique<Fonts>();
    return *fonts_;
}

std::optional<FontFile> DirectWriteCatalogue::Match(const FontRequest& request) const {
    return All().Find(request, 0);
}

std::optional<FontFile> DirectWriteCatalogue::MatchCharacter(const FontRequest& request, char32_t character) const {
    return All().Find(request, character);
}

std::vector<std::string> DirectWriteCatalogue::Families() const {
    return All().Usable();
}

} // namespace velmora
