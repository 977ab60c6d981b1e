#include "print/PrintRun.h"

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
    request.labels.used = used;
    return TrappedPrinting(print_, kPrintReportPlace, [&] { Prepare(request); });
}

void PrintRun::ChooseTabs(const std::string& list, TabPlaces places) {
    ReportRequest request = request_;
    request.labels.places = places;
    request.labels.tabs =
        list.empty() ? TabNumbers() : ParseNumberList(list, print_.main.document.TabCount, {"tab", "document"});
    Prepare(request);
}

std::string PrintRun::TabsAtHand() const {
    return NumberListText(print_.main.editor->MarkedTabs());
}

PrintCheck PrintRun::Check() {
    const MainModule& main = print_.main;
    return {main.fonts, print_.catalogue, report_,
            SupportOf(main.printers, report_.Printer.DeviceName, report_.PagePaper())};
}

bool PrintRun::WantedAnyway() {
    const std::vector<PrintFinding> findings = CheckBeforePrinting(Check());
    return findings.empty() || Ask(print_.main.ui, FindingsSummary(findings) + "Do you want to print anyway?",
                                   Buttons::YesNo, Answer::Yes) == Answer::Yes;
}

std::vector<int> PrintRun::Sheets(SheetChoice choice, int shown, const std::string& range) const {
    std::vector<int> sheets;
    switch (choice) {
    case SheetChoice::All:
    case SheetChoice::Tabs: // the run is of them alone
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

bool PrintRun::Print(const std::vector<int>& sheets) {
    return Send(report_.Printer.DeviceName, sheets);
}

bool PrintRun::SaveAsPdf(const std::vector<int>& sheets) {
    return Send(kPdfPrinter, sheets);
}

bool PrintRun::Send(const std::string& printer, const std::vector<int>& sheets) {
    return SendSheets(print_, DocumentSheets(report_, print_.main.document, print_.main.fonts, {sheets, false}),
                      {printer, caption_, kPrintReportPlace});
}

} // namespace velmora
