// What a person wants to know before paper is spent: paper that the printer does not have, sheets without a text, fonts
// that others take the place of, and texts that will be cut off, lack a character or lie where the printer cannot
// print.
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

enum class PrintProblem {
    PaperDiffers,
    TextCut,
    TextUnprintable,
    CharacterUnknown,
    FontReplaced,
    SheetsEmpty,
    AllEmpty
};

struct PrintFinding {
    PrintProblem problem = PrintProblem::PaperDiffers;
    TabBox box = {};       ///< of a text; tab 0 for all else, which may have a field
    int sheet = 0;         ///< of a run, from 1
    int slot = 0;          ///< on the sheet, from 1; 0 for what is no text
    std::string what = {}; ///< the text, or what there is to say where it is none
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
    /// Adds what the next sheet shows, tab by tab. Before the first come the paper and the empty sheets; a font that
    /// another takes the place of comes before its field's first text. Raises Error on a machine without fonts.
    void CheckSheet(std::vector<PrintFinding>& findings);

private:
    /// A text's line within its box, the same for the boxes of all tabs.
    struct Line {
        bool fits = true;
        bool unknown = false; ///< no font has one of its characters
        /// The part within the box, from the box's corner, without width where no ink is; nullopt: not measured,
        /// which takes longer than the shaping.
        std::optional<Box> ink = std::nullopt;
    };

    void CheckRun(std::vector<PrintFinding>& findings) const;
    void CheckFont(std::vector<PrintFinding>& findings, const PlacedText& placed);
    void CheckText(std::vector<PrintFinding>& findings, const PlacedText& placed);
    const Line& Measured(const PlacedText& placed, bool withInk);

    const FontSettings& fonts_;
    const FontCatalogue& catalogue_;
    rptVelmor& report_;
    TextShaper shaper_;
    bool paperDiffers_;
    Box printable_;
    Sheet sheet_;
    int done_ = 0;
    std::array<bool, kFieldsPerTab> fontChecked_ = {};
    /// By field; the keys belong to the document.
    std::array<std::unordered_map<std::string_view, Line>, kFieldsPerTab> lines_;
};

/// All that it finds.
std::vector<PrintFinding> CheckBeforePrinting(PrintCheck check);

/// One line for a person: "Abrahams & Seun: will be cut off".
std::string FindingText(const PrintFinding& finding);
/// Where it is, as the window names it: "Tab 5, Field A"; empty for all of the run.
std::string FindingPlace(const PrintFinding& finding);
/// One line for each kind of problem, each ended by a line break. Empty sheets beside filled ones are none.
std::string FindingsSummary(const std::vector<PrintFinding>& findings);
/// "2 of 3 sheets are empty"; nullopt without one.
std::optional<std::string> EmptySheetsText(const rptVelmor& report);

} // namespace velmora
