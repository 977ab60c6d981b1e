#include "report/PdfReport.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "report/PdfCanvas.h"

#include <numeric>
#include <span>

namespace velmora {
namespace {

std::vector<int> AllSheets(const rptVelmor& report) {
    std::vector<int> numbers(static_cast<std::size_t>(report.SheetCount()));
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

} // namespace

SheetSeries DocumentSheets(rptVelmor& report, const TabDocument& document, const FontSettings& fonts,
                           const PdfOptions& options) {
    SheetSeries series = {document.DocFileName.empty() ? "Tabs" : StemText(document.DocFileName),
                          report.PagePaper(),
                          fonts,
                          options.sheets.empty() ? AllSheets(report) : options.sheets,
                          [&report](int number, Sheet& sheet) { report.LayOutSheet(number, sheet); },
                          options.outline ? Outlines::Shown : Outlines::Hidden};
    series.fields = document.setup.NoOfFields;
    return series;
}

std::string ForbiddenFontsText(const SheetSeries& series, const FontCatalogue& catalogue) {
    std::string text;
    for (const FieldFont& font : std::span(series.fonts).first(static_cast<std::size_t>(series.fields))) {
        const auto file = catalogue.Match({font.Name, font.Bold, font.Italic});
        if (!file || !FontFace(file->path, file->index).ForbidsEmbedding())
            continue;
        const std::string line = "The maker of the font \"" + file->family + "\" forbids that it goes into a PDF.\r\n";
        if (text.find(line) == std::string::npos)
            text += line;
    }
    return text;
}

bool PaintSheets(const SheetSeries& series, const FontCatalogue& catalogue, Canvas& canvas, Progress* progress) {
    SheetPainter painter(catalogue, series.fonts);
    Sheet sheet;
    int done = 0;
    for (const int number : series.numbers) {
        series.layOut(number, sheet);
        sheet.paper = series.paper;
        painter.Paint(sheet, canvas, series.outlines);
        if (progress)
            progress->Advance(++done);
        if (progress && progress->Cancelled())
            return false;
    }
    return true;
}

bool WritePdf(const SheetSeries& series, const FontCatalogue& catalogue, const PdfSink& sink, Progress* progress) {
    PdfCanvas pdf(sink, {series.title, {}, series.language});
    const bool whole = PaintSheets(series, catalogue, pdf, progress);
    if (whole)
        pdf.Finish();
    return whole;
}

bool SavePdf(const SheetSeries& series, const FontCatalogue& catalogue, const std::filesystem::path& path,
             Progress* progress) {
    AtomicFile file(path);
    const bool whole = WritePdf(
        series, catalogue, [&](std::string_view bytes) { file.Write(bytes); }, progress);
    if (whole)
        file.Commit();
    return whole;
}

} // namespace velmora
