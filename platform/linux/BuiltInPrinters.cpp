#include "platform/linux/BuiltInPrinters.h"

namespace velmora {

std::vector<std::string> BuiltInPrinters::Printers() const {
    return pdfPrinter_ ? std::vector<std::string>{kPdfPrinter} : std::vector<std::string>{};
}

std::optional<std::string> BuiltInPrinters::DefaultPrinter() const {
    return pdfPrinter_ ? std::optional<std::string>(kPdfPrinter) : std::nullopt;
}

} // namespace velmora
