#include "print/PrintSheets.h"

#include "base/TemporaryFile.h"

namespace velmora {

Paper PaperAtPrinter(const PrintSystem& printers, const std::string& printer, const Paper& sheet) {
    const bool longEdgeFirst = sheet.widthMm > sheet.heightMm;
    if (!longEdgeFirst || printers.PaperOf(printer, sheet.widthMm, sheet.heightMm).listed ||
        !printers.PaperOf(printer, sheet.heightMm, sheet.widthMm).listed)
        return sheet;
    return {sheet.heightMm, sheet.widthMm, true};
}

PaperSupport SupportOf(const PrintSystem& printers, const std::string& printer, const Paper& sheet) {
    PaperSupport support = printers.PaperOf(printer, sheet.widthMm, sheet.heightMm);
    if (!support.listed)
        support.listed = printers.PaperOf(printer, sheet.heightMm, sheet.widthMm).listed;
    return support;
}

std::optional<std::string> PrintSheets(SheetSeries series, const FontCatalogue& catalogue, const PrintTarget& target,
                                       Progress* progress) {
    const Paper& paper = series.paper = PaperAtPrinter(target.printers, target.printer, series.paper);
    TemporaryFile pdf(".pdf");
    if (!WritePdf(
            series, catalogue, [&](std::string_view bytes) { pdf.Write(bytes); }, progress))
        return std::nullopt;
    return target.printers.Print(target.printer, {target.title, pdf.Path(), paper.widthMm, paper.heightMm,
                                                  paper.turned ? Orientation::Landscape : Orientation::Portrait});
}

} // namespace velmora
