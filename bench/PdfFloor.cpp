// The floor of a PDF: every text shaped once, compressed page streams, and each font's glyphs in use embedded with
// their widths and characters. Nothing is checked, no font is looked for, no text can be too long.
#include "bench/Floors.h"

#include <cstdio>
#include <hb-ot.h>
#include <hb-subset.h>
#include <hb.h>
#include <map>
#include <unordered_map>
#include <zlib.h>

namespace velmora::floors {
namespace {

constexpr std::size_t kTabsPerSheet = 24;
constexpr int kColumns = 3;
constexpr int kFontSize = 10;
constexpr unsigned kUnitsPerEm = 1000; // the font is scaled to a PDF's units

struct Line {
    std::string glyphs; ///< as the operators Tj and TJ take them
    int width = 0;
};

struct Font {
    std::string name;
    hb_face_t* face;
    hb_font_t* font;
    std::map<unsigned, std::pair<char32_t, int>> used; ///< by glyph: its character and width
    std::unordered_map<std::string, Line> lines;

    Font(std::string resource, const std::filesystem::path& path) : name(std::move(resource)) {
        hb_blob_t* blob = hb_blob_create_from_file(path.c_str());
        face = hb_face_create(blob, 0);
        font = hb_font_create(face);
        hb_font_set_scale(font, kUnitsPerEm, kUnitsPerEm);
        hb_blob_destroy(blob);
    }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    ~Font() {
        hb_font_destroy(font);
        hb_face_destroy(face);
    }
};

void AppendCode(std::string& out, unsigned glyph) {
    for (const unsigned byte : {glyph >> 8, glyph & 0xFF}) {
        const char c = static_cast<char>(byte);
        if (c == '(' || c == ')' || c == '\\' || c == '\r')
            out += '\\';
        out += c == '\r' ? 'r' : c;
    }
}

const Line& Shape(Font& font, const std::string& text, hb_buffer_t* buffer) {
    const auto [entry, isNew] = font.lines.try_emplace(text);
    if (!isNew)
        return entry->second;
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf8(buffer, text.data(), static_cast<int>(text.size()), 0, -1);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font.font, buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer, nullptr);
    Line& line = entry->second;
    line.glyphs = "[(";
    for (unsigned i = 0; i < count; ++i) {
        const auto [known, first] = font.used.try_emplace(glyphs[i].codepoint);
        if (first) // one byte or two are all that the sample's letters take
            known->second = {static_cast<unsigned char>(text[glyphs[i].cluster]) < 0x80
                                 ? static_cast<unsigned char>(text[glyphs[i].cluster])
                                 : (text[glyphs[i].cluster] & 0x1F) << 6 | (text[glyphs[i].cluster + 1] & 0x3F),
                             hb_font_get_glyph_h_advance(font.font, glyphs[i].codepoint)};
        AppendCode(line.glyphs, glyphs[i].codepoint);
        if (const int kern = known->second.second - places[i].x_advance; kern != 0)
            line.glyphs += ")" + std::to_string(kern) + "(";
        line.width += places[i].x_advance;
    }
    line.glyphs += ")]TJ\n";
    return line;
}

std::string PageStream(const Arrays& tabs, std::size_t first, std::array<Font*, 3> fonts, hb_buffer_t* buffer) {
    std::string stream = "BT\n";
    std::array<char, 64> place{};
    int lineX = 0, lineY = 0;
    const Font* current = nullptr;
    for (std::size_t slot = 0; slot < kTabsPerSheet; ++slot) {
        for (std::size_t field = 0; field < tabs.size(); ++field) {
            Font& font = *fonts[field];
            if (!current || &font != current)
                stream += font.name + ' ' + std::to_string(kFontSize) + " Tf\n";
            current = &font;
            const Line& line = Shape(font, tabs[field][first + slot], buffer);
            const int left = 170 * static_cast<int>(slot % kColumns);
            const int x = field < 2 ? left : left + 160 - line.width * kFontSize / static_cast<int>(kUnitsPerEm);
            const int y = 760 - 93 * static_cast<int>(slot / kColumns) - 14 * static_cast<int>(field > 0);
            const int length = std::snprintf(place.data(), place.size(), "%d %d Td\n", x - lineX, y - lineY);
            stream.append(place.data(), static_cast<std::size_t>(length)) += line.glyphs;
            lineX = x;
            lineY = y;
        }
    }
    return stream + "ET";
}

std::string Deflated(const std::string& text) {
    std::string packed(compressBound(text.size()), '\0');
    uLongf size = packed.size();
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(text.data()), text.size(),
              Z_BEST_SPEED);
    packed.resize(size);
    return packed;
}

std::string SubsetFile(const Font& font) {
    hb_subset_input_t* input = hb_subset_input_create_or_fail();
    hb_subset_input_set_flags(input, HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING);
    for (const auto& [glyph, use] : font.used)
        hb_set_add(hb_subset_input_glyph_set(input), glyph);
    for (const char* table : {"GSUB", "GPOS", "GDEF", "cmap", "name", "post", "OS/2", "kern"})
        hb_set_add(hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG), hb_tag_from_string(table, 4));
    hb_face_t* subset = hb_subset_or_fail(font.face, input);
    hb_subset_input_destroy(input);
    hb_blob_t* blob = hb_face_reference_blob(subset);
    hb_face_destroy(subset);
    unsigned length = 0;
    const char* bytes = hb_blob_get_data(blob, &length);
    std::string file(bytes, length);
    hb_blob_destroy(blob);
    return file;
}

