// Printers that keep what they were handed.
#pragma once

#include "base/AtomicFile.h"
#include "platform/PrintSystem.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

struct FakePrinters : PrintSystem {
    std::vector<std::string> names = {"Office", "Hall"};
    std::optional<std::string> standard = "Hall";
    std::optional<PrinterError> listing, printing; ///< raised instead
    double paperWidth = 0;                         ///< of the only paper; 0: every paper
    std::optional<UnprintableMargins> margins;
    PaperSources sources;
    PrinterState state;
    std::vector<PrintJob> jobs;
    std::string target, bytes, waits;

    std::vector<std::string> Printers() const override { return listing ? throw PrinterError(*listing) : names; }
    std::optional<std::string> DefaultPrinter() const override { return standard; }
    PaperSupport PaperOf(const std::string&, double width, double) const override {
        return {paperWidth == 0 || paperWidth == width, margins};
    }
    PaperSources SourcesOf(const std::string&) const override { return sources; }
    PrinterState StateOf(const std::string&) const override { return state; }
    std::optional<std::string> Print(const std::string& printer, const PrintJob& job) override {
        target = printer;
        bytes = ReadFile(job.pdf);
        jobs.push_back(job);
        if (printing)
            throw PrinterError(*printing);
        return waits;
    }
};

} // namespace velmora
