#include "report/PrintChecks.h"

#include "base/Text.h"
#include "report/ReplacedFonts.h"
#include "report/SheetPainter.h"
#include "report/Twips.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr double kResolution = 0.5;      // twips; less than a printer resolves
constexpr std::size_t kMostLines = 4096; // kept measured; a series of thousands of different numbers passes through

/// Where the printer puts ink, on the sheet as it is read: the top of a turned one lies along the paper's left edge.
Box PrintableArea(const Paper& paper, const UnprintableMargins& strips) {
    const Box onPaper = {strips.left, strips.top, paper.widthMm - strips.left - strips.right,
                         paper.heightMm - strips.top - strips.bottom};
    const Box asRead = paper.turned ? Box{strips.bottom, strips.left, onPaper.height, onPaper.width} : onPaper;
    return {PaperTwips(asRead.left), PaperTwips(asRead.top), PaperTwips(asRead.width), PaperTwips(asRead.height)};
}

struct Count {
    int texts = 0;
    std::int32_t firstTab = 0;
};

Count CountOf(const std::vector<PrintFinding>& findings, PrintProblem problem) {
    Count count;
    for (const PrintFinding& finding : findings)
        if (finding.problem == problem && count.texts++ == 0)
            count.firstTab = finding.box.tab;
    return count;
}

/// "2 texts are ..., the first in tab 5."
std::string CountedText(const Count& count, const char* one, const char* many) {
    if (count.texts == 0)
        return "";
    const std::string tab = "tab " + std::to_string(count.firstTab) + ".\r\n";
    return count.texts == 1 ? one + (", in " + tab) : std::to_string(count.texts) + many + (", the first in " + tab);
}

} // namespace

PrintCheck::PrintCheck(const FontSettings& fonts, const FontCatalogue& catalogue, rptVelmor& report,
                       const std::optional<PaperSupport>& printer)
    : fonts_(fonts), catalogue_(catalogue), report_(report), shaper_(catalogue, fonts),
      paperDiffers_(printer && !printer->listed) {
    const auto strips = printer ? printer->unprintable : std::nullopt;
    printable_ = PrintableArea(report.PagePaper(), strips.value_or(UnprintableMargins{}));
}

void PrintCheck::CheckSheet(std::vector<PrintFinding>& findings) {
    if (done_ == 0)
        CheckRun(findings);
    report_.LayOutSheet(++done_, sheet_);
    for (const PlacedText& placed : sheet_.texts) {
        CheckFont(findings, placed);
        CheckText(findings, placed);
    }
}

void PrintCheck::CheckRun(std::vector<PrintFinding>& findings) const {
    if (paperDiffers_)
        findings.push_back({PrintProblem::PaperDiffers, {}, 1});
    const auto empty = EmptySheetsText(report_);
    if (!empty)
        return;
    const std::vector<int> filled = report_.FilledSheets();
    int first = 1;
    while (std::binary_search(filled.begin(), filled.end(), first))
        ++first;
    findings.push_back({filled.empty() ? PrintProblem::AllEmpty : PrintProblem::SheetsEmpty, {}, first, 0, *empty});
}

void PrintCheck::CheckFont(std::vector<PrintFinding>& findings, const PlacedText& placed) {
    const auto field = static_cast<std::size_t>(placed.field);
    if (std::exchange(fontChecked_.at(field), true))
        return;
    if (const auto other = ReplacementOf(fonts_[field], catalogue_))
        findings.push_back({PrintProblem::FontReplaced,
                            {0, placed.field},
                            done_,
                            0,
                            fonts_[field].Name + " is not installed: " + *other + " takes its place"});
}

