// The one way of sheets to a printer: those of a document, the test page, the calibration sheet.
#pragma once

#include "platform/PrintSystem.h"
#include "report/PdfReport.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// Raises PrinterError for a printer that is none of those.
void RequireInstalled(const std::vector<std::string>& installed, const std::string& printer);

/// How the sheet goes through the printer: one that knows a sheet fed long edge first only as the same paper fed short
/// edge first gets it so, with the content turned.
Paper PaperAtPrinter(const PrintSystem& printers, const std::string& printer, const Paper& sheet);
/// What the printer says of the sheet's paper as it goes through; the margins are those of the sheet. One that has it
/// the other way round alone will do, but its margins are not known then.
PaperSupport SupportOf(const PrintSystem& printers, const std::string& printer, const Paper& sheet);

/// What is to be said of the printer before a job goes to it, in lines that each end with a break; empty where it is
/// ready.
std::string StateText(const std::string& printer, const PrinterState& state);
/// Whether a job can go there at all.
constexpr bool TakesJobs(const PrinterState& state) {
    return state.readiness == Readiness::Ready || state.readiness == Readiness::Waiting;
}
inline constexpr const char* kPaperDiffers = "The printer does not have paper of the sheet's size.";

/// The one that a person means by its name or its label, in any letter case. Raises Error, which lists what `printer`
/// has; `word` is "tray".
const PaperSource& FindSource(const std::vector<PaperSource>& sources, const std::string& wanted,
                              const std::string& printer, const char* word);

struct PrintTarget {
    PrintSystem& printers;
    std::string printer;
    std::string title; ///< of the job
    JobOptions options = {};
    AskCredentials askCredentials = {};
};
/// Hands the sheets over as one job: drawn, or as a PDF by way of a temporary file. Says why the job waits, empty where
/// it does not; nullopt, and no job, when the person cancelled. Raises PrinterError, and what PaintSheets raises.
std::optional<std::string> PrintSheets(SheetSeries series, const FontCatalogue& catalogue, const PrintTarget& target,
                                       Progress* progress = nullptr);

} // namespace velmora
