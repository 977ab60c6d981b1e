// The preview window as the core sees it; by itself one that nobody sees.
#pragma once

namespace velmora {

class PrintRun;

class ReportViewer {
public:
    virtual ~ReportViewer() = default;
    /// Shows the run modally, and returns when its window closes. The run and its document outlive the window.
    virtual void ShowReport(PrintRun& /*run*/) {}
};

} // namespace velmora
