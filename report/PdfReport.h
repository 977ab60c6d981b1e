// Sheets as a PDF file, through the one painter.
#pragma once

#include "platform/FontCatalogue.h"
#include "platform/UserInterface.h"
#include "report/PdfWriter.h"
#include "report/SheetPainter.h"
#include "report/rptVelmor.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace velmora {

/// Sheets that go out together, to a file or to a printer.
struct SheetSeries {
    std::string title; ///< of the PDF
    Paper paper;       ///< of every sheet
    FontSettings fonts;
    std::vector<int> numbers;                             ///< in the order of printing
    std::function<void(int number, Sheet& sheet)> layOut; ///< the paper apart
    Outlines outlines = Outlines::Hidden;
    int fields = kFieldsPerTab;   ///< in use, which have a font
    std::string language = "und"; ///< of the texts, as RFC 5646 writes it; "und": not known
};

struct PdfOptions {
    std::vector<int> sheets; ///< numbers from 1, in the order of printing; empty: all
    bool outline = false;    ///< draws the tabs' and the fields' outlines too
};

/// The sheets of a document's report, which must be ready for them and outlive the series.
SheetSeries DocumentSheets(rptVelmor& report, const TabDocument& document, const FontSettings& fonts,
                           const PdfOptions& options = {});

/// What is to be said before fonts whose makers forbid it go into a document, a line for each, ended by a break; empty
/// for all others. Raises Error for a font that cannot be read.
std::string ForbiddenFontsText(const SheetSeries& series, const FontCatalogue& catalogue);

/// Paints the sheets one after the other, one sheet in memory at a time. `progress` is told the sheets done. False when
/// the person cancelled. Raises Error on a machine without fonts.
bool PaintSheets(const SheetSeries& series, const FontCatalogue& catalogue, Canvas& canvas, Progress* progress);

/// Writes the sheets through `sink`, as PaintSheets paints them. False when the person cancelled: what was written is
/// no PDF then.
bool WritePdf(const SheetSeries& series, const FontCatalogue& catalogue, const PdfSink& sink,
              Progress* progress = nullptr);

/// Replaces the file at `path` by the PDF; false, with the file as it was, when the person cancelled.
bool SavePdf(const SheetSeries& series, const FontCatalogue& catalogue, const std::filesystem::path& path,
             Progress* progress = nullptr);

} // namespace velmora
