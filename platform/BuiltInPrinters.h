// The printers of a machine as far as this program brings them along: the one that writes a PDF.
#pragma once

#include "platform/PrintSystem.h"

namespace velmora {

class BuiltInPrinters : public PrintSystem {
public:
    /// `pdfPrinter` false takes the built-in printer away (VELMORA_NO_PDF_PRINTER=1).
    explicit BuiltInPrinters(bool pdfPrinter) : pdfPrinter_(pdfPrinter) {}

    std::vector<std::string> Printers() const override;
    std::optional<std::string> DefaultPrinter() const override;
    /// Paper of a file has every size and no edge that cannot be reached.
    PaperSupport PaperOf(const std::string& printer, double widthMm, double heightMm) const override;
    /// Always raises PrinterError: a file is written to its path at once, and is never a job.
    std::optional<std::string> Print(const std::string& printer, const PrintJob& job) override;

private:
    bool pdfPrinter_;
};

} // namespace velmora
