#include "platform/linux/FontconfigCatalogue.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <fontconfig/fontconfig.h>

#include <set>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

template <auto destroy> struct Release {
    void operator()(auto* object) const { destroy(object); }
};
using Pattern = std::unique_ptr<FcPattern, Release<FcPatternDestroy>>;
using CharSet = std::unique_ptr<FcCharSet, Release<FcCharSetDestroy>>;
using ObjectSet = std::unique_ptr<FcObjectSet, Release<FcObjectSetDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Release<FcFontSetDestroy>>;

constexpr char32_t kNoCharacter = 0;
// The upper half of an index names an instance of a variable font.
constexpr int kFaceIndexMask = 0xFFFF;

std::string PropertyOf(const FcPattern* pattern, const char* property) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, property, 0, &text) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(text);
}

int NumberOf(const FcPattern* pattern, const char* property, int fallback) {
    int number = fallback;
    // A variable face has a range here instead of a number.
    return FcPatternGetInteger(pattern, property, 0, &number) == FcResultMatch ? number : fallback;
}

bool FlagOf(const FcPattern* pattern, const char* property) {
    FcBool flag = FcFalse;
    return FcPatternGetBool(pattern, property, 0, &flag) == FcResultMatch && flag == FcTrue;
}

/// What to look for, with the desktop's aliases and defaults applied.
Pattern Wanted(FcConfig* config, const FontRequest& request, char32_t character) {
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(request.family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, request.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_COLOR, FcFalse);
    FcPatternAddBool(pattern.get(), FC_VARIABLE, FcFalse);
    if (character != kNoCharacter) {
        const CharSet characters(FcCharSetCreate());
        FcCharSetAddChar(characters.get(), character);
        FcPatternAddCharSet(pattern.get(), FC_CHARSET, characters.get());
    }
    FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

bool HasCharacter(const FcPattern* font, char32_t character) {
    FcCharSet* characters = nullptr;
    return character == kNoCharacter || (FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) == FcResultMatch &&
                                         FcCharSetHasChar(characters, character));
}

/// Type 1 and bitmap fonts, colour pictures and compressed web fonts can be neither shaped nor embedded.
bool IsUsable(const FcPattern* font) {
    const std::string format = PropertyOf(font, FC_FONTFORMAT);
    const std::string file = PropertyOf(font, FC_FILE);
    return (format == "TrueType" || format == "CFF") && FlagOf(font, FC_OUTLINE) && !FlagOf(font, FC_COLOR) &&
           !file.empty() && !EndsWithNoCase(file, ".woff") && !EndsWithNoCase(file, ".woff2");
}

bool IsLeaning(const FcPattern* font) {
    FcMatrix* matrix = nullptr;
    return FcPatternGetMatrix(font, FC_MATRIX, 0, &matrix) == FcResultMatch && matrix->xy != 0;
}

/// The desktop's rules may say that a missing style is to be made up; the pattern then claims to have the
/// style.
FontFile FileOf(const FcPattern* font, const FontRequest& request) {
    const int index = NumberOf(font, FC_INDEX, 0);
    const bool defaultInstance = FlagOf(font, FC_VARIABLE) || index > kFaceIndexMask;
    const int weight = defaultInstance ? FC_WEIGHT_REGULAR : NumberOf(font, FC_WEIGHT, FC_WEIGHT_REGULAR);
    const bool isBold = weight >= FC_WEIGHT_DEMIBOLD && !FlagOf(font, FC_EMBOLDEN);
    const bool isItalic = NumberOf(font, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN && !IsLeaning(font);
    return {PathOf(PropertyOf(font, FC_FILE)), index & kFaceIndexMask, PropertyOf(font, FC_FAMILY),
            request.bold && !isBold, request.italic && !isItalic};
}

} // namespace

FontconfigCatalogue::FontconfigCatalogue() = default;
FontconfigCatalogue::~FontconfigCatalogue() = default;

void FontconfigCatalogue::ReleaseConfig::operator()(_FcConfig* config) const {
    FcConfigDestroy(config);
}

_FcConfig* FontconfigCatalogue::Config() const {
    if (!config_)
        config_.reset(FcConfigReference(nullptr));
    return config_.get();
}

std::optional<FontFile> FontconfigCatalogue::Match(const FontRequest& request) const {
    return Find(request, kNoCharacter);
}

std::optional<FontFile> FontconfigCatalogue::MatchCharacter(const FontRequest& request, char32_t character) const {
    return Find(request, character);
}

std::vector<std::string> FontconfigCatalogue::Families() const {
    const Pattern any(FcPatternCreate());
    const ObjectSet wanted(
        FcObjectSetBuild(FC_FAMILY, FC_FILE, FC_FONTFORMAT, FC_OUTLINE, FC_COLOR, static_cast<char*>(nullptr)));
    const FontSet fonts(Config() ? FcFontList(Config(), any.get(), wanted.get()) : nullptr);
    const auto before = [](const std::string& a, const std::string& b) {
        return std::pair(FoldCase(a), a) < std::pair(FoldCase(b), b);
    };
    std::set<std::string, decltype(before)> families(before);
    for (int i = 0; fonts && i < fonts->nfont; ++i)
        if (IsUsable(fonts->fonts[i]))
            families.insert(PropertyOf(fonts->fonts[i], FC_FAMILY));
    return {families.begin(), families.end()};
}

std::optional<FontFile> FontconfigCatalogue::Find(const FontRequest& request, char32_t character) const {
    FcConfig* config = Config();
    if (!config)
        return std::nullopt;
    const Pattern wanted = Wanted(config, request, character);
    FcResult result = FcResultNoMatch;
    const Pattern best(FcFontMatch(config, wanted.get(), &result));
    if (best && IsUsable(best.get()) && HasCharacter(best.get(), character))
        return FileOf(best.get(), request);
    // The whole list takes longer and is seldom needed: only when the best face is of an unusable kind.
    const FontSet all(FcFontSort(config, wanted.get(), FcFalse, nullptr, &result));
    for (int i = 0; all && i < all->nfont; ++i)
        if (IsUsable(all->fonts[i]) && HasCharacter(all->fonts[i], character))
            return FileOf(all->fonts[i], request);
    return std::nullopt;
}

} // namespace velmora
