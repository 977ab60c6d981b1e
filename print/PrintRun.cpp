#include "print/PrintRun.h"

#include "base/Paths.h"
#include "print/NumberList.h"
#include "print/PrintErrors.h"
#include "print/PrintSheets.h"
#include "print/SendSheets.h"
#include "workspace/Dialogs.h"

#include <numeric>

namespace velmora {
PrintRun::PrintRun(PrintModule& print, rptVelmor& report, std::string caption, const ReportRequest& request)
    : print_(print), report_(report), caption_(std::move(caption)) {
    Prepare(request);
}

void PrintRun::Prepare(const ReportRequest& request) {
    PrepareReport(report_, request, {print_.main.document, print_.main.settings, print_.main.fonts});
    request_ = request;
}

bool PrintRun::SetUsedSlots(const std::vector<int>& used) {
    ReportRequest request = request_;
    request.used = used;
    return TrappedPrinting(print_, kPrintReportPlace, [&] { Prepare(request); });
}

PrintCheck PrintRun::Check() {
    const MainModule& main = print_.main;
    return {main.fonts, print_.catalogue, report_,
            SupportOf(main.printers, report_.Printer.DeviceName, report_.PagePaper())};
}

bool PrintRun::WantedAnyway() {
    MainModule& main = print_.main;
    const std::string& printer = report_.Printer.DeviceName;
    if (!PrinterTakesJobs(main, printer))
        return false;
    asked_ = true;
    const std::string doubts = StateText(printer, main.printers.StateOf(printer)) +
                               FindingsSummary(CheckBeforePrinting(Check())) +
                               ForbiddenFontsText(Series({}), print_.catalogue);
    return doubts.empty() ||
           Ask(main.ui, doubts + "Do you want to print anyway?", Buttons::YesNo, Answer::Yes) == Answer::Yes;
}

std::vector<int> PrintRun::Sheets(SheetChoice choice, int shown, const std::string& range) const {
    std::vector<int> sheets;
    switch (choice) {
    case SheetChoice::All:
        sheets.resize(static_cast<std::size_t>(report_.SheetCount()));
        std::iota(sheets.begin(), sheets.end(), 1);
        break;
    case SheetChoice::Shown: sheets = {shown}; break;
    case SheetChoice::Filled: sheets = report_.FilledSheets(); break;
    case SheetChoice::Range: sheets = ParseNumberList(range, report_.SheetCount(), {"sheet", "document"}); break;
    }
    if (sheets.empty())
        throw Error("no sheet has a text");
    return sheets;
}

bool PrintRun::Print(const std::vector<int>& sheets, const JobOptions& options) {
    return Send(report_.Printer.DeviceName, sheets, options);
}

bool PrintRun::SaveAsPdf(const std::vector<int>& sheets) {
    return Send(kPdfPrinter, sheets);
}

/// The caption with the document's name alone: its folder is nobody's concern at the printer.
std::string PrintRun::JobTitle() const {
    const MainModule& main = print_.main;
    if (request_.mode == "TEST" || main.document.DocFileName.empty())
        return caption_;
    return main.settings.SettingsAppName + " [" + PathText(main.document.DocFileName.filename()) + "]";
}

SheetSeries PrintRun::Series(const std::vector<int>& sheets) {
    const MainModule& main = print_.main;
    SheetSeries series = DocumentSheets(report_, main.document, main.fonts, {sheets, false});
    series.language = main.language;
    return series;
}

bool PrintRun::Send(const std::string& printer, const std::vector<int>& sheets, const JobOptions& options) {
    return SendSheets(print_, Series(sheets), {printer, JobTitle(), kPrintReportPlace, {}, options, asked_});
}

} // namespace velmora
