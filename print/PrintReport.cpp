#include "print/PrintReport.h"

#include "base/Version.h"
#include "print/NumberList.h"
#include "print/PrintErrors.h"
#include "print/PrintSheets.h"
#include "settings/GlobalConfiguration.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::int16_t kHighQuality = -4;
constexpr std::int16_t kPaperA4 = 9;
constexpr std::int16_t kPaperDL = 27;

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool HasPrinter(const PrintSystem& printers) {
    return printers.DefaultPrinter() || !printers.Printers().empty();
}

/// The application's own printer while it is installed, else the system's default.
std::string ReadCurrentPrinter(const PrintModule& print, const std::vector<std::string>& names) {
    if (Holds(names, print.CurrentPrinter))
        return print.CurrentPrinter;
    const std::string first = names.empty() ? "" : names.front();
    return print.main.printers.DefaultPrinter().value_or(first);
}

void ChooseDevice(const PrintSystem& printers, const std::string& configured, ReportPrinter& printer,
                  const std::vector<std::string>& names) {
    if (!Holds(names, configured) && printers.StateOf(configured).readiness == Readiness::Silent)
        throw PrinterError(kServerSilent); // it may well be there
    RequireInstalled(names, configured);
    printer.DeviceName = configured;
    printer.PrintQuality = kHighQuality;
}

void ChoosePaper(const TabDocument& document, ReportPrinter& printer) {
    if (document.setup.PageSize == "A4")
        printer.PaperSize = kPaperA4;
    else if (document.setup.PageSize == "DL")
        printer.PaperSize = kPaperDL;
}

Orientation OrientationOf(std::string_view layout) {
    return layout == "A4" || layout == "DL_h" ? Orientation::Portrait : Orientation::Landscape;
}

PrintOutcome TellNoPrinter(MainModule& main) {
    KeepRecoveryCopy(main); // what ends now offers its work at the next start
    Tell(main.ui,
         "You must have access to a printer before you can run the printer.\r\n"
         "The execution of this application will be aborted.",
         Icon::Critical);
    return PrintOutcome::NoPrinter;
}

/// No is the default where paper would show what nobody wants; the list of it is one button away.
Answer AskAboutDoubts(UserInterface& ui, const std::string& doubts) {
    return doubts.empty() ? Answer::Yes
                          : ui.Show({doubts + "Do you want to print anyway?", kProgramName, Icon::Question,
                                     Buttons::YesNo, Answer::No, nullptr, "&Show the List"});
}

/// Asked before empty sheets cost paper; nullopt: the person wants none of them printed.
std::optional<SheetChoice> AskAboutEmptySheets(UserInterface& ui, const rptVelmor& report) {
    const auto empty = EmptySheetsText(report);
    if (!empty || report.FilledSheets().empty())
        return SheetChoice::All;
    const Answer answer =
        Ask(ui, *empty + ".\r\nDo you want to print the filled sheets only?", Buttons::YesNoCancel, Answer::Yes);
    if (answer == Answer::Cancel)
        return std::nullopt;
    return answer == Answer::Yes ? SheetChoice::Filled : SheetChoice::All;
}

/// The sheet that a person said goes on being used comes first, unless this job shall have whole ones; false: the
/// person wants nothing printed.
bool BeginSheetInUse(UserInterface& ui, PrintRun& run) {
    const std::vector<int> used = run.UsesPaper() ? run.LabelsInUse() : std::vector<int>();
    if (used.empty())
        return true;
    const Answer answer = Ask(ui,
                              "A sheet goes on being used: its labels " + NumberListText(used) +
                                  " are gone.\r\nDo you want to begin with it?",
                              Buttons::YesNoCancel, Answer::Yes);
    return answer == Answer::Yes ? run.SetUsedSlots(used) : answer == Answer::No;
}

bool PrintAndKeepLabels(PrintRun& run, SheetChoice choice) {
    const std::vector<int> sheets = run.Sheets(choice, 1, "");
    const bool printed = run.Print(sheets);
    if (printed && !run.UsedSlots().empty())
        run.KeepLabelsInUse(sheets);
    return printed;
}

