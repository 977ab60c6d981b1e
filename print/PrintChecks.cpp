#include "print/PrintChecks.h"

#include "print/PdfReport.h"
#include "print/SheetPainter.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace velmora {
namespace {

constexpr double kPaperToleranceMm = 1;
constexpr double kTolerance = 0.5; // twips; less than a printer resolves
constexpr double kMmPerInch = 25.4;

double Twips(double mm) {
    return mm / kMmPerInch * kTwipsPerInch;
}

bool SamePaper(const Paper& sheet, const PaperSize& printer) {
    const auto near = [](double a, double b) { return std::abs(a - b) <= kPaperToleranceMm; };
    return near(std::min(sheet.widthMm, sheet.heightMm), std::min(printer.widthMm, printer.heightMm)) &&
           near(std::max(sheet.widthMm, sheet.heightMm), std::max(printer.widthMm, printer.heightMm));
}

/// Where the printer puts ink, on the sheet as it is read: the top of a turned one lies along the paper's left edge.
Box PrintableArea(const Paper& paper, const UnprintableStrips& strips) {
    const Box onPaper = {strips.left, strips.top, paper.widthMm - strips.left - strips.right,
                         paper.heightMm - strips.top - strips.bottom};
    const Box asRead = paper.turned ? Box{strips.bottom, strips.left, onPaper.height, onPaper.width} : onPaper;
    return {Twips(asRead.left), Twips(asRead.top), Twips(asRead.width), Twips(asRead.height)};
}

bool Holds(const Box& outer, double left, double top, double right, double bottom) {
    return left >= outer.left - kTolerance && top >= outer.top - kTolerance &&
           right <= outer.left + outer.width + kTolerance && bottom <= outer.top + outer.height + kTolerance;
}

bool Holds(const Box& outer, const Box& inner) {
    return Holds(outer, inner.left, inner.top, inner.left + inner.width, inner.top + inner.height);
}

/// A text's line within its box, the same for the boxes of all tabs.
struct Line {
    bool fits = true;
    /// The part within the box, from the box's corner, without width where nothing is drawn; nothing: not measured,
    /// which takes longer than the shaping.
    std::optional<Box> ink;
};

class Checker {
public:
    /// `sheet` is one sheet, whose boxes stand for those of all sheets.
    Checker(const MainModule& main, const FontCatalogue& catalogue, const Sheet& sheet,
            const std::array<std::int16_t, kFieldsPerTab>& alignments, const UnprintableStrips& strips)
        : fonts_(main.fonts), shaper_(catalogue, main.fonts), alignments_(alignments) {
        const Box area = PrintableArea(sheet.paper, strips);
        for (const Box& box : sheet.fields)
            slots_.push_back({box, Holds(area, box)});
        area_ = area;
    }

    /// `slot` counts the fields of a sheet in their order, from 0.
    void Check(std::vector<PrintFinding>& findings, const std::string& text, TabBox tab, std::size_t slot) {
        if (text.empty())
            return;
        const Slot& place = slots_.at(slot);
        auto& lines = lines_[static_cast<std::size_t>(tab.field)];
        const auto [entry, isNew] = lines.try_emplace(text);
        Line& line = entry->second;
        if (isNew || (!place.printable && !line.ink))
            line = Measure({text,
                            {0, 0, place.box.width, place.box.height},
                            tab.field,
                            alignments_[static_cast<std::size_t>(tab.field)]},
                           !place.printable);
        if (!line.fits)
            findings.push_back({PrintProblem::TextCut, tab});
        if (!place.printable && line.ink->width > 0 && !Holds(area_, Shifted(*line.ink, place.box)))
            findings.push_back({PrintProblem::TextUnprintable, tab});
    }

private:
    struct Slot {
        Box box;
        bool printable; ///< all of the box
    };

    Line Measure(const PlacedText& placed, bool withInk) {
        const ShapedText& shaped = shaper_.Shape(placed.text, placed.field);
        const LinePlace place = PlaceLine(placed, shaped, fonts_);
        if (!withInk)
            return {place.fits, std::nullopt};
        return {place.fits, InkWithin(placed.box, shaped, place)};
    }

    static Box Shifted(const Box& box, const Box& to) {
        return {to.left + box.left, to.top + box.top, box.width, box.height};
    }

    static Box InkWithin(const Box& box, const ShapedText& shaped, const LinePlace& place) {
        const Box ink = InkBox(shaped);
        const double left = std::max(0.0, place.left + ink.left), top = std::max(0.0, place.baseline + ink.top);
        const double right = std::min(box.width, place.left + ink.left + ink.width);
        const double bottom = std::min(box.height, place.baseline + ink.top + ink.height);
        return {left, top, std::max(0.0, right - left), std::max(0.0, bottom - top)};
    }

    const FontSettings& fonts_;
    TextShaper shaper_;
    std::array<std::int16_t, kFieldsPerTab> alignments_;
    std::vector<Slot> slots_;
    Box area_;
    std::array<std::unordered_map<std::string_view, Line>, kFieldsPerTab> lines_; ///< keys belong to the document
};

} // namespace

std::vector<PrintFinding> CheckBeforePrinting(const MainModule& main, LayoutValues& layout,
                                              const FontCatalogue& catalogue, const PrintCheckRequest& request) {
    const TabDocument& document = main.document;
    rptVelmor report = PrepareReport(main, layout, {"TEST", true});
    Sheet sheet;
    report.LayOutSheet(1, sheet);
    std::vector<PrintFinding> findings;
    if (request.printerPaper && !SamePaper(sheet.paper, *request.printerPaper))
        findings.push_back({PrintProblem::PaperDiffers, {}});

    Checker checker(main, catalogue, sheet, report.Alignments(), request.strips);
    const std::int32_t perPage = document.TabsPerPage;
    const std::int32_t before = request.pageOnly ? (document.CurrentPage - 1) * perPage : 0;
    const std::int32_t last = request.pageOnly ? before + perPage : document.TabCount;
    for (std::int32_t tab = before + 1; tab <= last; ++tab)
        for (int field = 0; field < document.NoOfFields; ++field)
            checker.Check(findings, document.Field(field)(tab), {tab, field},
                          static_cast<std::size_t>((tab - 1) % perPage * document.NoOfFields + field));
    return findings;
}

std::string FindingText(const PrintFinding& finding) {
    const std::string place =
        "Tab " + std::to_string(finding.box.tab) + ", field " + std::to_string(finding.box.field + 1) + ": ";
    switch (finding.problem) {
    case PrintProblem::PaperDiffers: return "The printer is set to paper of another size than the sheet.";
    case PrintProblem::TextCut: return place + "the text is larger than its place on the tab and will be cut off.";
    default: return place + "part of the text lies where the printer cannot print.";
    }
}

} // namespace velmora
