// A document as a PDF file, through the tab report and the one painter.
#pragma once

#include "platform/FontCatalogue.h"
#include "report/rptVelmor.h"
#include "workspace/mdlMain.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What to lay out, as a print run names it.
struct ReportRequest {
    std::string_view mode = "PRINT"; ///< "TEST": the fixed texts of the test page
    bool pageOnly = false;           ///< the page shown alone
    std::vector<int> used = {};      ///< slots of the first sheet that are used up, from 1
};

/// The report of the document, ready for its sheets. Raises what the report's steps raise.
rptVelmor PrepareReport(const MainModule& main, LayoutValues& layout, const ReportRequest& request);

struct PdfOptions {
    std::vector<int> sheets; ///< numbers from 1, in the order of printing; empty: all
    bool outline = false;    ///< draws the tabs' and the fields' outlines too
};

/// Writes the sheets through `sink`, one sheet in memory at a time. `progress` is told the sheets done.
/// False when the person cancelled: what was written is no PDF then.
bool WritePdf(rptVelmor& report, const MainModule& main, const FontCatalogue& catalogue, const PdfOptions& options,
              const std::function<void(std::string_view)>& sink, Progress* progress = nullptr);

/// Replaces the file at `path` by the PDF; false, with the file as it was, when the person cancelled.
bool SavePdf(rptVelmor& report, const MainModule& main, const FontCatalogue& catalogue, const PdfOptions& options,
             const std::filesystem::path& path, Progress* progress = nullptr);

/// How the sheet goes through the printer: one that knows a sheet fed long edge first only as the same paper fed short
/// edge first gets it so, with the content turned.
Paper PaperAtPrinter(const PrintSystem& printers, const std::string& printer, const Paper& sheet);

struct PrintTarget {
    PrintSystem& printers;
    std::string printer;
    std::string title; ///< of the job
};
/// Hands the sheets over as one job, by way of a temporary file; false, and no job, when the person cancelled. Raises
/// PrinterError, and what WritePdf raises.
bool PrintSheets(const rptVelmor& report, const MainModule& main, const FontCatalogue& catalogue,
                 const PdfOptions& options, const PrintTarget& target, Progress* progress = nullptr);

/// Asks until a path is chosen that may be written; nothing when the person cancels. `name` is offered, without ending;
/// empty: the document's.
std::optional<std::filesystem::path> AskForPdfPath(MainModule& main, std::string name = {});

/// The command: asks for a path, takes the page on screen into the document and writes the whole document. The file is
/// replaced only when all of it is written; a failure is shown.
void SavePdfAs(MainModule& main, LayoutValues& layout, const FontCatalogue& catalogue);

} // namespace velmora
