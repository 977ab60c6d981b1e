#include "report/PdfFont.h"

#include "base/Error.h"
#include "base/Paths.h"

#include <hb-ot.h>
#include <hb-subset.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <span>
#include <utility>

namespace velmora {
namespace {

using SubsetInput = std::unique_ptr<hb_subset_input_t, HbRelease<hb_subset_input_destroy>>;

constexpr hb_tag_t kCffTable = HB_TAG('C', 'F', 'F', ' ');

HbBlob Table(hb_face_t* face, hb_tag_t tag) {
    return HbBlob(hb_face_reference_table(face, tag));
}

std::string_view Bytes(const HbBlob& blob) {
    unsigned length = 0;
    const char* data = hb_blob_get_data(blob.get(), &length);
    return {data, length};
}

/// Big-endian numbers from a table of a font file, whatever that file holds: outside the table they are 0.
class TableReader {
public:
    explicit TableReader(std::string_view bytes) : bytes_(bytes) {}

    bool AtEnd() const { return position_ >= bytes_.size(); }
    std::size_t Position() const { return position_; }
    void Seek(std::size_t position) { position_ = std::min(position, bytes_.size()); }
    std::uint32_t Number(int byteCount) {
        std::uint32_t number = 0;
        for (int i = 0; i < byteCount; ++i)
            number = number << 8 | (AtEnd() ? 0U : static_cast<unsigned char>(bytes_[position_++]));
        return number;
    }

private:
    std::string_view bytes_;
    std::size_t position_ = 0;
};

/// Skips an INDEX structure of a CFF table, its data as well. Gives where the data begins.
std::size_t SkipIndex(TableReader& reader) {
    const std::uint32_t count = reader.Number(2);
    if (count == 0)
        return reader.Position();
    const int offsetSize = static_cast<int>(reader.Number(1));
    const std::size_t data = reader.Position() + std::size_t{count + 1} * static_cast<std::size_t>(offsetSize);
    reader.Seek(data - static_cast<std::size_t>(offsetSize));
    const std::uint32_t length = reader.Number(offsetSize) - 1; // offsets count from 1
    reader.Seek(data + length);
    return data;
}

/// Skips one operand of a CFF dictionary that starts with byte `first`; gives its value where it is a whole
/// number.
std::uint32_t SkipOperand(TableReader& reader, std::uint32_t first) {
    if (first == 28)
        return reader.Number(2);
    if (first == 29)
        return reader.Number(4);
    if (first == 30) { // a decimal number, ended by a nibble of 15
        while (!reader.AtEnd()) {
            const std::uint32_t digits = reader.Number(1);
            if (digits >> 4 == 15 || (digits & 15) == 15)
                break;
        }
        return 0;
    }
    if (first >= 247) // two bytes; what we look for is never negative
        return (first - 247) * 256 + reader.Number(1) + 108;
    return first - 139;
}

/// Where the charset of a CFF table begins if its glyphs are named by numbers (CIDs); nullopt if by names.
std::optional<std::size_t> CidCharset(TableReader& reader) {
    constexpr std::uint32_t kEscape = 12, kRegistryOrderingSupplement = 30, kCharset = 15, kLastOperator = 21;
    reader.Seek(2);
    reader.Seek(reader.Number(1)); // the header says how long it is
    SkipIndex(reader);             // the font's name
    TableReader top = reader;
    top.Seek(SkipIndex(reader));
    bool hasCids = false;
    std::size_t charset = 0;
    std::uint32_t operand = 0;
    while (top.Position() < reader.Position()) {
        const std::uint32_t byte = top.Number(1);
        if (byte > kLastOperator)
            operand = SkipOperand(top, byte);
        else if (byte == kEscape)
            hasCids |= top.Number(1) == kRegistryOrderingSupplement;
        else if (byte == kCharset)
            charset = operand;
    }
    return hasCids ? std::optional(charset) : std::nullopt;
}

/// The code of each glyph. It is the glyph's own number, except in a CFF font whose glyphs are named by
/// numbers: there readers look glyphs up by that name.
std::vector<std::uint16_t> Codes(std::string_view cffTable, std::size_t glyphCount) {
    constexpr std::size_t kLastPredefinedCharset = 2;
    std::vector<std::uint16_t> codes(glyphCount);
    for (std::size_t i = 0; i < glyphCount; ++i)
        codes[i] = static_cast<std::uint16_t>(i);
    TableReader reader(cffTable);
    const auto charset = cffTable.empty() ? std::nullopt : CidCharset(reader);
    if (!charset || *charset <= kLastPredefinedCharset)
        return codes;
    reader.Seek(*charset);
    const std::uint32_t format = reader.Number(1);
    for (std::size_t glyph = 1; glyph < glyphCount && !reader.AtEnd();) {
        const std::uint32_t first = reader.Number(2);
        const std::uint32_t more = format == 0 ? 0 : reader.Number(static_cast<int>(format));
        for (std::uint32_t i = 0; i <= more && glyph < glyphCount; ++i)
            codes[glyph++] = static_cast<std::uint16_t>(first + i);
    }
    return codes;
}

/// The PostScript name, or one made from the file's name.
std::string PostScriptName(const FontFace& face) {
    std::string name(64, '\0');
    auto length = static_cast<unsigned>(name.size());
    hb_ot_name_get_utf8(face.Face(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &length, name.data());
    name.resize(length);
    std::erase_if(name, [](unsigned char c) { return !std::isalnum(c) && c != '-' && c != '_'; });
    const std::string bold = face.VariedWeight() ? "-Bold" : ""; // another font than the file's own, also by its name
    return (name.empty() ? "Font" : name) + bold;
}

/// Six letters that tell subsets of the same font apart, made from the glyphs.
template <class Glyphs> std::string SubsetTag(const Glyphs& glyphs) {
    constexpr std::uint64_t kFnvStart = 14695981039346656037ULL, kFnvPrime = 1099511628211ULL;
    std::uint64_t hash = kFnvStart;
    for (const auto& [code, glyph] : glyphs)
        hash = (hash ^ code) * kFnvPrime;
    std::string tag;
    for (int i = 0; i < 6; ++i, hash /= 26)
        tag += static_cast<char>('A' + hash % 26);
    return tag + '+';
}

/// Rounded to hundredths of the thousandths of an em in which a PDF counts glyph widths.
void AppendThousandths(std::string& out, std::int32_t units, int unitsPerEm) {
    AppendHundredths(out, ToHundredths(units * 1000.0 / unitsPerEm));
}

/// What a reader of PDF files has no use for: it picks glyphs by number and places them itself. A variable
/// font is frozen in one instance.
constexpr hb_tag_t kDroppedTables[] = {
    HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'), HB_TAG('B', 'A', 'S', 'E'),
    HB_TAG('M', 'A', 'T', 'H'), HB_TAG('J', 'S', 'T', 'F'), HB_TAG('k', 'e', 'r', 'n'), HB_TAG('c', 'm', 'a', 'p'),
    HB_TAG('n', 'a', 'm', 'e'), HB_TAG('p', 'o', 's', 't'), HB_TAG('O', 'S', '/', '2'), HB_TAG('g', 'a', 's', 'p'),
    HB_TAG('D', 'S', 'I', 'G'), HB_TAG('S', 'T', 'A', 'T'), HB_TAG('f', 'v', 'a', 'r'), HB_TAG('g', 'v', 'a', 'r'),
    HB_TAG('a', 'v', 'a', 'r'), HB_TAG('c', 'v', 'a', 'r'), HB_TAG('H', 'V', 'A', 'R'), HB_TAG('V', 'V', 'A', 'R'),
    HB_TAG('M', 'V', 'A', 'R'), HB_TAG('v', 'h', 'e', 'a'), HB_TAG('v', 'm', 't', 'x'), HB_TAG('V', 'O', 'R', 'G'),
    HB_TAG('h', 'd', 'm', 'x'), HB_TAG('V', 'D', 'M', 'X'), HB_TAG('L', 'T', 'S', 'H'), HB_TAG('m', 'e', 't', 'a'),
    HB_TAG('C', 'O', 'L', 'R'), HB_TAG('C', 'P', 'A', 'L'), HB_TAG('S', 'V', 'G', ' '), HB_TAG('s', 'b', 'i', 'x'),
    HB_TAG('C', 'B', 'D', 'T'), HB_TAG('C', 'B', 'L', 'C'), HB_TAG('E', 'B', 'D', 'T'), HB_TAG('E', 'B', 'L', 'C'),
    HB_TAG('E', 'B', 'S', 'C'),
};

/// All other axes stay where the file has them.
void PinWeight(hb_subset_input_t* input, hb_face_t* face, float weight) {
    unsigned count = hb_ot_var_get_axis_count(face);
    std::vector<hb_ot_var_axis_info_t> axes(count);
    hb_ot_var_get_axis_infos(face, 0, &count, axes.data());
    for (const hb_ot_var_axis_info_t& axis : axes) {
        if (axis.tag == HB_TAG('w', 'g', 'h', 't'))
            hb_subset_input_pin_axis_location(input, face, axis.tag, weight);
        else
            hb_subset_input_pin_axis_to_default(input, face, axis.tag);
    }
}

/// The face with only the given glyphs, under their own numbers.
template <class Glyphs> HbFace Subset(const FontFace& face, const Glyphs& glyphs) {
    const SubsetInput input(hb_subset_input_create_or_fail());
    if (!input)
        throw Error("Out of memory");
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING |
                                               HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
    for (const auto& [code, glyph] : glyphs)
        hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
    hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const hb_tag_t tag : kDroppedTables)
        hb_set_add(dropped, tag);
    if (const auto weight = face.VariedWeight())
        PinWeight(input.get(), face.Face(), *weight);
    HbFace subset(hb_subset_or_fail(face.Face(), input.get()));
    if (!subset)
        throw Error("The font cannot be embedded:\r\n[" + PathText(face.Path()) + "]");
    return subset;
}

} // namespace

PdfFont::PdfFont(std::shared_ptr<const FontFace> face, int object)
    : face_(std::move(face)), object_(object), name_(PostScriptName(*face_)) {
    const HbBlob cff = Table(face_->Face(), kCffTable);
    hasCff_ = !Bytes(cff).empty();
    entries_.resize(hb_face_get_glyph_count(face_->Face()));
    const std::vector<std::uint16_t> codes = Codes(Bytes(cff), entries_.size());
    for (std::size_t glyph = 0; glyph < codes.size(); ++glyph)
        entries_[glyph].code = codes[glyph];
}

void PdfFont::Remember(std::uint32_t glyph, std::u32string_view source) {
    Entry& entry = entries_[glyph];
    entry.used = true;
    entry.advance = hb_font_get_glyph_h_advance(face_->Font(), glyph);
    entry.hasSource = !source.empty();
    glyphs_[entry.code] = glyph;
    if (entry.hasSource)
        sources_[entry.code] = source;
}

void PdfFont::Write(PdfWriter& writer) const {
    const int descendant = writer.Reserve(), descriptor = writer.Reserve();
    const int file = writer.Reserve(), toUnicode = writer.Reserve();
    writer.Write(object_, "<</Type/Font/Subtype/Type0/BaseFont/" + SubsetTag(glyphs_) + name_ +
                              "/Encoding/Identity-H/DescendantFonts[" + PdfReference(descendant) + "]/ToUnicode " +
                              PdfReference(toUnicode) + ">>");
    WriteDescendant(writer, descendant, descriptor);
    WriteDescriptor(writer, descriptor, file);
    WriteFile(writer, file);
    writer.WriteStream(toUnicode, "", {ToUnicode()});
}

void PdfFont::WriteDescendant(PdfWriter& writer, int object, int descriptor) const {
    const std::string kind = hasCff_ ? "/Subtype/CIDFontType0" : "/Subtype/CIDFontType2/CIDToGIDMap/Identity";
    writer.Write(object, "<</Type/Font" + kind + "/BaseFont/" + SubsetTag(glyphs_) + name_ +
                             "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
                             PdfReference(descriptor) + "/W[" + Widths() + "]>>");
}

/// Pairs of a first code and the widths from there on.
std::string PdfFont::Widths() const {
    std::string widths;
    int expected = -1;
    for (const auto& [code, glyph] : glyphs_) {
        if (code != expected)
            widths.append(expected < 0 ? "" : "]").append(std::to_string(code)).append("[");
        else
            widths += ' ';
        AppendThousandths(widths, entries_[glyph].advance, face_->UnitsPerEm());
        expected = code + 1;
    }
    return expected < 0 ? widths : widths + "]";
}

void PdfFont::WriteDescriptor(PdfWriter& writer, int object, int file) const {
    constexpr int kBoundingBoxInHead = 36;
    constexpr int kSymbolic = 4;   // glyphs are picked by number, not by letter
    constexpr int kUsualStem = 80; // no font says how thick its stems are; readers use it only for substitutes
    const int unitsPerEm = face_->UnitsPerEm();
    const HbBlob head = Table(face_->Face(), HB_TAG('h', 'e', 'a', 'd'));
    TableReader reader(Bytes(head));
    reader.Seek(kBoundingBoxInHead);
    std::string body = "<</Type/FontDescriptor/FontName/" + SubsetTag(glyphs_) + name_ + "/Flags " +
                       std::to_string(kSymbolic) + "/FontBBox[";
    for (int edge = 0; edge < 4; ++edge) {
        AppendThousandths(body, static_cast<std::int16_t>(reader.Number(2)), unitsPerEm);
        body += edge < 3 ? " " : "]/ItalicAngle ";
    }
    AppendHundredths(body, ToHundredths(hb_style_get_value(face_->Font(), HB_STYLE_TAG_SLANT_ANGLE)));
    body += "/Ascent ";
    AppendThousandths(body, face_->Ascent(), unitsPerEm);
    body += "/Descent ";
    AppendThousandths(body, -face_->Descent(), unitsPerEm);
    hb_position_t capHeight = 0;
    hb_ot_metrics_get_position_with_fallback(face_->Font(), HB_OT_METRICS_TAG_CAP_HEIGHT, &capHeight);
    body += "/CapHeight ";
    AppendThousandths(body, capHeight, unitsPerEm);
    body += "/StemV " + std::to_string(kUsualStem) + (hasCff_ ? "/FontFile3 " : "/FontFile2 ");
    writer.Write(object, body + PdfReference(file) + ">>");
}

void PdfFont::WriteFile(PdfWriter& writer, int object) const {
    const HbFace subset = Subset(*face_, glyphs_);
    if (hasCff_) {
        const HbBlob cff = Table(subset.get(), kCffTable);
        writer.WriteStream(object, "/Subtype/CIDFontType0C", {Bytes(cff)});
        return;
    }
    const HbBlob file(hb_face_reference_blob(subset.get()));
    writer.WriteStream(object, "/Length1 " + std::to_string(Bytes(file).size()), {Bytes(file)});
}

std::string PdfFont::ToUnicode() const {
    constexpr std::size_t kEntriesPerBlock = 100; // the most that the format allows
    std::string map = "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
                      "/CMapName/Adobe-Identity-UCS def\n/CMapType 2 def\n"
                      "1 begincodespacerange\n<0000><FFFF>\nendcodespacerange\n";
    std::size_t left = sources_.size(), inBlock = 0;
    for (const auto& [code, source] : sources_) {
        if (inBlock == 0)
            map += std::to_string(inBlock = std::min(left, kEntriesPerBlock)) + " beginbfchar\n";
        map.append("<").append(Utf16Hex(std::u32string(1, code))).append("><").append(Utf16Hex(source)).append(">\n");
        --left;
        if (--inBlock == 0)
            map += "endbfchar\n";
    }
    return map + "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
}

} // namespace velmora
