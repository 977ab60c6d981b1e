// The printers of Windows.
#pragma once

#include "platform/PrintSystem.h"

namespace velmora {

/// Jobs are drawn: no PDF is taken.
class WindowsPrinters : public PrintSystem {
public:
    std::vector<std::string> Printers() const override;
    std::optional<std::string> DefaultPrinter() const override;
    /// Drivers count papers in tenths of a millimetre, rounded: those of the printer count as listed to 0.3 mm.
    PaperSupport PaperOf(const std::string& printer, double widthMm, double heightMm) const override;
    PaperSources SourcesOf(const std::string& printer) const override;
    PrinterState StateOf(const std::string& printer) const override;
    /// PrinterError: 5707 for an unknown printer, 482 for one that refuses.
    std::unique_ptr<PrintSurface> StartJob(const std::string& printer, const PrintJob& job) override;
    /// Always raises PrinterError.
    std::optional<std::string> Print(const std::string& printer, const PrintJob& job) override;
};

} // namespace velmora
