// The one way of sheets to a printer: those of a document, the test page, the calibration sheet.
#pragma once

#include "platform/PrintSystem.h"
#include "report/PdfReport.h"

#include <optional>
#include <string>

namespace velmora {

/// How the sheet goes through the printer: one that knows a sheet fed long edge first only as the same paper fed short
/// edge first gets it so, with the content turned.
Paper PaperAtPrinter(const PrintSystem& printers, const std::string& printer, const Paper& sheet);
/// What the printer says of the sheet's paper. One that has it the other way round will do, but its margins are not
/// known then.
PaperSupport SupportOf(const PrintSystem& printers, const std::string& printer, const Paper& sheet);

struct PrintTarget {
    PrintSystem& printers;
    std::string printer;
    std::string title; ///< of the job
};
/// Hands the sheets over as one job, by way of a temporary file. Says why the job waits, empty where it does not;
/// nullopt, and no job, when the person cancelled. Raises PrinterError, and what WritePdf raises.
std::optional<std::string> PrintSheets(SheetSeries series, const FontCatalogue& catalogue, const PrintTarget& target,
                                       Progress* progress = nullptr);

} // namespace velmora
