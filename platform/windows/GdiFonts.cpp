#include "platform/windows/GdiFonts.h"

#include "base/MappedFile.h"

#include <hb-subset.h>

#include <array>
#include <initializer_list>
#include <utility>

namespace velmora {
namespace {

template <auto destroy> struct HbDestroy {
    void operator()(auto* object) const { destroy(object); }
};
using HbBlobPointer = std::unique_ptr<hb_blob_t, HbDestroy<hb_blob_destroy>>;
using HbFacePointer = std::unique_ptr<hb_face_t, HbDestroy<hb_face_destroy>>;
using HbInputPointer = std::unique_ptr<hb_subset_input_t, HbDestroy<hb_subset_input_destroy>>;

/// What draws glyphs by number; what shapes texts, hints screens and varies a design is left out.
constexpr std::array kKeptTables = {HB_TAG('c', 'm', 'a', 'p'), HB_TAG('C', 'F', 'F', ' '), HB_TAG('O', 'S', '/', '2'),
                                    HB_TAG('g', 'l', 'y', 'f'), HB_TAG('h', 'e', 'a', 'd'), HB_TAG('h', 'h', 'e', 'a'),
                                    HB_TAG('h', 'm', 't', 'x'), HB_TAG('l', 'o', 'c', 'a'), HB_TAG('m', 'a', 'x', 'p'),
                                    HB_TAG('p', 'o', 's', 't')};

HbBlobPointer BlobOf(std::string_view bytes) {
    return HbBlobPointer(
        hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_READONLY, nullptr, nullptr));
}

/// The table of a font's names: its family, style, number, full name and PostScript's all are `name`.
std::string NameTable(std::wstring_view name) {
    constexpr std::array<std::size_t, 5> kIds = {1, 2, 3, 4, 6};
    constexpr std::size_t kHeader = 6, kRecord = 12, kWindows = 3, kUtf16 = 1, kEnglish = 0x409;
    std::string table;
    const auto put = [&](std::initializer_list<std::size_t> numbers) {
        for (const std::size_t number : numbers) {
            table += static_cast<char>(number >> 8U);
            table += static_cast<char>(number);
        }
    };
    put({0, kIds.size(), kHeader + kRecord * kIds.size()});
    for (const std::size_t id : kIds)
        put({kWindows, kUtf16, kEnglish, id, 2 * name.size(), 0});
    for (const wchar_t unit : name)
        put({unit});
    return table;
}

/// The glyphs keep their numbers, for none is left out among them; what they are composed of follows behind.
HbInputPointer FirstGlyphs(std::uint32_t count) {
    HbInputPointer input(hb_subset_input_create_or_fail());
    if (!input)
        return nullptr;
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
    hb_set_add_range(hb_subset_input_glyph_set(input.get()), 0, count - 1);
    hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    hb_set_clear(dropped);
    for (const hb_tag_t tag : kKeptTables)
        hb_set_add(dropped, tag);
    hb_set_invert(dropped);
    return input;
}

/// A font file of a face's first glyphs. Null where the file is none.
HbBlobPointer PartOf(std::string_view file, int index, std::uint32_t count, std::wstring_view name) {
    const HbFacePointer whole(hb_face_create(BlobOf(file).get(), static_cast<unsigned>(index)));
    const HbInputPointer input = FirstGlyphs(count);
    const HbFacePointer part(input ? hb_subset_or_fail(whole.get(), input.get()) : nullptr);
    if (!part)
        return nullptr;
    const std::string names = NameTable(name);
    hb_face_builder_add_table(part.get(), HB_TAG('n', 'a', 'm', 'e'), BlobOf(names).get());
    return HbBlobPointer(hb_face_reference_blob(part.get()));
}

/// Null where the system does not take it.
HANDLE AddPart(const std::filesystem::path& path, int index, std::uint32_t count, std::wstring_view name) {
    const MappedFile file(path);
    const HbBlobPointer part = PartOf(file.Bytes(), index, count, name);
    unsigned size = 0;
    char* data = part ? hb_blob_get_data_writable(part.get(), &size) : nullptr;
    DWORD fonts = 0;
    return data ? ::AddFontMemResourceEx(data, size, nullptr, &fonts) : nullptr;
}

/// As many as hold `glyph`, of few sizes, so that most texts share one part.
std::uint32_t CountWith(std::uint32_t glyph) {
    std::uint32_t count = 256;
    while (count <= glyph)
        count *= 2;
    return count;
}

bool IsFound(HDC context, HFONT font, const std::wstring& name) {
    const HGDIOBJ before = ::SelectObject(context, font);
    std::array<wchar_t, LF_FACESIZE> found{};
    ::GetTextFaceW(context, static_cast<int>(found.size()), found.data());
    ::SelectObject(context, before);
    return found.data() == name;
}

} // namespace

const std::wstring& GdiFonts::NameOf(const PartKey& key) {
    const auto known = parts_.find(key);
    if (known != parts_.end())
        return known->second.name;
    // Short, for drivers repeat it with each text. Another job's fonts have another context in their names.
    const std::wstring name =
        L'V' + std::to_wstring(reinterpret_cast<std::uintptr_t>(context_)) + L'-' + std::to_wstring(parts_.size());
    const auto& [path, face, count] = key;
    Part part{name, std::unique_ptr<HANDLE, RemoveFont>(AddPart(path, face, count, name))};
    return parts_.emplace(key, std::move(part)).first->second.name;
}

HFONT GdiFonts::Find(const std::filesystem::path& path, int face, std::uint32_t glyph, int em, int turn) {
    const FontKey key(NameOf({path, face, CountWith(glyph)}), em, turn);
    const auto known = fonts_.find(key);
    if (known != fonts_.end())
        return known->second.get();
    return fonts_.emplace(key, Make(key)).first->second.get();
}

HFONT GdiFonts::Make(const FontKey& key) const {
    const auto& [name, em, turn] = key;
    LOGFONTW wanted{};
    wanted.lfHeight = -em;
    wanted.lfEscapement = wanted.lfOrientation = turn;
    wanted.lfCharSet = DEFAULT_CHARSET;
    name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    std::unique_ptr<HFONT, DeleteFont> font(::CreateFontIndirectW(&wanted));
    return IsFound(context_, font.get(), name) ? font.release() : nullptr;
}

} // namespace velmora
