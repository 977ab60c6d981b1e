#include "print/PdfReport.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/TemporaryFile.h"
#include "report/PdfCanvas.h"
#include "report/SheetPainter.h"
#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"

#include <numeric>

namespace velmora {
namespace {

std::vector<int> AllSheets(const rptVelmor& report) {
    std::vector<int> numbers(static_cast<std::size_t>(report.SheetCount()));
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

} // namespace

std::optional<std::filesystem::path> AskForPdfPath(MainModule& main, std::string name) {
    const std::filesystem::path& document = main.document.DocFileName;
    if (name.empty())
        name = document.empty() ? "Tabs" : PathText(document.stem());
    const std::filesystem::path folder = document.empty() ? main.globals.TabsPath : document.parent_path();
    for (;;) {
        auto path = main.ui.ChooseFile({"SAVE", "Save as PDF", folder, "PDF file (*.pdf)|*.pdf", name + ".pdf"});
        if (path && IsSameFile(*path, document))
            Tell(main, "The document itself cannot be replaced by its PDF.  Please select a new file name.",
                 Icon::Critical);
        else if (!path || MayOverwrite(main, *path))
            return path;
    }
}

rptVelmor PrepareReport(const MainModule& main, LayoutValues& layout, const ReportRequest& request) {
    const TabDocument& document = main.document;
    rptVelmor report(layout);
    report.InitArray(request.mode, request.pageOnly ? document.setup.TabsPerPage : document.TabCount,
                     document.setup.RowsPerPage, document.setup.ColsPerPage, document.setup.NoOfFields,
                     request.pageOnly, document, request.used);
    report.PrepareTabStyle(document.setup.OptType, main.settings);
    report.FormatFields(document.setup.NoOfFields, document.setup.ColsPerPage, document.setup.OptType, main.fonts);
    report.SetPage(SheetPaper(SetStationeryFromType(document.setup.OptType), document.setup.StationeryType),
                   ReadPageMargins(main.settings));
    return report;
}

bool WritePdf(rptVelmor& report, const MainModule& main, const FontCatalogue& catalogue, const PdfOptions& options,
              const std::function<void(std::string_view)>& sink, Progress* progress) {
    PdfCanvas pdf(sink, {PathText(main.document.DocFileName.stem()), {}});
    SheetPainter painter(catalogue, main.fonts);
    Sheet sheet;
    int done = 0;
    for (const int number : options.sheets.empty() ? AllSheets(report) : options.sheets) {
        report.LayOutSheet(number, sheet);
        painter.Paint(sheet, pdf, options.outline ? Outlines::Shown : Outlines::Hidden);
        if (progress)
            progress->Advance(++done);
        if (progress && progress->Cancelled())
            return false;
    }
    pdf.Finish();
    return true;
}

bool SavePdf(rptVelmor& report, const MainModule& main, const FontCatalogue& catalogue, const PdfOptions& options,
             const std::filesystem::path& path, Progress* progress) {
    AtomicFile file(path);
    const bool whole = WritePdf(
        report, main, catalogue, options, [&](std::string_view bytes) { file.Write(bytes); }, progress);
    if (whole)
        file.Commit();
    return whole;
}

Paper PaperAtPrinter(const PrintSystem& printers, const std::string& printer, const Paper& sheet) {
    const bool longEdgeFirst = sheet.widthMm > sheet.heightMm;
    if (!longEdgeFirst || printers.PaperOf(printer, sheet.widthMm, sheet.heightMm).listed ||
        !printers.PaperOf(printer, sheet.heightMm, sheet.widthMm).listed)
        return sheet;
    return {sheet.heightMm, sheet.widthMm, true};
}

bool PrintSheets(const rptVelmor& report, const MainModule& main, const FontCatalogue& catalogue,
                 const PdfOptions& options, const PrintTarget& target, Progress* progress) {
    rptVelmor run = report;
    run.SetPaper(PaperAtPrinter(target.printers, target.printer, report.PagePaper()));
    TemporaryFile pdf(".pdf");
    if (!WritePdf(
            run, main, catalogue, options, [&](std::string_view bytes) { pdf.Write(bytes); }, progress))
        return false;
    const Paper& paper = run.PagePaper();
    target.printers.Print(target.printer, {target.title, pdf.Path(), paper.widthMm, paper.heightMm,
                                           paper.turned ? Orientation::Landscape : Orientation::Portrait});
    return true;
}

void SavePdfAs(MainModule& main, LayoutValues& layout, const FontCatalogue& catalogue) {
    TakePageBack(main);
    const auto path = AskForPdfPath(main);
    if (!path)
        return;
    Trapped(main, "Called from Function: PrintReport", [&] {
        rptVelmor report = PrepareReport(main, layout, {});
        const auto progress = main.ui.StartCancellable("Exporting file.  Please standby...", report.SheetCount());
        SavePdf(report, main, catalogue, {}, *path, progress.get());
    });
}

} // namespace velmora
