// One run of the tab report, from its records to paper or to a file: what a preview window needs, without its rules.
// Slots of its first sheet that are used up are its own, never the document's.
#pragma once

#include "print/PrintModule.h"
#include "report/PdfReport.h"
#include "report/PrepareReport.h"
#include "report/PrintChecks.h"

#include <string>
#include <vector>

namespace velmora {

enum class SheetChoice { All, Shown, Filled, Range };

class PrintRun {
public:
    /// `report` has been through SetupPrinter. Raises what the report's steps raise.
    PrintRun(PrintModule& print, rptVelmor& report, std::string caption, const ReportRequest& request);

    const std::string& Caption() const { return caption_; }
    /// Ready for LayOutSheet.
    rptVelmor& Report() { return report_; }
    const MainModule& Main() const { return print_.main; }
    /// A check of all sheets, with what the printer says of the paper. It holds until the used slots change.
    PrintCheck Check();
    /// False when the printer takes no jobs, and when the person was told what a check finds, or that the job will
    /// wait, and does not want to print.
    bool WantedAnyway();
    const FontCatalogue& Catalogue() const { return print_.catalogue; }

    /// Slots of the first sheet that are used up, from 1: this run's, never the document's.
    const std::vector<int>& UsedSlots() const { return request_.used; }
    /// Lets the tabs flow around them, which may change the number of sheets. A failure is shown, and the run stays as
    /// it was; false then.
    bool SetUsedSlots(const std::vector<int>& used);

    /// The sheets of a choice; never none. `shown` is the sheet on screen, `range` what was typed. Raises Error, in
    /// words for the person, for a range that is none and where no sheet has a text.
    std::vector<int> Sheets(SheetChoice choice, int shown, const std::string& range) const;

    /// What the report's printer lets one choose from.
    PaperSources Sources() const { return print_.main.printers.SourcesOf(report_.Printer.DeviceName); }
    /// Sends sheets, numbered from 1, to the report's printer; none: all. The built-in printer asks for a path. False
    /// when the person cancelled, and after a failure, which is shown: nothing is printed then.
    bool Print(const std::vector<int>& sheets = {}, const JobOptions& options = {});
    /// The same as a PDF file, at a path that is asked for.
    bool SaveAsPdf(const std::vector<int>& sheets = {});

private:
    void Prepare(const ReportRequest& request);
    bool Send(const std::string& printer, const std::vector<int>& sheets, const JobOptions& options = {});
    SheetSeries Series(const std::vector<int>& sheets);
    std::string JobTitle() const;

    PrintModule& print_;
    rptVelmor& report_;
    std::string caption_;
    ReportRequest request_;
    bool asked_ = false; ///< by WantedAnyway
};

} // namespace velmora
