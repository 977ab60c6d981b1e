#include "batch/Commands.h"

#include "base/Numbers.h"
#include "base/Paths.h"
#include "batch/BatchProgram.h"
#include "document/TabFileCheck.h"
#include "platform/InstalledPrinters.h"
#include "print/NumberList.h"
#include "print/PrintSheets.h"
#include "report/PrepareReport.h"
#include "setup/CalibrationSheet.h"
#include "workspace/Globals.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace velmora {
namespace {

using Json = nlohmann::ordered_json;

Json VersionOf(const TabFile& file) {
    if (TestVersion8(file.FirstLine()))
        return 8;
    return TestVersion7(file.FirstLine()) ? Json(7) : Json(nullptr);
}

Json Margin(SettingsStore& settings, const SettingKey& key) {
    const std::string text = Read(settings, key);
    return IsNumeric(text) ? Json(ToDouble(text)) : Json(nullptr);
}

Json FontJson(const FieldFont& font) {
    return {{"name", font.Name},
            {"size", font.Size},
            {"bold", font.Bold},
            {"italic", font.Italic},
            {"underline", font.Underline},
            {"horizontal", font.HorizontalAlignment},
            {"vertical", font.VerticalAlignment}};
}

int CountFilled(const TabDocument& document) {
    int filled = 0;
    for (int tab = 1; tab <= document.TabCount; ++tab)
        filled += IsEmptyTab(document, tab) ? 0 : 1;
    return filled;
}

Json TextsJson(const TabDocument& document) {
    Json texts = Json::array();
    for (int tab = 1; tab <= document.TabCount; ++tab)
        texts.push_back({document.FieldA(tab), document.FieldB(tab), document.FieldC(tab)});
    return texts;
}

std::vector<int> ParseList(const std::string& list, int most, const ListWords& words) {
    try {
        return ParseNumberList(list, most, words);
    } catch (const Error& error) {
        throw UsageError(error.what());
    }
}

LabelChoice LabelsOf(const SheetArguments& arguments, const TabDocument& document) {
    LabelChoice labels;
    const ListWords positions{"position", "sheet"};
    if (arguments.used)
        labels.used = ParseList(*arguments.used, document.setup.TabsPerPage, positions);
    if (arguments.from) {
        const std::vector<int> from = ParseList(*arguments.from, document.setup.TabsPerPage, positions);
        if (from.size() != 1)
            throw UsageError("--from: \"" + *arguments.from + "\" is more than one position");
        const int first = from.front();
        for (int slot = 1; slot < first; ++slot)
            labels.used.push_back(slot);
    }
    if (arguments.tabs)
        labels.tabs = ParseList(*arguments.tabs, document.TabCount, {"tab", "document"});
    if (!arguments.used && !arguments.from)
        labels.places = TabPlaces::Own;
    return labels;
}

rptVelmor MakeReport(BatchProgram& program, const SheetArguments& arguments, const char* mode) {
    const MainModule& main = program.Main();
    ReportRequest request = DocumentRequest(main.document, mode);
    request.labels = LabelsOf(arguments, main.document);
    return NamingFile(arguments.file, [&] {
        return MakeReport(program.Layout(), request, {main.document, main.settings, main.fonts});
    });
}

PdfOptions OptionsOf(const SheetArguments& arguments, const rptVelmor& report) {
    PdfOptions options;
    if (arguments.pages)
        options.sheets = ParseList(*arguments.pages, report.SheetCount(), {"page", "document"});
    return options;
}

void LoadSheets(BatchProgram& program, const SheetArguments& arguments) {
    if (!arguments.ini.empty())
        program.UseSettings(PathOf(arguments.ini));
    program.Load(arguments.file);
}

void CheckPrinter(const PrintSystem& printers, const std::string& name) {
    if (name == kPdfPrinter)
        throw UsageError("\"" + name + "\" writes a file: use \"velmora-batch pdf\", or name a printer with --printer");
    const std::vector<std::string> names = printers.Printers();
    const bool isListed = std::find(names.begin(), names.end(), name) != names.end();
    if (!isListed && printers.StateOf(name).readiness == Readiness::Silent)
        throw Error(kServerSilent); // it may well be there
    if (!isListed)
        throw Error("there is no printer \"" + name + "\"; \"velmora-batch printers\" lists them");
}

/// Where the window asks, the command ends or says what it does: nobody can answer.
void AskPrinter(const PrintSystem& printers, const std::string& printer, const Paper& paper, bool anyway) {
    const PrinterState state = printers.StateOf(printer);
    const std::string text(Trim(OneLine(StateText(printer, state))));
    if (!TakesJobs(state))
        throw Error(text);
    if (!text.empty())
        std::cerr << "velmora-batch: " << text << '\n';
    if (!anyway && !SupportOf(printers, printer, paper).listed)
        throw Error(std::string(kPaperDiffers) + "  With --anyway it is printed all the same.");
}

JobOptions OptionsOf(const PrintArguments& arguments, const PrintSystem& printers, const std::string& printer) {
    JobOptions options{arguments.copies};
    if (arguments.tray.empty() && arguments.kind.empty())
        return options;
    const PaperSources sources = printers.SourcesOf(printer);
    if (!arguments.tray.empty())
        options.tray = FindSource(sources.trays, arguments.tray, printer, "tray").name;
    if (!arguments.kind.empty())
        options.kind = FindSource(sources.kinds, arguments.kind, printer, "kind of paper").name;
    return options;
}

void MentionForbiddenFonts(const SheetSeries& sheets, const FontCatalogue& catalogue) {
    if (const std::string text = ForbiddenFontsText(sheets, catalogue); !text.empty())
        std::cerr << "velmora-batch: " << Trim(OneLine(text)) << '\n';
}

/// The document's, in the language of the person who prints them.
SheetSeries Sheets(const BatchProgram& program, rptVelmor& report, const PdfOptions& options) {
    const MainModule& main = program.Main();
    SheetSeries sheets = DocumentSheets(report, main.document, main.fonts, options);
    sheets.language = main.language;
    return sheets;
}

} // namespace

