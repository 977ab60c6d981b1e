#include "tests/print_ink/Ink.h"

#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

namespace velmora::ink {

void ExpectNear(const Rect& actual, const Rect& expected) {
    constexpr double kOff = 0.2;
    EXPECT_NEAR(actual.left, expected.left, kOff);
    EXPECT_NEAR(actual.top, expected.top, kOff);
    EXPECT_NEAR(actual.right, expected.right, kOff);
    EXPECT_NEAR(actual.bottom, expected.bottom, kOff);
}

Box MmBox(double left, double top, double width, double height) {
    return {left * kTwipsPerMmOfPaper, top * kTwipsPerMmOfPaper, width * kTwipsPerMmOfPaper,
            height * kTwipsPerMmOfPaper};
}

Rect OnPaper(const Paper& paper, const Rect& asRead) {
    if (!paper.turned)
        return asRead;
    return {asRead.top, paper.heightMm - asRead.right, asRead.bottom, paper.heightMm - asRead.left};
}

Sheet OneText(std::string_view text, const Box& box, std::int16_t alignment, const Paper& paper) {
    return {paper, {{text, box, 0, alignment}}, {box}, {}};
}

FontSettings AllFields(const FieldFont& font) {
    return {font, font, font};
}

std::optional<FontFile> DressedCatalogue::Match(const FontRequest& request) const {
    const bool embolden = request.bold && noBold, slant = request.italic && noItalic;
    auto file = own ? own : real.Match({request.family, request.bold && !embolden, request.italic && !slant});
    if (file) {
        file->embolden = embolden;
        file->slant = slant;
    }
    return file;
}

std::optional<FontFile> DressedCatalogue::MatchCharacter(const FontRequest& request, char32_t character) const {
    return hasFallback ? real.MatchCharacter(request, character) : std::nullopt;
}

PdfFile::PdfFile(const std::vector<Sheet>& sheets, const FontSettings& fonts, const FontCatalogue& catalogue,
                 Outlines outlines) {
    std::ofstream file(folder_ / "sheets.pdf", std::ios::binary);
    PdfCanvas pdf([&](std::string_view bytes) { file << bytes; },
                  {"Hoërskool (1)", std::chrono::sys_days(std::chrono::year(2024) / 2 / 29)});
    SheetPainter painter(catalogue, fonts);
    for (const Sheet& sheet : sheets)
        painter.Paint(sheet, pdf, outlines);
    pdf.Finish();
}

std::string PdfFile::Bytes() const {
    return ReadFile(folder_ / "sheets.pdf");
}

std::string PdfFile::Ask(const std::string& command) const {
    std::string line = command;
    line.replace(line.find('%'), 1, (folder_ / "sheets.pdf").string());
    const Result result = Shell(line);
    EXPECT_EQ(result.code, 0) << command << "\n" << result.output;
    return result.output;
}

std::string PdfFile::Text() const {
    std::string text = Ask("pdftotext -enc UTF-8 % -");
    for (const char* mark : {"\f", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C", "\u202D", "\u202E"})
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark))
            text.erase(at, std::strlen(mark));
    while (!text.empty() && (text.back() == '\n' || text.back() == ' '))
        text.pop_back();
    return text;
}

std::vector<Rect> PdfFile::Words() const {
    std::vector<Rect> words;
    for (const auto& [text, word] : AllWords(folder_ / "sheets.pdf"))
        if (!text.empty())
            words.push_back(word);
    return words;
}

PdfFile::Picture PdfFile::Render() const {
    const std::string picture = (folder_ / "page").string();
    Ask("pdftoppm -gray -singlefile -r " + std::to_string(kPixelsPerMm * 25.4) + " % " + picture);
    std::istringstream file(ReadFile(picture + ".pgm"));
    std::string kind;
    int white = 0;
    Picture page;
    file >> kind >> page.width >> page.height >> white;
    file.get();
    page.pixels.assign(std::istreambuf_iterator<char>(file), {});
    if (kind != "P5" || page.pixels.size() != static_cast<std::size_t>(page.width * page.height))
        throw std::runtime_error("no picture");
    return page;
}

Rect PdfFile::Picture::InkBox() const {
    int left = width, top = height, right = 0, bottom = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (IsDark(x, y)) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x + 1);
                bottom = std::max(bottom, y + 1);
            }
    if (left > right)
        return {};
    constexpr double kMm = 1.0 / kPixelsPerMm;
    return {left * kMm, top * kMm, right * kMm, bottom * kMm};
}

int PdfFile::Picture::DarkPixels() const {
    return static_cast<int>(std::count_if(pixels.begin(), pixels.end(), IsDarkGrey));
}

int PdfFile::Picture::DarkPixels(int row) const {
    const auto start = pixels.begin() + static_cast<std::ptrdiff_t>(row) * width;
    return static_cast<int>(std::count_if(start, start + width, IsDarkGrey));
}

int PdfFile::Picture::PixelsFarFrom(const Picture& other) const {
    constexpr int kNear = kPixelsPerMm / 5;
    const auto isNear = [&](int x, int y) {
        for (int v = std::max(0, y - kNear); v <= std::min(other.height - 1, y + kNear); ++v)
            for (int u = std::max(0, x - kNear); u <= std::min(other.width - 1, x + kNear); ++u)
                if (other.IsDark(u, v))
                    return true;
        return false;
    };
    int far = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            far += IsDark(x, y) && !isNear(x, y);
    return far;
}

} // namespace velmora::ink
