// What a person wants to know before paper is spent: texts that will be cut off, paper of another size, texts where the
// printer cannot print.
#pragma once

#include "document/Undo.h"
#include "document/mdlMain.h"
#include "platform/FontCatalogue.h"
#include "print/rptVelmor.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The strips along the paper's edges that stay white, in millimetres, on the paper as it goes through the printer.
struct UnprintableStrips {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

struct PaperSize {
    double widthMm = 0;
    double heightMm = 0;
};

/// What is known of the printer; nothing: not checked. Without strips a text off the paper is still found.
struct PrintCheckRequest {
    bool pageOnly = false; ///< the page shown alone
    std::optional<PaperSize> printerPaper = std::nullopt;
    UnprintableStrips strips = {};
};

enum class PrintProblem { PaperDiffers, TextCut, TextUnprintable };

struct PrintFinding {
    PrintProblem problem;
    TabBox box; ///< of a text; tab 0 for the paper
};

/// The paper first, then the texts, tab by tab. Paper is the same whichever way it is turned, and within 1 mm. Each
/// distinct text is shaped once. Raises what the report's steps raise, and Error on a machine without fonts.
std::vector<PrintFinding> CheckBeforePrinting(const MainModule& main, LayoutValues& layout,
                                              const FontCatalogue& catalogue, const PrintCheckRequest& request);

/// One line for a person.
std::string FindingText(const PrintFinding& finding);

} // namespace velmora
