#include "print/PrintRun.h"

#include "print/NumberList.h"
#include "print/PdfReport.h"
#include "print/PrintErrors.h"
#include "workspace/Dialogs.h"

#include <numeric>

namespace velmora {
namespace {

int CountSheets(const rptVelmor& report, const std::vector<int>& sheets) {
    return sheets.empty() ? report.SheetCount() : static_cast<int>(sheets.size());
}

/// Paper that a printer has the other way round will do, but its margins are not known then.
PaperSupport SupportOf(const PrintSystem& printers, const std::string& printer, const Paper& paper) {
    PaperSupport support = printers.PaperOf(printer, paper.widthMm, paper.heightMm);
    if (!support.listed)
        support.listed = printers.PaperOf(printer, paper.heightMm, paper.widthMm).listed;
    return support;
}

} // namespace

PrintRun::PrintRun(PrintModule& print, rptVelmor& report, std::string caption, RunArguments arguments)
    : print_(print), report_(report), caption_(std::move(caption)), arguments_(std::move(arguments)) {
    Prepare({});
}

void PrintRun::Prepare(const std::vector<int>& used) {
    const RunArguments& run = arguments_;
    report_.InitArray(run.mode, run.count, run.rows, run.cols, run.numFields, run.pageOnly, print_.main.document, used);
    report_.PrepareTabStyle(run.tabType, print_.main.settings);
    report_.FormatFields(run.numFields, run.cols, run.tabType, print_.main.fonts);
    used_ = used;
}

bool PrintRun::SetUsedSlots(const std::vector<int>& used) {
    return TrappedPrinting(print_, kPrintReportPlace, [&] { Prepare(used); });
}

PrintCheck PrintRun::Check() {
    const MainModule& main = print_.main;
    return {main.fonts, print_.catalogue, report_,
            SupportOf(main.printers, report_.Printer.DeviceName, report_.PagePaper())};
}

bool PrintRun::WantedAnyway() {
    const std::vector<PrintFinding> findings = CheckBeforePrinting(Check());
    return findings.empty() || Ask(print_.main, FindingsSummary(findings) + "Do you want to print anyway?",
                                   Buttons::YesNo, Answer::Yes) == Answer::Yes;
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

bool PrintRun::Print(const std::vector<int>& sheets) {
    if (report_.Printer.DeviceName == kPdfPrinter)
        return SaveAsPdf(sheets);
    bool printed = false;
    TrappedPrinting(print_, kPrintReportPlace, [&] {
        const auto progress =
            print_.main.ui.StartCancellable("Printing.  Please standby...", CountSheets(report_, sheets));
        printed = PrintSheets(report_, print_.main, print_.catalogue, {sheets, false},
                              {print_.main.printers, report_.Printer.DeviceName, caption_}, progress.get());
    });
    return printed;
}

bool PrintRun::SaveAsPdf(const std::vector<int>& sheets) {
    const auto path = AskForPdfPath(print_.main);
    bool saved = false;
    if (path)
        TrappedPrinting(print_, kPrintReportPlace, [&] {
            const auto progress =
                print_.main.ui.StartCancellable("Exporting file.  Please standby...", CountSheets(report_, sheets));
            saved = SavePdf(report_, print_.main, print_.catalogue, {sheets, false}, *path, progress.get());
        });
    return saved;
}

} // namespace velmora