/// Dictionaries are compressed together.
class File {
public:
    std::string Add(const std::string& body) {
        places_.emplace_back(0, packed_++);
        packedPlaces_ += std::to_string(places_.size()) + ' ' + std::to_string(packedBodies_.size()) + ' ';
        packedBodies_ += body + '\n';
        return std::to_string(places_.size()) + " 0 R";
    }
    /// The reference of the object that comes after the next `count`.
    std::string Ahead(std::size_t count) const { return std::to_string(places_.size() + count + 1) + " 0 R"; }
    std::string AddStream(const std::string& entries, const std::string& data) {
        const std::string packed = Deflated(data);
        places_.emplace_back(bytes_.size(), -1);
        bytes_ += std::to_string(places_.size()) + " 0 obj\n<<" + entries + "/Filter/FlateDecode/Length " +
                  std::to_string(packed.size()) + ">>stream\n" + packed + "\nendstream\nendobj\n";
        return std::to_string(places_.size()) + " 0 R";
    }
    std::string End(const std::string& root) {
        AddStream("/Type/ObjStm/N " + std::to_string(packed_) + "/First " + std::to_string(packedPlaces_.size()),
                  packedPlaces_ + packedBodies_);
        const std::size_t dictionaries = places_.size(), start = bytes_.size();
        places_.emplace_back(start, -1);
        std::string table = Row(0, 0, 0);
        for (const auto& [at, index] : places_)
            table += index < 0 ? Row(1, at, 0) : Row(2, dictionaries, index);
        places_.pop_back();
        AddStream("/Type/XRef/Size " + std::to_string(places_.size() + 2) + "/W[1 4 2]/Root " + root, table);
        return bytes_ + "startxref\n" + std::to_string(start) + "\n%%EOF\n";
    }

private:
    static std::string Row(int kind, std::size_t at, int index) {
        std::string row(1, static_cast<char>(kind));
        for (const int shift : {24, 16, 8, 0})
            row += static_cast<char>(at >> shift & 0xFF);
        return row + static_cast<char>(index >> 8 & 0xFF) + static_cast<char>(index & 0xFF);
    }

    std::string bytes_ = "%PDF-1.5\n", packedPlaces_, packedBodies_;
    std::vector<std::pair<std::size_t, int>> places_; ///< a byte, or which of the dictionaries
    int packed_ = 0;
};

std::string AddFont(File& file, const Font& font) {
    std::string widths, characters = std::to_string(font.used.size()) + " beginbfchar\n";
    std::array<char, 32> row{};
    for (const auto& [glyph, use] : font.used) {
        widths += std::to_string(glyph) + '[' + std::to_string(use.second) + ']';
        std::snprintf(row.data(), row.size(), "<%04X><%04X>\n", glyph, static_cast<unsigned>(use.first));
        characters += row.data();
    }
    const std::string map = file.AddStream(
        "", "/CIDInit/ProcSet findresource begin 12 dict begin begincmap/CMapType 2 def\n1 begincodespacerange\n"
            "<0000><FFFF>\nendcodespacerange\n" +
                characters + "endbfchar\nendcmap end end");
    const std::string program = SubsetFile(font);
    const std::string embedded = file.AddStream("/Length1 " + std::to_string(program.size()), program);
    const std::string name = "/AAAAAA+Floor";
    const std::string descriptor =
        file.Add("<</Type/FontDescriptor/FontName" + name + "/Flags 4/FontBBox[0 -200 1000 900]/ItalicAngle 0" +
                 "/Ascent 900/Descent -200/CapHeight 700/StemV 80/FontFile2 " + embedded + ">>");
    const std::string descendant =
        file.Add("<</Type/Font/Subtype/CIDFontType2/CIDToGIDMap/Identity/BaseFont" + name +
                 "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " + descriptor +
                 "/W[" + widths + "]>>");
    return file.Add("<</Type/Font/Subtype/Type0/BaseFont" + name + "/Encoding/Identity-H/DescendantFonts[" +
                    descendant + "]/ToUnicode " + map + ">>");
}

} // namespace

void Pdf(const std::filesystem::path& path, const Arrays& tabs, const FontFiles& fontFiles) {
    Font bold("/B", fontFiles.bold), regular("/R", fontFiles.regular);
    const std::array<Font*, 3> fonts = {&bold, &regular, &regular};
    hb_buffer_t* buffer = hb_buffer_create();
    File file;
    std::vector<std::string> contents;
    for (std::size_t first = 0; first < tabs[0].size(); first += kTabsPerSheet)
        contents.push_back(file.AddStream("", PageStream(tabs, first, fonts, buffer)));
    hb_buffer_destroy(buffer);
    const std::string resources =
        file.Add("<</Font<</B " + AddFont(file, bold) + "/R " + AddFont(file, regular) + ">>>>");
    const std::string tree = file.Ahead(contents.size());
    std::string kids;
    for (const std::string& content : contents)
        kids += file.Add("<</Type/Page/Parent " + tree + "/Contents " + content + ">>") + " ";
    file.Add("<</Type/Pages/MediaBox[0 0 595 842]/Resources " + resources + "/Count " +
             std::to_string(contents.size()) + "/Kids[" + kids + "]>>");
    WriteAll(path, file.End(file.Add("<</Type/Catalog/Pages " + tree + ">>")), false);
}

} // namespace velmora::floors
