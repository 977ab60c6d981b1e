#include "print/PrintSheets.h"

#include "base/TemporaryFile.h"
#include "base/Text.h"
#include "report/SurfaceCanvas.h"

#include <algorithm>

namespace velmora {
namespace {

/// False when the person cancelled: nothing is printed then.
bool DrawSheets(const SheetSeries& series, const FontCatalogue& catalogue, PrintSurface& surface, Progress* progress) {
    SurfaceCanvas canvas(surface);
    const bool whole = surface.Start() && PaintSheets(series, catalogue, canvas, progress);
    if (whole)
        surface.Finish();
    return whole;
}

} // namespace

void RequireInstalled(const std::vector<std::string>& installed, const std::string& printer) {
    if (std::find(installed.begin(), installed.end(), printer) == installed.end())
        throw PrinterError("There is no printer \"" + printer + "\".", kPrinterNotValidNumber);
}

Paper PaperAtPrinter(const PrintSystem& printers, const std::string& printer, const Paper& sheet) {
    const bool longEdgeFirst = sheet.widthMm > sheet.heightMm;
    if (!longEdgeFirst || printers.PaperOf(printer, sheet.widthMm, sheet.heightMm).listed ||
        !printers.PaperOf(printer, sheet.heightMm, sheet.widthMm).listed)
        return sheet;
    return {sheet.heightMm, sheet.widthMm, true};
}

PaperSupport SupportOf(const PrintSystem& printers, const std::string& printer, const Paper& sheet) {
    const Paper paper = PaperAtPrinter(printers, printer, sheet);
    PaperSupport support = printers.PaperOf(printer, paper.widthMm, paper.heightMm);
    if (!support.listed)
        support.listed = printers.PaperOf(printer, paper.heightMm, paper.widthMm).listed;
    else if (support.unprintable && paper.turned && !sheet.turned) {
        const UnprintableMargins margins = *support.unprintable;
        support.unprintable = {margins.bottom, margins.left, margins.top, margins.right};
    }
    return support;
}

std::string StateText(const std::string& printer, const PrinterState& state) {
    const std::string name = "The printer \"" + printer + "\" ";
    const std::string words = state.words.empty() ? "" : "It says: " + state.words + "\r\n";
    switch (state.readiness) {
    case Readiness::Waiting: return name + "is not ready: the job will wait.\r\n" + words;
    case Readiness::Refusing: return name + "takes no jobs now.\r\n" + words;
    case Readiness::Silent: return std::string(kServerSilent) + "\r\n";
    case Readiness::Ready: break;
    }
    return "";
}

const PaperSource& FindSource(const std::vector<PaperSource>& sources, const std::string& wanted,
                              const std::string& printer, const char* word) {
    std::string known;
    for (const PaperSource& source : sources) {
        if (EqualsNoCase(source.name, wanted) || EqualsNoCase(source.label, wanted))
            return source;
        known += (known.empty() ? "" : ", ") + source.name;
    }
    throw Error("the printer \"" + printer + "\" has no " + word + " \"" + wanted + "\"; " +
                (known.empty() ? "it lists none" : "it has " + known));
}

std::optional<std::string> PrintSheets(SheetSeries series, const FontCatalogue& catalogue, const PrintTarget& target,
                                       Progress* progress) {
    const Paper& paper = series.paper = PaperAtPrinter(target.printers, target.printer, series.paper);
    PrintJob job{target.title,
                 {},
                 paper.widthMm,
                 paper.heightMm,
                 paper.turned ? Orientation::Landscape : Orientation::Portrait,
                 target.options,
                 target.askCredentials};
    if (const auto surface = target.printers.StartJob(target.printer, job))
        return DrawSheets(series, catalogue, *surface, progress) ? std::optional("") : std::nullopt;
    TemporaryFile pdf(".pdf");
    if (!WritePdf(
            series, catalogue, [&](std::string_view bytes) { pdf.Write(bytes); }, progress))
        return std::nullopt;
    job.pdf = pdf.Path();
    return target.printers.Print(target.printer, job);
}

} // namespace velmora
