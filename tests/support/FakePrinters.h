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
    bool draws = false;                           ///< takes no PDF
    int pagesDrawn = 0, linesDrawn = 0, sent = 0; ///< of jobs that are drawn

    std::vector<std::string> Printers() const override { return listing ? throw PrinterError(*listing) : names; }
    std::optional<std::string> DefaultPrinter() const override { return standard; }
    PaperSupport PaperOf(const std::string&, double width, double) const override {
        return {paperWidth == 0 || paperWidth == width, margins};
    }
    PaperSources SourcesOf(const std::string&) const override { return sources; }
    PrinterState StateOf(const std::string&) const override { return state; }
    std::unique_ptr<PrintSurface> StartJob(const std::string& printer, const PrintJob& job) override {
        if (draws)
            target = printer, jobs.push_back(job);
        return draws ? std::make_unique<DrawnJob>(*this) : nullptr;
    }
    std::optional<std::string> Print(const std::string& printer, const PrintJob& job) override {
        target = printer;
        bytes = ReadFile(job.pdf);
        jobs.push_back(job);
        if (printing)
            throw PrinterError(*printing);
        return waits;
    }

    struct DrawnJob : PrintSurface {
        explicit DrawnJob(FakePrinters& own) : printers(own) {}
        FakePrinters& printers;
        bool Start() override { return printers.target != "Hall"; }
        void BeginPage() override {}
        void Clip(const std::optional<PrintArea>&) override {}
        bool DrawLine(const PrintLine&) override { return ++printers.linesDrawn; }
        void FillShape(const PrintShape&) override {}
        void FillArea(const PrintArea&, double) override {}
        void EndPage() override {
            ++printers.pagesDrawn;
            if (printers.printing)
                throw PrinterError(*printers.printing);
        }
        void Finish() override { ++printers.sent; }
    };
};

} // namespace velmora
