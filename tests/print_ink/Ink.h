// Sheets made by hand, drawn to a PDF or a picture, and what other programs say about the result.
#pragma once

#include "report/PdfCanvas.h"
#include "report/SheetPainter.h"
#include "report/Twips.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/PdfWords.h"
#include "tests/support/TemporaryFolder.h"

#include <string>
#include <vector>

namespace velmora::ink {

inline constexpr double kTwipsPerMmOfPaper = PaperTwips(1);
inline constexpr int kPixelsPerMm = 10;

// The metrics shared by Arial and its free replacements, in parts of the font size.
inline constexpr double kAscent = 1854.0 / 2048;
inline constexpr double kDescent = 434.0 / 2048;
inline constexpr double kDigitWidth = 1139.0 / 2048;

inline constexpr Paper kA4{210, 297, false};
inline constexpr Paper kTurnedDl{110, 220, true};

using Rect = Word; ///< from the top left corner of the paper
/// Fails the test where an edge is off by more than 0.2 mm.
void ExpectNear(const Rect& actual, const Rect& expected);

Box MmBox(double left, double top, double width, double height);
/// On turned paper, where a rectangle of the sheet as read comes to lie.
Rect OnPaper(const Paper& paper, const Rect& asRead);

Sheet OneText(std::string_view text, const Box& box, std::int16_t alignment = kAlignLeft, const Paper& paper = kA4);
/// All three fields in one font.
FontSettings AllFields(const FieldFont& font);

/// Answers with the faces of another catalogue, but as the test wants them.
struct DressedCatalogue : FontCatalogue {
    InstalledFonts real;
    bool noBold = false;   ///< no family has a bold face
    bool noItalic = false; ///< no family has an italic face
    bool hasFallback = true;
    std::optional<FontFile> own; ///< in place of what the machine has

    std::optional<FontFile> Match(const FontRequest& request) const override;
    std::optional<FontFile> MatchCharacter(const FontRequest& request, char32_t character) const override;
    std::vector<std::string> Families() const override { return real.Families(); }
};

/// A file in a folder that goes with it.
class PdfFile {
public:
    PdfFile(const std::vector<Sheet>& sheets, const FontSettings& fonts, const FontCatalogue& catalogue,
            Outlines outlines = Outlines::Hidden);

    std::string Bytes() const;
    /// What a program prints, the errors too, when it is given the file; "%" stands for the path. Fails the
    /// test where the program fails.
    std::string Ask(const std::string& command) const;
    /// The text that a person would copy, without line ends at its end and marks for the direction of
    /// writing.
    std::string Text() const;
    /// The boxes of all words, baseline to baseline with ascent and descent.
    std::vector<Rect> Words() const;

    /// The first page in shades of grey, kPixelsPerMm.
    struct Picture {
        int width = 0;
        int height = 0;
        std::vector<unsigned char> pixels; ///< 0 black

        static bool IsDarkGrey(unsigned char grey) { return grey < 128; }
        bool IsDark(int x, int y) const { return IsDarkGrey(pixels[static_cast<std::size_t>(y * width + x)]); }
        Rect InkBox() const; ///< all zero without ink
        int DarkPixels() const;
        int DarkPixels(int row) const;
        int PixelsFarFrom(const Picture& other) const; ///< dark ones with no dark one within 0.2 mm in the other
    };
    Picture Render() const;

private:
    TemporaryFolder folder_;
};

} // namespace velmora::ink
