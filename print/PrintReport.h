// The one entry through which everything is printed and previewed, and the commands that enter it.
#pragma once

#include "print/PrintRun.h"

#include <string>
#include <string_view>

namespace velmora {

enum class PrintOutcome {
    Done,
    NotPrinted, ///< cancelled, or failed and shown
    NoPrinter   ///< the machine has none, the person was told, and the program must end
};

/// Sets up the configured printer and runs the report: modes "PRINT" and "TEST" print without a dialog, every other
/// one is previewed. Mode "PRINT" first asks about what paper would show. `count` tabs, whole sheets. No error escapes.
PrintOutcome PrintReport(PrintModule& print, const std::string& caption, const ReportRequest& request);

/// Gives the report its printer, paper, orientation and page margins. Every step is taken, whatever became of the ones
/// before; each failure is shown and sets PrinterProblem.
void SetupPrinter(PrintModule& print, rptVelmor& report);

/// The commands Print, Print Current Page, Preview and Print These Tabs: take the page on screen into the document and
/// run the report.
PrintOutcome PrintCommand(PrintModule& print);
PrintOutcome PrintPageCommand(PrintModule& print);
PrintOutcome PreviewCommand(PrintModule& print);
/// A preview of the tabs that are marked, else of the one in use, alone.
PrintOutcome PrintTabsCommand(PrintModule& print);

} // namespace velmora