PrintOutcome PrintDocument(PrintModule& print, PrintRun& run) {
    UserInterface& ui = print.main.ui;
    if (!run.CanPrint() || !BeginSheetInUse(ui, run))
        return PrintOutcome::NotPrinted;
    const Answer answer = AskAboutDoubts(ui, run.Doubts());
    if (answer == Answer::Other) {
        print.viewer->ShowReport(run);
        return PrintOutcome::Done;
    }
    run.GoOnInSpite();
    const auto choice = answer == Answer::Yes ? AskAboutEmptySheets(ui, run.Report()) : std::nullopt;
    return choice && PrintAndKeepLabels(run, *choice) ? PrintOutcome::Done : PrintOutcome::NotPrinted;
}

PrintOutcome RunReport(PrintModule& print, const std::string& caption, const ReportRequest& request) {
    MainModule& main = print.main;
    if (!HasPrinter(main.printers))
        return TellNoPrinter(main);
    LoadFontSettings(main.settings, main.fonts);
    rptVelmor report(print.layout);
    SetupPrinter(print, report);
    if (print.PrinterProblem) {
        ReportError(main.ui,
                    "Problem getting printer information from the system. Make sure the printer is set up correctly.",
                    "Called from Sub: PrintReport");
        return PrintOutcome::NotPrinted;
    }
    PrintRun run(print, report, main.settings.SettingsAppName + " [" + caption + "]", request);
    if (request.mode != "PRINT" && request.mode != "TEST") {
        print.viewer->ShowReport(run);
        return PrintOutcome::Done;
    }
    if (request.mode == "PRINT")
        return PrintDocument(print, run);
    return run.Print() ? PrintOutcome::Done : PrintOutcome::NotPrinted;
}

PrintOutcome RunDocument(PrintModule& print, const char* mode, bool pageOnly, LabelChoice labels = {}) {
    TakePageBack(print.main);
    const TabDocument& document = print.main.document;
    ReportRequest request = DocumentRequest(document, mode, pageOnly);
    request.labels = std::move(labels);
    return PrintReport(print, DocumentCaption(document), request);
}

} // namespace

PrintOutcome PrintReport(PrintModule& print, const std::string& caption, const ReportRequest& request) {
    print.PrinterProblem = false;
    PrintOutcome outcome = PrintOutcome::NotPrinted;
    TrappedPrinting(print, kPrintReportPlace, [&] { outcome = RunReport(print, caption, request); });
    return outcome;
}

void SetupPrinter(PrintModule& print, rptVelmor& report) {
    print.PrinterProblem = false;
    const auto step = [&](const auto& work) {
        if (!TrappedPrinting(print, "Called from Sub: SetupPrinter", work))
            print.PrinterProblem = true;
    };
    MainModule& main = print.main;
    const TabDocument& document = main.document;
    std::vector<std::string> names;
    PageMargins margins;
    step([&] {
        names = main.printers.Printers();
        print.CurrentPrinter = ReadCurrentPrinter(print, names);
    });
    if (Holds(names, main.globals.PrinterName))
        print.CurrentPrinter = main.globals.PrinterName;
    if (!print.PrinterProblem)
        step([&] { ChooseDevice(main.printers, main.globals.PrinterName, report.Printer, names); });
    ChoosePaper(document, report.Printer);
    report.Printer.Orient = OrientationOf(document.setup.StationeryType);
    step([&] { margins.top = ReadPageMargin(main.settings, kMarginTop); });
    step([&] { margins.left = ReadPageMargin(main.settings, kMarginLeft); });
    report.SetPage(SheetPaper(document.setup), margins);
}

PrintOutcome PrintCommand(PrintModule& print) {
    return RunDocument(print, "PRINT", false);
}

PrintOutcome PrintPageCommand(PrintModule& print) {
    return RunDocument(print, "PrintPage", true);
}

PrintOutcome PreviewCommand(PrintModule& print) {
    return RunDocument(print, "VIEW", false);
}

PrintOutcome PrintTabsCommand(PrintModule& print) {
    return RunDocument(print, "VIEW", false, {{}, print.main.editor->MarkedTabs(), TabPlaces::Flowing});
}

} // namespace velmora
