// Sheets as the pages of a PDF file: exact paper sizes, embedded fonts, text that can be searched, and a note
// to the reader that nothing must be scaled when printing.
#pragma once

#include "report/Canvas.h"
#include "report/PdfFont.h"
#include "report/PdfWriter.h"

#include <array>
#include <chrono>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace velmora {

struct PdfInfo {
    std::string title;                               ///< UTF-8; may be empty
    std::optional<std::chrono::sys_seconds> created; ///< nullopt: now
    std::string language = "und";                    ///< as RFC 5646 writes it; "und": not known
};

/// Each sheet is written when it ends. After the last one Finish writes the fonts and the end of the file;
/// without it the file is incomplete.
class PdfCanvas : public Canvas {
public:
    PdfCanvas(PdfSink sink, PdfInfo info);

    void BeginSheet(const Paper& paper) override;
    void DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) override;
    void FillBox(const Box& box) override;
    void DrawOutline(const Box& box, OutlineStyle style) override;
    void EndSheet() override;
    void Finish();

private:
    class GlyphStrings;

    /// Lengths in hundredths of a point.
    struct TextState {
        const PdfFont* font = nullptr;
        std::int64_t size = 0;
        std::int64_t stroke = 0; ///< of thickened glyphs; 0: not thickened
        std::int64_t rise = 0;
        std::int64_t lineX = 0; ///< where the last line started
        std::int64_t lineY = 0;
        bool slanted = false;
    };
    struct Point {
        std::int64_t x; ///< hundredths of a point, from the lower left corner
        std::int64_t y;
    };

    /// A line of one run as it was shown.
    struct ShownLine {
        const PdfFont* font = nullptr;
        std::u32string characters;
        std::string glyphs;
    };

    Point ToPage(double leftTwips, double topTwips) const;
    void AppendRectangle(std::string& out, const Box& box) const;
    PdfFont& FontFor(const Typeface& typeface);
    void BeginClip(const Box& clip);
    void EndClip(const TextState& before);
    void DrawRun(const ShapedText& text, const GlyphRun& run, Point start);
    const std::string& Selection(const PdfFont& font, std::int64_t size);
    void SelectFont(const PdfFont& font, std::int64_t size, bool embolden);
    void MoveTo(Point start, bool slant);
    void ShowRun(const ShapedText& text, const GlyphRun& run, PdfFont& font);
    void ShowGlyphs(const ShapedText& text, const GlyphRun& run, PdfFont& font);
    void ShowGlyph(const ShapedGlyph& glyph, std::u32string_view source, PdfFont& font, GlyphStrings& strings);
    void Operator(std::int64_t operand, std::string_view name);
    std::string Outlines() const;
    void WriteResources();
    void WriteInformation(int object);

    PdfWriter writer_;
    PdfInfo info_;
    int pageTree_;
    int resources_;
    std::vector<int> pages_;
    std::string commonMediaBox_; ///< of the first sheet; pages of another size say so
    std::deque<PdfFont> fonts_;
    std::map<std::pair<const PdfFont*, std::int64_t>, std::string> selections_;
    std::array<ShownLine, 128> shown_; ///< lately, by their characters

    std::string mediaBox_; ///< of the sheet at work, like all that follows
    bool turned_ = false;
    double paperWidth_ = 0;  ///< points
    double sheetHeight_ = 0; ///< points, as the sheet is read
    TextState state_;
    std::string text_;
    std::string boxes_;
    std::string tabOutlines_;
    std::string fieldOutlines_;
};

} // namespace velmora
