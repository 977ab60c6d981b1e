#include "report/PdfCanvas.h"

#include "report/Twips.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

namespace velmora {
namespace {

constexpr double kPointsPerMm = 72 / 25.4;
constexpr double kThousandths = 1000;
constexpr double kLeastShift = 0.5; // is rounded to one
constexpr const char* kProducer = "Velmora " VELMORA_VERSION;

void AppendByte(std::string& out, unsigned byte) {
    const char c = static_cast<char>(byte);
    // A bare CR inside a string would be read as a line feed.
    if (c == '\r') {
        out += "\\r";
        return;
    }
    if (c == '(' || c == ')' || c == '\\')
        out += '\\';
    out += c;
}

/// "[0 0 595.276 841.89]".
std::string MediaBox(const Paper& paper) {
    std::string box = "[0 0";
    for (const double length : {paper.widthMm, paper.heightMm}) {
        std::array<char, 32> number; // printf would write the decimal point of the desktop's locale
        const auto end = std::to_chars(number.data(), number.data() + number.size(), length * kPointsPerMm,
                                       std::chars_format::fixed, 3)
                             .ptr;
        (box += ' ').append(number.data(), end);
    }
    return box + "]";
}

/// The text strings of the information dictionary.
std::string TextString(std::string_view utf8) {
    return "<FEFF" + Utf16Hex(Characters(utf8)) + ">";
}

std::string DateString(std::chrono::sys_seconds time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    char text[40];
    std::snprintf(text, sizeof text, "(D:%04d%02u%02u%02d%02d%02dZ)", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}

/// A string of glyphs with the shifts between them, as the operators Tj and TJ take it.
class GlyphString {
public:
    GlyphString(std::string& out, double owed) : out_(out), begin_(out.size()), owed_(owed) { out_ += '('; }

    /// Moves the next glyph to the right, in thousandths of the font size. What rounding leaves over counts
    /// for the next shift.
    void Shift(double thousandths) { owed_ += thousandths; }
    void Add(std::uint16_t code) {
        if (std::abs(owed_) >= kLeastShift) {
            const auto whole = std::lround(owed_);
            out_ += ')';
            AppendHundredths(out_, -whole * 100);
            out_ += '(';
            owed_ -= static_cast<double>(whole);
            shifted_ = true;
        }
        AppendByte(out_, code >> 8U);
        AppendByte(out_, code & 0xFFU);
    }
    /// Gives the shift that is still owed to the next glyph.
    double End() {
        out_ += shifted_ ? ")]TJ\n" : ")Tj\n";
        if (shifted_)
            out_.insert(begin_, 1, '[');
        return owed_;
    }

private:
    std::string& out_;
    std::size_t begin_;
    double owed_;
    bool shifted_ = false;
};

void Add(GlyphString& string, const ShapedGlyph& glyph, std::u32string_view source, PdfFont& font, double perUnit) {
    // The box for a missing glyph stands for a different character each time.
    const std::int32_t advance = font.Use(glyph.id, glyph.id == 0 ? std::u32string_view() : source);
    string.Shift(glyph.xOffset * perUnit);
    string.Add(font.CodeOf(glyph.id));
    string.Shift((glyph.advance - advance - glyph.xOffset) * perUnit);
}

std::u32string_view SourceOf(const ShapedGlyph& glyph, std::u32string_view characters) {
    return characters.substr(glyph.sourceBegin, glyph.sourceLength);
}

/// Has characters of its own, and is on the line: nearly all are.
bool StandsAlone(const ShapedGlyph& glyph) {
    return glyph.sourceLength != 0 && glyph.yOffset == 0;
}

/// The one that the face draws by this very glyph; empty where none.
std::u32string_view OwnCharacter(const FontFace& face, std::uint32_t glyph, std::u32string_view characters) {
    const auto own = std::find_if(characters.begin(), characters.end(),
                                  [&](char32_t character) { return face.IsGlyphOf(glyph, character); });
    return own == characters.end() ? std::u32string_view()
                                   : characters.substr(static_cast<std::size_t>(own - characters.begin()), 1);
}

using GlyphPlace = std::vector<ShapedGlyph>::const_iterator;

/// Behind the glyphs that are read with the one at `first`. Where text runs to the left, each is read by itself, and an
/// accent of Europe's letters is found with its letter as it is.
GlyphPlace EndOfTogether(GlyphPlace first, GlyphPlace end, std::u32string_view characters) {
    constexpr char32_t kIndic = 0x900; // here and behind it signs stand all around their letters
    if (first->sourceLength == 0)
        return first + 1;
    const bool hasSigns = characters[first->sourceBegin] >= kIndic;
    return std::find_if_not(first + 1, end, [&](const ShapedGlyph& other) {
        return other.sourceLength == 0 ? other.sourceBegin == first->sourceBegin
                                       : hasSigns && other.yOffset != 0 && other.sourceBegin > first->sourceBegin;
    });
}

std::uint32_t SourceEnd(GlyphPlace first, GlyphPlace end) {
    std::uint32_t source = 0;
    for (; first != end; ++first)
        source = std::max(source, first->sourceBegin + first->sourceLength);
    return source;
}

} // namespace

PdfCanvas::PdfCanvas(PdfSink sink, PdfInfo info)
    : writer_(std::move(sink)), info_(std::move(info)), pageTree_(writer_.Reserve()), resources_(writer_.Reserve()) {}

void PdfCanvas::BeginSheet(const Paper& paper) {
    mediaBox_ = MediaBox(paper);
    turned_ = paper.turned;
    paperWidth_ = paper.widthMm * kPointsPerMm;
    sheetHeight_ = (turned_ ? paper.widthMm : paper.heightMm) * kPointsPerMm;
    state_ = {};
    text_.clear();
    boxes_.clear();
    tabOutlines_.clear();
    fieldOutlines_.clear();
}

PdfCanvas::Point PdfCanvas::ToPage(double leftTwips, double topTwips) const {
    return {ToHundredths(leftTwips / kTwipsPerPoint), ToHundredths(sheetHeight_ - topTwips / kTwipsPerPoint)};
}

void PdfCanvas::Operator(std::int64_t operand, std::string_view name) {
    AppendHundredths(text_, operand);
    text_ += name;
}

void PdfCanvas::AppendRectangle(std::string& out, const Box& box) const {
    const Point corner = ToPage(box.left, box.Bottom());
    const Point opposite = ToPage(box.Right(), box.top);
    for (const std::int64_t number : {corner.x, corner.y, opposite.x - corner.x, opposite.y - corner.y}) {
        AppendHundredths(out, number);
        out += ' ';
    }
    out += "re\n";
}

void PdfCanvas::DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) {
    const TextState before = state_;
    if (clip)
        BeginClip(*clip);
    for (const GlyphRun& run : text.runs) {
        DrawRun(text, run, ToPage(left, baseline));
        left += RunWidth(run, text.fontSize);
    }
    if (clip)
        EndClip(before);
}

void PdfCanvas::BeginClip(const Box& clip) {
    text_ += "ET q ";
    AppendRectangle(text_, clip);
    text_ += "W n BT\n";
    state_.lineX = state_.lineY = 0;
    state_.slanted = false;
}

/// Brings back the font and all that were set before the clip.
void PdfCanvas::EndClip(const TextState& before) {
    text_ += "ET Q BT\n";
    state_ = before;
    state_.lineX = state_.lineY = 0;
    state_.slanted = false;
}

PdfFont& PdfCanvas::FontFor(const Typeface& typeface) {
    for (PdfFont& font : fonts_)
        if (&font.Face() == typeface.face.get())
            return font;
    return fonts_.emplace_back(typeface.face, writer_.Reserve());
}

void PdfCanvas::DrawRun(const ShapedText& text, const GlyphRun& run, Point start) {
    PdfFont& font = FontFor(run.typeface);
    SelectFont(font, ToHundredths(text.fontSize / kTwipsPerPoint), run.typeface.embolden);
    MoveTo(start, run.typeface.slant);
    ShowRun(text, run, font);
}

/// The operator; the fonts of a tab take turns.
const std::string& PdfCanvas::Selection(const PdfFont& font, std::int64_t size) {
    std::string& selection = selections_[{&font, size}];
    if (selection.empty()) {
        selection = "/F" + std::to_string(font.Object()) + ' ';
        AppendHundredths(selection, size);
        selection += " Tf\n";
    }
    return selection;
}

void PdfCanvas::SelectFont(const PdfFont& font, std::int64_t size, bool embolden) {
    if (state_.font != &font || state_.size != size) {
        text_ += Selection(font, size);
        state_.font = &font;
        state_.size = size;
    }
    const auto stroke = embolden ? std::llround(static_cast<double>(size) * kEmboldenStroke) : 0;
    if (state_.stroke == stroke)
        return;
    if (stroke > 0)
        Operator(stroke,
                 " w 1 j 2 Tr\n"); // round corners: a pointed one would stick out of a thickened glyph
    else
        text_ += "0 Tr\n";
    state_.stroke = stroke;
}

void PdfCanvas::MoveTo(Point start, bool slant) {
    if (slant || state_.slanted) {
        text_ += "1 0 ";
        Operator(slant ? ToHundredths(kSlantShear) : 0, " 1 ");
        Operator(start.x, " ");
        Operator(start.y, " Tm\n");
    } else {
        Operator(start.x - state_.lineX, " ");
        Operator(start.y - state_.lineY, " Td\n");
    }
    state_.lineX = start.x;
    state_.lineY = start.y;
    state_.slanted = slant;
}

/// The strings that a run comes to.
class PdfCanvas::GlyphStrings {
public:
    explicit GlyphStrings(std::string& out) : out_(out) {}
    ~GlyphStrings() { End(); }
    GlyphStrings(const GlyphStrings&) = delete;
    GlyphStrings& operator=(const GlyphStrings&) = delete;