int RunInfo(const InfoArguments& arguments) {
    BatchProgram program;
    const TabFile file = program.Load(arguments.file);
    const TabDocument& document = program.Main().document;
    Json info;
    info["version"] = VersionOf(file);
    info["encoding"] = EncodingName(file.encoding);
    info["printer"] = file.header ? Json(file.header->printer) : Json(nullptr);
    info["stationery"] = document.setup.StationeryType;
    info["optType"] = document.setup.OptType;
    info["fields"] = document.setup.NoOfFields;
    info["marginLeft"] = Margin(program.Settings(), kMarginLeft);
    info["marginTop"] = Margin(program.Settings(), kMarginTop);
    for (const FieldFont& font : program.Main().fonts)
        info["fonts"].push_back(FontJson(font));
    info["pages"] = document.NoOfPages;
    info["tabs"] = document.TabCount;
    info["filled"] = CountFilled(document);
    if (arguments.tabs)
        info["texts"] = TextsJson(document);
    std::cout << info.dump(2) << '\n';
    return kDone;
}

int RunPdf(const PdfArguments& arguments) {
    for (const std::string& read : {arguments.file, arguments.ini})
        if (IsSameFile(PathOf(read), PathOf(arguments.output)))
            throw UsageError(arguments.output + ": the PDF would replace what it is made from");
    BatchProgram program;
    LoadSheets(program, arguments);
    const std::unique_ptr<FontCatalogue> catalogue = MakeFontCatalogue();
    rptVelmor report = MakeReport(program, arguments, arguments.test ? "TEST" : "PRINT");
    PdfOptions options = OptionsOf(arguments, report);
    options.outline = arguments.outline;
    if (arguments.test && !arguments.pages)
        options.sheets = {1}; // the test page is one page, however long the document
    const SheetSeries sheets = Sheets(program, report, options);
    MentionForbiddenFonts(sheets, *catalogue);
    WriteOutput(arguments.output, [&](const auto& sink) { WritePdf(sheets, *catalogue, sink); });
    return kDone;
}

