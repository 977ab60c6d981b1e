// All printers of the machine: those of the print server, and the one that the program brings along.
#pragma once

#include "platform/BuiltInPrinters.h"
#include "platform/Machine.h"

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
    PaperSources SourcesOf(const std::string& printer) const override;
    PrinterState StateOf(const std::string& printer) const override;
    std::unique_ptr<PrintSurface> StartJob(const std::string& printer, const PrintJob& job) override;
    std::optional<std::string> Print(const std::string& printer, const PrintJob& job) override;

private:
    const PrintSystem& KeeperOf(const std::string& printer) const;
    PrintSystem& KeeperOf(const std::string& printer);

    std::unique_ptr<PrintSystem> server_;
    BuiltInPrinters builtIn_;
};

/// The machine's printers; VELMORA_NO_PDF_PRINTER=1 takes the built-in one away.
inline InstalledPrinters MakeInstalledPrinters(const Environment& environment) {
    return {MakePrintServer(), environment("VELMORA_NO_PDF_PRINTER") != "1"};
}

} // namespace velmora
