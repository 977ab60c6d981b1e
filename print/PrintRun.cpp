#include "print/PrintRun.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "print/NumberList.h"
#include "print/PrintErrors.h"
#include "print/PrintSheets.h"
#include "print/SendSheets.h"
#include "print/UsedLabels.h"
#include "workspace/Dialogs.h"

#include <numeric>
#include <set>

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

std::vector<int> PrintRun::LabelsInUse() const {
    return velmora::LabelsInUse(print_.main.settings, request_.tabType);
}

void PrintRun::KeepLabelsInUse(const std::vector<int>& sheets) {
    std::set<int> gone;
    if (!sheets.empty() && sheets.back() == 1)
        gone.insert(UsedSlots().begin(), UsedSlots().end());
    Sheet last;
    if (!sheets.empty())
        report_.LayOutSheet(sheets.back(), last);
    for (const PlacedText& placed : last.texts)
        if (!Trim(placed.text).empty())
            gone.insert(placed.slot);
    if (static_cast<int>(gone.size()) == LabelsPerSheet())
        gone.clear(); // the next sheet is a whole one
    velmora::KeepLabelsInUse(print_.main.settings, request_.tabType, {gone.begin(), gone.end()});
}

TabNumbers PrintRun::ParseTabs(const std::string& list) const {
    return ParseNumberList(list, print_.main.document.TabCount, {"tab", "document"});
}

void PrintRun::ChooseTabs(const std::optional<std::string>& list, TabPlaces places) {
    ReportRequest request = request_;
    request.labels.places = places;
    request.labels.tabs = list ? ParseTabs(*list) : TabNumbers();
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

bool PrintRun::CanPrint() {
    return PrinterTakesJobs(print_.main, report_.Printer.DeviceName);
}

std::string PrintRun::Doubts() {
    const std::string& printer = report_.Printer.DeviceName;
    return StateText(printer, print_.main.printers.StateOf(printer)) + FindingsSummary(CheckBeforePrinting(Check())) +
           ForbiddenFontsText(Series({}), print_.catalogue);
}

std::vector<int> PrintRun::Sheets(SheetChoice choice, int shown, const std::string& list) const {
    std::vector<int> sheets;
    switch (choice) {
    case SheetChoice::Tabs: // whose sheets the run is of
        ParseTabs(list);
        [[fallthrough]];
    case SheetChoice::All:
        sheets.resize(static_cast<std::size_t>(report_.SheetCount()));
        std::iota(sheets.begin(), sheets.end(), 1);
        break;
    case SheetChoice::Shown: sheets = {shown}; break;
    case SheetChoice::Filled: sheets = report_.FilledSheets(); break;
    case SheetChoice::Range: sheets = ParseNumberList(list, report_.SheetCount(), {"sheet", "document"}); break;
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
    const auto told = SendSheets(print_, Series(sheets), {printer, JobTitle(), kPrintReportPlace, {}, options, asked_});
    told_ = told.value_or("");
    return told.has_value();
}

} // namespace velmora