    GlyphString& Open() { return string_ ? *string_ : string_.emplace(out_, owed_); }
    void End() {
        if (string_)
            owed_ = string_->End();
        string_.reset();
    }

private:
    std::string& out_;
    std::optional<GlyphString> string_;
    double owed_ = 0;
};

/// As it was shown before, if it was lately: names and months recur on every sheet.
void PdfCanvas::ShowRun(const ShapedText& text, const GlyphRun& run, PdfFont& font) {
    if (state_.rise != 0 || text.runs.size() > 1 || run.glyphs.empty())
        return ShowGlyphs(text, run, font);
    ShownLine& line = shown_[std::hash<std::u32string>()(text.characters) % shown_.size()];
    if (line.font == &font && line.characters == text.characters) {
        text_ += line.glyphs;
        return;
    }
    if (!std::all_of(run.glyphs.begin(), run.glyphs.end(), StandsAlone))
        return ShowGlyphs(text, run, font);
    const std::size_t begin = text_.size();
    const double perUnit = kThousandths / font.Face().UnitsPerEm();
    GlyphString string(text_, 0);
    for (const ShapedGlyph& glyph : run.glyphs)
        Add(string, glyph, SourceOf(glyph, text.characters), font, perUnit);
    string.End();
    line.font = &font;
    line.characters = text.characters;
    line.glyphs.assign(text_, begin);
}

/// Glyphs that stand for their characters together only, in another order or number, or that a sign above or below the
/// line belongs to, say so around them: each by itself would be read in the order and the line that the eye sees.
void PdfCanvas::ShowGlyphs(const ShapedText& text, const GlyphRun& run, PdfFont& font) {
    GlyphStrings strings(text_);
    const std::u32string_view characters(text.characters);
    for (auto glyph = run.glyphs.begin(); glyph != run.glyphs.end();) {
        const auto next = EndOfTogether(glyph, run.glyphs.end(), characters);
        const std::uint32_t begin = glyph->sourceBegin;
        const auto source = characters.substr(begin, SourceEnd(glyph, next) - begin);
        if (next == glyph + 1) {
            ShowGlyph(*glyph++, source, font, strings);
            continue;
        }
        strings.End();
        text_ += "/Span<</ActualText<FEFF" + Utf16Hex(source) + ">>>BDC\n";
        for (; glyph != next; ++glyph)
            ShowGlyph(*glyph, OwnCharacter(font.Face(), glyph->id, source), font, strings);
        strings.End();
        text_ += "EMC\n";
    }
}

void PdfCanvas::ShowGlyph(const ShapedGlyph& glyph, std::u32string_view source, PdfFont& font, GlyphStrings& strings) {
    const double perUnit = kThousandths / font.Face().UnitsPerEm();
    const auto rise = glyph.yOffset == 0 ? 0 : std::llround(glyph.yOffset * perUnit * state_.size / kThousandths);
    if (rise != state_.rise) {
        strings.End();
        Operator(rise, " Ts\n");
        state_.rise = rise;
    }
    Add(strings.Open(), glyph, source, font, perUnit);
}

void PdfCanvas::FillBox(const Box& box) {
    AppendRectangle(boxes_, box);
}

void PdfCanvas::DrawOutline(const Box& box, OutlineStyle style) {
    AppendRectangle(style == OutlineStyle::Tab ? tabOutlines_ : fieldOutlines_, box);
}

std::string PdfCanvas::Outlines() const {
    std::string out;
    const auto add = [&](const std::string& rectangles, OutlineStyle style) {
        if (rectangles.empty())
            return;
        AppendHundredths(out, ToHundredths(PenOf(style).grey));
        out += " G ";
        AppendHundredths(out, ToHundredths(PenOf(style).width / kTwipsPerPoint));
        out += " w\n" + rectangles + "S\n";
    };
    add(fieldOutlines_, OutlineStyle::Field);
    add(tabOutlines_, OutlineStyle::Tab);
    return out.empty() ? out : "q " + out + "Q\n";
}

void PdfCanvas::EndSheet() {
    const int page = writer_.Reserve(), content = writer_.Reserve();
    std::string turn;
    if (turned_) {
        turn = "0 1 -1 0 ";
        AppendHundredths(turn, ToHundredths(paperWidth_));
        turn += " 0 cm\n";
    }
    const std::string outlines = Outlines();
    const bool hasText = !text_.empty();
    writer_.WriteStream(
        content, "",
        {turn, outlines, hasText ? "BT\n" : "", text_, hasText ? "ET\n" : "", boxes_, boxes_.empty() ? "" : "f\n"});
    if (pages_.empty())
        commonMediaBox_ = mediaBox_;
    const std::string size = mediaBox_ == commonMediaBox_ ? "" : "/MediaBox" + mediaBox_;
    writer_.WritePacked(page, "<</Type/Page/Parent " + PdfReference(pageTree_) + size + "/Contents " +
                                  PdfReference(content) + ">>");
    pages_.push_back(page);
}

void PdfCanvas::Finish() {
    for (const PdfFont& font : fonts_)
        font.Write(writer_);
    WriteResources();
    std::string kids;
    for (const int page : pages_)
        kids += PdfReference(page) + ' ';
    // What all pages share stands in the tree, from which they inherit it.
    writer_.Write(pageTree_, "<</Type/Pages/Count " + std::to_string(pages_.size()) + "/Resources " +
                                 PdfReference(resources_) + (pages_.empty() ? "" : "/MediaBox" + commonMediaBox_) +
                                 "/Kids[" + kids + "]>>");
    const int catalog = writer_.Reserve(), information = writer_.Reserve();
    writer_.Write(catalog, "<</Type/Catalog/Pages " + PdfReference(pageTree_) + "/Lang(" + info_.language +
                               ")/ViewerPreferences<</PrintScaling/None>>>>");
    WriteInformation(information);
    writer_.Finish(catalog, information);
}

void PdfCanvas::WriteResources() {
    std::string fonts;
    for (const PdfFont& font : fonts_)
        fonts += "/F" + std::to_string(font.Object()) + ' ' + PdfReference(font.Object());
    writer_.Write(resources_, "<</Font<<" + fonts + ">>>>");
}

void PdfCanvas::WriteInformation(int object) {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const std::string title = info_.title.empty() ? "" : "/Title" + TextString(info_.title);
    writer_.Write(object, "<<" + title + "/Producer(" + kProducer + ")/CreationDate" +
                              DateString(info_.created.value_or(now)) + ">>");
}

} // namespace velmora