int RunCalibration(const CalibrationArguments& arguments) {
    if (IsSameFile(PathOf(arguments.ini), PathOf(arguments.output)))
        throw UsageError(arguments.output + ": the PDF would replace the settings");
    const bool isDl = SetStationeryFromType(arguments.type) == "DL";
    if (!isDl && !arguments.layout.empty())
        throw UsageError("tab type " + std::to_string(arguments.type) + " has no layouts to choose from");
    const std::string layout = !isDl ? "A4" : arguments.layout.empty() ? "DL_v" : arguments.layout;
    BatchProgram program;
    if (!arguments.ini.empty())
        program.UseSettings(PathOf(arguments.ini));
    const std::unique_ptr<FontCatalogue> catalogue = MakeFontCatalogue();
    const SheetSeries sheets = CalibrationSheets(program.Settings(), arguments.type, layout);
    WriteOutput(arguments.output, [&](const auto& sink) { WritePdf(sheets, *catalogue, sink); });
    return kDone;
}

int RunPrint(const PrintArguments& arguments) {
    BatchProgram program;
    LoadSheets(program, arguments);
    InstalledPrinters printers = MakeInstalledPrinters(SystemEnvironment());
    const std::string& configured = program.Main().globals.PrinterName;
    const std::string& printer = arguments.printer.empty() ? configured : arguments.printer;
    rptVelmor report = MakeReport(program, arguments, "PRINT");
    const SheetSeries sheets = Sheets(program, report, OptionsOf(arguments, report));
    CheckPrinter(printers, printer);
    const std::unique_ptr<FontCatalogue> catalogue = MakeFontCatalogue();
    AskPrinter(printers, printer, sheets.paper, arguments.anyway);
    MentionForbiddenFonts(sheets, *catalogue);
    const std::string name = PathText(PathOf(DisplayName(arguments.file)).filename());
    const auto waits = PrintSheets(
        sheets, *catalogue, {printers, printer, "Velmora [" + name + "]", OptionsOf(arguments, printers, printer)});
    if (waits && !waits->empty())
        std::cerr << "velmora-batch: the job waits: " << OneLine(*waits) << '\n';
    return kDone;
}

int RunPrinters() {
    const InstalledPrinters printers = MakeInstalledPrinters(SystemEnvironment());
    const auto standard = printers.DefaultPrinter();
    for (const std::string& name : printers.Printers())
        std::cout << name << (name == standard ? "\tdefault" : "") << '\n';
    return kDone;
}

int RunNew(const NewArguments& arguments) {
    const TabType& type = *FindTabType(arguments.type);
    const int most = MostTabs(arguments.type) / type.TabsPerPage();
    if (arguments.pages > most)
        throw UsageError("a document of tab type " + std::to_string(arguments.type) + " holds at most " +
                         std::to_string(most) + " pages");
    BatchProgram program;
    MainModule& main = program.Main();
    LoadGlobals(main);
    TabDocument& document = main.document;
    document.setup.OptType = static_cast<std::int16_t>(arguments.type);
    document.setup.NoOfFields = static_cast<std::int16_t>(arguments.fields);
    SetLayoutFromType(document.setup);
    SetRowsAndStationery(document.setup, arguments.type);
    document.TabCount = arguments.pages * type.TabsPerPage();
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).ReDim(document.TabCount);
    ApplyTabType(main);
    const std::string bytes = TabFileBytes(document, program.Settings(), main.ui);
    WriteOutput(arguments.output, [&](const auto& sink) { sink(bytes); });
    return kDone;
}

int RunCheck(const std::vector<std::string>& files) {
    bool clean = true;
    for (const std::string& file : files) {
        try {
            for (const TabFileProblem& problem : CheckTabFile(NamingFile(file, [&] { return ReadInput(file); }))) {
                std::cout << file << ":" << problem.line << ": " << problem.text << '\n';
                clean = false;
            }
        } catch (const Error& error) {
            std::cerr << "velmora-batch: " << OneLine(error.what()) << '\n';
            clean = false;
        }
    }
    return clean ? kDone : kFailed;
}

} // namespace velmora
