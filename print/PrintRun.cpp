#include "print/PrintRun.h"

#include "print/PdfReport.h"
#include "print/PrintErrors.h"

#include <algorithm>

namespace velmora {
namespace {

int CountSheets(const rptVelmor& report, const std::vector<int>& sheets) {
    return sheets.empty() ? report.SheetCount() : static_cast<int>(sheets.size());
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

bool PrintRun::SetUsedSlots(std::vector<int> used) {
    return TrappedPrinting(print_, kPrintReportPlace, [&] { Prepare(used); });
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
