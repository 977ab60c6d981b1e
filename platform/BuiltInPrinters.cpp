#include "platform/BuiltInPrinters.h"

namespace velmora {

std::vector<std::string> BuiltInPrinters::Printers() const {
    return pdfPrinter_ ? std::vector<std::string>{kPdfPrinter} : std::vector<std::string>{};
}

std::optional<std::string> BuiltInPrinters::DefaultPrinter() const {
    return pdfPrinter_ ? std::optional<std::string>(kPdfPrinter) : std::nullopt;
}

PaperSupport BuiltInPrinters::PaperOf(const std::string& printer, double, double) const {
    return pdfPrinter_ && printer == kPdfPrinter ? PaperSupport{true, UnprintableMargins{}} : PaperSupport{};
}

std::optional<std::string> BuiltInPrinters::Print(const std::string& printer, const PrintJob&) {
    throw PrinterError("\"" + printer + "\" takes no print jobs.",
                       printer == kPdfPrinter ? kPrinterErrorNumber : kPrinterNotValidNumber);
}

} // namespace velmora
