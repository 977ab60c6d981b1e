#include "print/PrintErrors.h"

#include "workspace/Dialogs.h"

namespace velmora {

void ReportPrintError(PrintModule& print, const std::exception& error, std::string_view place) {
    const auto* printerError = dynamic_cast<const PrinterError*>(&error);
    const int number = printerError ? printerError->Number() : 0;
    if (number == kPrinterNotValidNumber)
        Tell(print.main.ui,
             "The printer '" + print.main.globals.PrinterName +
                 "' is not a valid printer on this workstation.\r\nThe program will use '" + print.CurrentPrinter +
                 "' as an alternative.",
             Icon::Critical);
    else
        ReportError(print.main.ui,
                    number == kPrinterErrorNumber ? "Printer error.  Please check the printer." : error.what(), place);
}

} // namespace velmora
