// What a person wants to know before paper is spent: texts that will be cut off, paper that the printer does not have,
// texts where the printer cannot print.
#pragma once

#include "platform/FontCatalogue.h"
#include "report/TextShaper.h"
#include "report/rptVelmor.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora {

enum class PrintProblem { PaperDiffers, TextCut, TextUnprintable };

struct PrintFinding {
    PrintProblem problem = PrintProblem::PaperDiffers;
    TabBox box = {}; ///< of a text; tab 0 for the paper
    int sheet = 0;   ///< of a run, from 1
    int slot = 0;    ///< on the sheet, from 1
};

/// Goes through a run's sheets one by one, so that a window stays alive meanwhile. Each distinct text is shaped once,
/// up to a bound on their number.
class PrintCheck {
public:
    /// `report` is ready for its sheets, and stays so. `printer` is what the printer says of the report's paper;
    /// nullopt: unknown. Without its margins a text off the paper is still found. All but the report must outlive the
    /// check.
    PrintCheck(const FontSettings& fonts, const FontCatalogue& catalogue, rptVelmor& report,
               const std::optional<PaperSupport>& printer);

    bool IsDone() const { return done_ >= report_.SheetCount(); }
    /// Adds what the next sheet shows, tab by tab; the paper comes before the first. Raises Error on a machine without
    /// fonts.
    void CheckSheet(std::vector<PrintFinding>& findings);

private:
    /// A text's line within its box, the same for the boxes of all tabs.
    struct Line {
        bool fits = true;
        /// The part within the box, from the box's corner, without width where no ink is; nullopt: not measured,
        /// which takes longer than the shaping.
        std::optional<Box> ink = std::nullopt;
    };

    void CheckText(std::vector<PrintFinding>& findings, const PlacedText& placed);
    const Line& Measured(const PlacedText& placed, bool withInk);

    const FontSettings& fonts_;
    rptVelmor& report_;
    TextShaper shaper_;
    bool paperDiffers_;
    Box printable_;
    Sheet sheet_;
    int done_ = 0;
    /// By field; the keys belong to the document.
    std::array<std::unordered_map<std::string_view, Line>, kFieldsPerTab> lines_;
};

/// All that it finds.
std::vector<PrintFinding> CheckBeforePrinting(PrintCheck check);

/// One line for a person.
std::string FindingText(const PrintFinding& finding);
/// One line for each kind of problem, each ended by a line break.
std::string FindingsSummary(const std::vector<PrintFinding>& findings);

} // namespace velmora
