// The printers of CUPS.
#pragma once

#include "platform/PrintSystem.h"

#include <chrono>

namespace velmora {

/// Every call makes a connection of its own and gives up soon where no server answers, so that no start waits for one
/// that is missing: a machine without CUPS has no printers. The server is the one that CUPS' own settings name
/// (CUPS_SERVER, client.conf).
class CupsPrinters : public PrintSystem {
public:
    /// Queue names, instances as "queue/instance"; printers found on the network are among them.
    std::vector<std::string> Printers() const override;
    std::optional<std::string> DefaultPrinter() const override;
    PaperSupport PaperOf(const std::string& printer, double widthMm, double heightMm) const override;
    PaperSources SourcesOf(const std::string& printer) const override;
    PrinterState StateOf(const std::string& printer) const override;
    /// What a person saved for the queue or the instance holds where it does not change what a tab job is.
    /// PrinterError: 5707 for an unknown printer; 482 where no server answers, or the queue takes no jobs.
    std::optional<std::string> Print(const std::string& printer, const PrintJob& job) override;

    using Moment = std::chrono::steady_clock::time_point;

private:
    mutable Moment silentUntil_; ///< a server that takes connections without answering is left alone until then
};

} // namespace velmora