void PrintCheck::CheckText(std::vector<PrintFinding>& findings, const PlacedText& placed) {
    const bool boxPrintable = printable_.Holds(placed.box, kResolution);
    const Line& line = Measured(placed, !boxPrintable);
    const auto add = [&](PrintProblem problem) {
        findings.push_back({problem, {placed.tab, placed.field}, done_, placed.slot, std::string(placed.text)});
    };
    if (!line.fits)
        add(PrintProblem::TextCut);
    if (line.unknown)
        add(PrintProblem::CharacterUnknown);
    if (!boxPrintable && line.ink->width > 0 &&
        !printable_.Holds(line.ink->Moved(placed.box.left, placed.box.top), kResolution))
        add(PrintProblem::TextUnprintable);
}

const PrintCheck::Line& PrintCheck::Measured(const PlacedText& placed, bool withInk) {
    auto& lines = lines_.at(static_cast<std::size_t>(placed.field));
    if (lines.size() >= kMostLines)
        lines.clear();
    const auto [entry, isNew] = lines.try_emplace(placed.text);
    Line& line = entry->second;
    if (!isNew && (!withInk || line.ink))
        return line;
    PlacedText atOrigin = placed;
    atOrigin.box.left = atOrigin.box.top = 0;
    const ShapedText& shaped = shaper_.Shape(placed.text, placed.field);
    const LinePlace place = PlaceLine(atOrigin, shaped, fonts_);
    line.fits = place.fits;
    line.unknown = HasUnknownCharacter(shaped);
    if (withInk)
        line.ink = InkBox(shaped).Moved(place.left, place.baseline).CommonWith(atOrigin.box);
    return line;
}

std::vector<PrintFinding> CheckBeforePrinting(PrintCheck check) {
    std::vector<PrintFinding> findings;
    while (!check.IsDone())
        check.CheckSheet(findings);
    return findings;
}

std::string FindingText(const PrintFinding& finding) {
    switch (finding.problem) {
    case PrintProblem::PaperDiffers: return "The printer does not have paper of the sheet's size";
    case PrintProblem::TextCut: return finding.what + ": will be cut off";
    case PrintProblem::TextUnprintable: return finding.what + ": partly where the printer cannot print";
    case PrintProblem::CharacterUnknown: return finding.what + ": no font has one of its characters";
    default: return finding.what;
    }
}

std::string FindingPlace(const PrintFinding& finding) {
    const std::string field = std::string("Field ") + static_cast<char>('A' + finding.box.field);
    if (finding.box.tab > 0)
        return "Tab " + std::to_string(finding.box.tab) + ", " + field;
    if (finding.problem == PrintProblem::SheetsEmpty)
        return "The first is sheet " + std::to_string(finding.sheet);
    return finding.problem == PrintProblem::FontReplaced ? field : "";
}

std::string FindingsSummary(const std::vector<PrintFinding>& findings) {
    std::string summary;
    for (const PrintFinding& finding : findings)
        if (finding.problem == PrintProblem::PaperDiffers || finding.problem == PrintProblem::FontReplaced ||
            finding.problem == PrintProblem::AllEmpty)
            summary += FindingText(finding) + ".\r\n";
    return summary +
           CountedText(CountOf(findings, PrintProblem::TextCut), "One text does not fit its tab and will be cut off",
                       " texts do not fit their tabs and will be cut off") +
           CountedText(CountOf(findings, PrintProblem::CharacterUnknown), "One text has a character that no font has",
                       " texts have a character that no font has") +
           CountedText(CountOf(findings, PrintProblem::TextUnprintable),
                       "One text lies partly where the printer cannot print",
                       " texts lie partly where the printer cannot print");
}

std::optional<std::string> EmptySheetsText(const rptVelmor& report) {
    const auto all = static_cast<std::size_t>(report.SheetCount()), filled = report.FilledSheets().size();
    if (filled == all)
        return std::nullopt;
    if (filled == 0)
        return all == 1 ? "The sheet is empty" : "All " + Counted(all, "sheet") + " are empty";
    return std::to_string(all - filled) + " of " + Counted(all, "sheet") + (all - filled == 1 ? " is" : " are") +
           " empty";
}

} // namespace velmora
