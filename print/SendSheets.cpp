#include "print/SendSheets.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "print/PrintErrors.h"
#include "print/PrintSheets.h"
#include "report/PrepareReport.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/TakePageBack.h"

namespace velmora {
namespace {

std::unique_ptr<Progress> StartProgress(UserInterface& ui, const char* text, const SheetSeries& series) {
    return ui.StartCancellable(text, static_cast<int>(series.numbers.size()));
}

bool WantedAnyway(UserInterface& ui, const std::string& doubts, const char* verb) {
    return doubts.empty() ||
           Ask(ui, doubts + "Do you want to " + verb + " anyway?", Buttons::YesNo, Answer::No) == Answer::Yes;
}

bool SaveSheets(UserInterface& ui, const FontCatalogue& catalogue, const SheetSeries& series,
                const std::filesystem::path& path) {
    if (!WantedAnyway(ui, ForbiddenFontsText(series, catalogue), "save"))
        return false;
    const auto progress = StartProgress(ui, "Exporting file.  Please standby...", series);
    return SavePdf(series, catalogue, path, progress.get());
}

bool MayPrint(PrintModule& print, const SheetSeries& series, const std::string& printer) {
    MainModule& main = print.main;
    if (!PrinterTakesJobs(main, printer))
        return false;
    std::string doubts = StateText(printer, main.printers.StateOf(printer));
    if (!SupportOf(main.printers, printer, series.paper).listed)
        doubts += std::string(kPaperDiffers) + "\r\n";
    doubts += ForbiddenFontsText(series, print.catalogue);
    return WantedAnyway(main.ui, doubts, "print");
}

bool PrintSheets(PrintModule& print, const SheetSeries& series, const SheetErrand& errand) {
    UserInterface& ui = print.main.ui;
    if (!errand.asked && !MayPrint(print, series, errand.printer))
        return false;
    const auto progress = StartProgress(ui, "Printing.  Please standby...", series);
    const auto ask = [&ui](const CredentialsRequest& request) { return ui.AskForCredentials(request); };
    return PrintSheets(series, print.catalogue,
                       {print.main.printers, errand.printer, errand.title, errand.options, ask}, progress.get());
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
            Tell(main.ui, "The document itself cannot be replaced by its PDF.  Please select a new file name.",
                 Icon::Critical);
        else if (!path || MayOverwrite(main.ui, *path))
            return path;
    }
}

bool PrinterTakesJobs(MainModule& main, const std::string& printer) {
    const PrinterState state = main.printers.StateOf(printer);
    if (TakesJobs(state))
        return true;
    Tell(main.ui, StateText(printer, state), Icon::Critical);
    return false;
}

bool SendSheets(PrintModule& print, const SheetSeries& series, const SheetErrand& errand) {
    const bool toFile = errand.printer == kPdfPrinter;
    const auto path = toFile ? AskForPdfPath(print.main, errand.pdfName) : std::nullopt;
    if (toFile && !path)
        return false;
    bool sent = false;
    TrappedPrinting(print, errand.place, [&] {
        sent = path ? SaveSheets(print.main.ui, print.catalogue, series, *path) : PrintSheets(print, series, errand);
    });
    if (sent && path)
        TellWritten(print.main, *path);
    else if (sent)
        print.main.status->Tell(
            {Counted(series.numbers.size(), "sheet") +
             (errand.options.copies > 1 ? ", " + std::to_string(errand.options.copies) + " copies" : "") + " sent to " +
             errand.printer});
    return sent;
}

void SavePdfAs(MainModule& main, LayoutValues& layout, const FontCatalogue& catalogue) {
    TakePageBack(main);
    const auto path = AskForPdfPath(main);
    if (!path)
        return;
    Trapped(main.ui, kPrintReportPlace, [&] {
        rptVelmor report =
            MakeReport(layout, DocumentRequest(main.document), {main.document, main.settings, main.fonts});
        SheetSeries series = DocumentSheets(report, main.document, main.fonts);
        series.language = main.language;
        if (SaveSheets(main.ui, catalogue, series, *path))
            TellWritten(main, *path);
    });
}

} // namespace velmora
