// Sheets sent where the person wants them: to a printer, or to a PDF file at a path that is asked for.
#pragma once

#include "print/PrintModule.h"
#include "report/PdfReport.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// Asks until a path is chosen that may be written; nullopt when the person cancels. `name` is offered, without ending;
/// empty: the document's.
std::optional<std::filesystem::path> AskForPdfPath(MainModule& main, std::string name = {});

struct SheetErrand {
    std::string printer;
    std::string title;        ///< of the job
    std::string_view place;   ///< of the errors
    std::string pdfName = {}; ///< as AskForPdfPath takes it
    JobOptions options = {};
    bool asked = false; ///< the person was told what MayPrint would say, and wants to print
};
/// Tells why no job can go to the printer; false then.
bool PrinterTakesJobs(MainModule& main, const std::string& printer);
/// Sends the sheets to the printer, after a question where it would keep them waiting or has no such paper; the
/// built-in one asks for a path. What was told in the status line: how many sheets went where, and why the job waits.
/// Nullopt when the person cancelled, and after a failure, which is shown: nothing is printed then.
std::optional<std::string> SendSheets(PrintModule& print, const SheetSeries& series, const SheetErrand& errand);

/// The command: asks for a path, takes the page on screen into the document and writes the whole document. The file is
/// replaced only when all of it is written; a failure is shown.
void SavePdfAs(MainModule& main, LayoutValues& layout, const FontCatalogue& catalogue);

} // namespace velmora
