// All printers of the machine: those of the print server, and the one that the program brings along.
#pragma once

#include "platform/linux/BuiltInPrinters.h"

#include <memory>

namespace velmora {

class InstalledPrinters : public PrintSystem {
public:
    /// `server` null: built without a print server's library.
    InstalledPrinters(std::unique_ptr<PrintSystem> server, bool pdfPrinter)
        : server_(std::move(server)), builtIn_(pdfPrinter) {}

    /// The server's printers first.
    std::vector<std::string> Printers() const override;
    /// The server's, else the built-in one.
    std::optional<std::string> DefaultPrinter() const override;
    PaperSupport PaperOf(const std::string& printer, double widthMm, double heightMm) const override;
    void Print(const std::string& printer, const PrintJob& job) override;

private:
    std::unique_ptr<PrintSystem> server_;
    BuiltInPrinters builtIn_;
};

/// The machine's printers, with those of CUPS where the program was built with it.
InstalledPrinters MakeInstalledPrinters(bool pdfPrinter);

} // namespace velmora
