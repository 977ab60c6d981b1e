#include "print/SendSheets.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "print/PrintErrors.h"
#include "print/PrintSheets.h"
#include "report/PrepareReport.h"
#include "workspace/Dialogs.h"
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

/// What is to be told; nullopt when the person cancelled.
std::optional<DoneMessage> SaveAndTell(UserInterface& ui, const FontCatalogue& catalogue, const SheetSeries& series,
                                       const std::filesystem::path& path) {
    if (!SaveSheets(ui, catalogue, series, path))
        return std::nullopt;
    return DoneMessage{Counted(series.numbers.size(), "sheet") + " saved as " + PathText(path), false, path};
}

bool MayPrint(PrintModule& print, const SheetSeries& series, const std::string& printer) {
    MainModule& main = print.main;
    if (!PrinterTakesJobs(main, printer))
        return false;
    std::string doubts = StateText(printer, main.printers.StateOf(printer));
    if (!SupportOf(main.printers, printer, series.paper).listed) {
        RequireInstalled(main.printers.Printers(), printer); // one that went away has no paper either
        doubts += std::string(kPaperDiffers) + "\r\n";
    }
    doubts += ForbiddenFontsText(series, print.catalogue);
    return WantedAnyway(main.ui, doubts, "print");
}

std::string CopiesText(int copies) {
    return copies > 1 ? ", " + std::to_string(copies) + " copies" : "";
}

std::optional<DoneMessage> PrintAndTell(PrintModule& print, const SheetSeries& series, const SheetErrand& errand) {
    UserInterface& ui = print.main.ui;
    if (!errand.asked && !MayPrint(print, series, errand.printer))
        return std::nullopt;
    const auto progress = StartProgress(ui, "Printing.  Please standby...", series);
    const auto ask = [&ui](const CredentialsRequest& request) { return ui.AskForCredentials(request); };
    const auto waits =
        PrintSheets(series, print.catalogue, {print.main.printers, errand.printer, errand.title, errand.options, ask},
                    progress.get());
    if (!waits)
        return std::nullopt;
    return DoneMessage{Counted(series.numbers.size(), "sheet") + CopiesText(errand.options.copies) + " sent to " +
                       errand.printer + (waits->empty() ? "" : "; the job waits: " + *waits)};
}

} // namespace

std::optional<std::filesystem::path> AskForPdfPath(MainModule& main, std::string name) {
    const std::filesystem::path& document = main.document.DocFileName;
    if (name.empty())
        name = document.empty() ? "Tabs" : StemText(document);
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

std::optional<std::string> SendSheets(PrintModule& print, const SheetSeries& series, const SheetErrand& errand) {
    const bool toFile = errand.printer == kPdfPrinter;
    const auto path = toFile ? AskForPdfPath(print.main, errand.pdfName) : std::nullopt;
    if (toFile && !path)
        return std::nullopt;
    std::optional<DoneMessage> done;
    TrappedPrinting(print, errand.place, [&] {
        done = path ? SaveAndTell(print.main.ui, print.catalogue, series, *path) : PrintAndTell(print, series, errand);
    });
    if (!done)
        return std::nullopt;
    print.main.status->Tell(*done);
    return done->text;
}

void SavePdfAs(MainModule& main, LayoutValues& layout, const FontCatalogue& catalogue) {
    TakePageBack(main);
    const auto path = AskForPdfPath(main);
    if (!path)
        return;
    Trapped(main.ui, kPrintReportPlace, [&] {
        rptVelmor report =
            MakeReport(layout, DocumentRequest(main.document), {main.document, main.settings, main.fonts});
        SheetSeries sheets = DocumentSheets(report, main.document, main.fonts);
        sheets.language = main.language;
        if (const auto done = SaveAndTell(main.ui, catalogue, sheets, *path))
            main.status->Tell(*done);
    });
}

} // namespace velmora
