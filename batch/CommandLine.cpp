// Reading the parser's header takes longer than all else here: no header that changes often stands beside it.
#include "batch/CommandLine.h"

#include "base/Text.h"
#include "base/Version.h"
#include "batch/Commands.h"
#include "document/Stationery.h"
#include "document/Worksheet.h"
#include "platform/PrintSystem.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <memory>

namespace velmora {
namespace {

/// An empty file name comes from a script's empty variable.
const CLI::Validator kNotEmpty([](const std::string& text) { return text.empty() ? "is empty" : ""; }, "");

std::string RefuseColumns(std::string_view text) {
    const auto columns = ParseColumns(text);
    const bool joins = text.find('+') != std::string::npos;
    const bool right = columns && columns->first > 0 && joins == (columns->second > 0);
    return right ? "" : "\"" + std::string(text) + "\" is no column from 1 to 256, nor two such as 2+1";
}

/// Not the parser's own lists, which lose empty parts.
const CLI::Validator kColumns(
    [](const std::string& text) {
        const std::vector<std::string_view> fields = Split(text, ',');
        std::string refusal = fields.size() > kFieldsPerTab ? "more columns than a tab has fields" : "";
        for (const std::string_view field : fields)
            refusal = refusal.empty() ? RefuseColumns(field) : refusal;
        return refusal;
    },
    "");

const CLI::Validator kCopies(
    [](const std::string& text) {
        int copies = 0;
        const char* const end = text.data() + text.size();
        const bool whole = std::from_chars(text.data(), end, copies).ptr == end;
        return whole && copies >= 1 && copies <= kMostCopies
                   ? ""
                   : "\"" + text + "\" is no whole number from 1 to " + std::to_string(kMostCopies);
    },
    "");

/// What the parsed command line asks for.
struct Request {
    InfoArguments info;
    PdfArguments pdf;
    CalibrationArguments calibration;
    PrintArguments print;
    NewArguments create;
    FillArguments fill;
    std::string recipesIni;
    std::vector<std::string> check;
    ConvertArguments convert;
    std::string sheets;
    SettingsArguments settings;
    std::function<int()> run;
};

void AddInfo(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("info", "Print what a tab file holds, as JSON");
    command->add_option("FILE", request.info.file, "Tab file, - for standard input")->required()->check(kNotEmpty);
    command->add_flag("--tabs", request.info.tabs, "Print the texts of all tabs too");
    command->callback([&] { request.run = [&] { return RunInfo(request.info); }; });
}

void AddSheetOptions(CLI::App& command, SheetArguments& sheets) {
    command.add_option("FILE", sheets.file, "Tab file, - for standard input")->required()->check(kNotEmpty);
    CLI::Option* pages = command.add_option("--pages", sheets.pages, "Pages to print, such as 1-3,7");
    command
        .add_option("--tabs", sheets.tabs,
                    "Tabs to print alone, such as 300,305-307; in their own places without --from and --used")
        ->excludes(pages);
    command.add_option("--used", sheets.used, "Positions of the first sheet without a label, such as 1-5,9");
    command.add_option("--from", sheets.from, "First position of the first sheet that has a label");
    command.add_option("--ini", sheets.ini, "Settings such as tab tops; the file is only read");
}

void AddPdf(CLI::App& app, Request& request) {
    PdfArguments& pdf = request.pdf;
    CLI::App* command = app.add_subcommand("pdf", "Print a tab file to a PDF");
    AddSheetOptions(*command, pdf);
    command->add_option("-o,--output", pdf.output, "PDF to write, - for standard output")->required()->check(kNotEmpty);
    command->add_flag("--test", pdf.test, "Print the fixed texts of the test page")
        ->excludes(command->get_option("--tabs"));
    command->add_flag("--outline", pdf.outline, "Draw the outlines of the tabs");
    command->callback([&] { request.run = [&] { return RunPdf(request.pdf); }; });
}

void AddCalibration(CLI::App& app, Request& request) {
    CalibrationArguments& calibration = request.calibration;
    CLI::App* command = app.add_subcommand("calibration", "Make the sheet from which the margins are read off");
    command->add_option("--type", calibration.type, "Tab type")->required()->check(CLI::Range(0, kTabTypes - 1));
    command->add_option("--layout", calibration.layout, "Layout of a DL sheet")->check(CLI::IsMember({"DL_v", "DL_h"}));
    command->add_option("-o,--output", calibration.output, "PDF to write, - for standard output")
        ->required()
        ->check(kNotEmpty);
    command->add_option("--ini", calibration.ini, "Settings such as tab tops; the file is only read");
    command->callback([&] { request.run = [&] { return RunCalibration(request.calibration); }; });
}

void AddPrint(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("print", "Send a tab file to a printer");
    AddSheetOptions(*command, request.print);
    command->add_option("--printer", request.print.printer, "Printer; without it the one that the file names")
        ->check(kNotEmpty);
    command->add_option("--copies", request.print.copies, "Copies, 1 to 999")->check(kCopies);
    command->add_option("--tray", request.print.tray, "Tray of the printer")->check(kNotEmpty);
    command->add_option("--kind", request.print.kind, "Kind of paper, as the printer names it")->check(kNotEmpty);
    command->add_flag("--anyway", request.print.anyway, "Print where the printer does not list the sheet's size too");
    command->callback([&] { request.run = [&] { return RunPrint(request.print); }; });
    app.add_subcommand("printers", "List the printers")->callback([&] { request.run = RunPrinters; });
}

void AddNew(CLI::App& app, Request& request) {
    NewArguments& create = request.create;
    CLI::App* command = app.add_subcommand("new", "Make a tab file of empty tabs");
    command->add_option("--type", create.type, "Tab type")->required()->check(CLI::Range(0, kTabTypes - 1));
    command->add_option("--fields", create.fields, "Fields per tab")->required()->check(CLI::Range(1, 3));
    command->add_option("--pages", create.pages, "Pages")->check(CLI::Range(1, kMostTabs));
    command->add_option("-o,--output", create.output, "Tab file to write, - for standard output")
        ->required()
        ->check(kNotEmpty);
    command->callback([&] { request.run = [&] { return RunNew(request.create); }; });
}

void AddFill(CLI::App& app, Request& request) {
    FillArguments& fill = request.fill;
    CLI::App* command = app.add_subcommand("fill", "Give many tabs their texts");
    command->add_option("FILE", fill.file, "Tab file, - for standard input")->required()->check(kNotEmpty);
    command->add_option("--start", fill.start, "First tab to fill; one behind the last appends")
        ->check(CLI::Range(1, kMostTabs));
    command->add_option("--count", fill.count, "Tabs to fill")->required()->check(CLI::Range(1, kMostTabsToFill));
    command
        ->add_option("--field", fill.fields,
                     "A field and its values, once per field:\n"
                     "A=number,first=7,width=3,before=No.,after=/x,repeat=2\n"
                     "B=month,style=2,names=3+6,upper,repeat=25 (or day; all names by default)\n"
                     "C=text,value=\"in quotes, with commas\"")
        ->allow_extra_args(false);
    command->add_option("--recipe", fill.recipe, "The fields of a recipe, its numbers going on from the file's")
        ->check(kNotEmpty);
    command->add_option("--ini", fill.ini, "Where the recipes are; without it your own settings are read");
    command->add_option("-o,--output", fill.output, "Tab file to write, - for standard output")
        ->required()
        ->check(kNotEmpty);
    command->callback([&] { request.run = [&] { return RunFill(request.fill); }; });
}

void AddRecipes(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("recipes", "List the recipes of the AutoRepeat Wizard");
    command->add_option("--ini", request.recipesIni, "Where they are; without it your own settings are read");
    command->callback([&] { request.run = [&] { return RunRecipes(request.recipesIni); }; });
}

void AddCheck(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("check", "Read tab files strictly and print one line per problem");
    command->add_option("FILE", request.check, "Tab files, - for standard input")->required()->check(kNotEmpty);
    command->callback([&] { request.run = [&] { return RunCheck(request.check); }; });
}

void AddConvert(CLI::App& app, Request& request) {
    ConvertArguments& convert = request.convert;
    CLI::App* command = app.add_subcommand("convert", "Turn a tab file, a text list or a workbook into another");
    command
        ->add_option("IN", convert.input,
                     ".csv, .txt, .xls, .xlsx, .xlsm, .ods or a template, - for a text on standard input")
        ->required()
        ->check(kNotEmpty);
    command->add_option("OUT", convert.output, ".csv, .xls or .xlsx")->required()->check(kNotEmpty);
    command->add_option("--sheet", convert.sheet, "Worksheet to read");
    command->add_option("--columns", convert.columns, "Columns of the fields, such as 2,1 or 2+1,3")->check(kColumns);
    command->add_option("--join", convert.join, "Stands between two joined columns, a blank otherwise");
    command->add_flag("--heading", convert.heading, "The first row names the columns");
    command->add_flag("--visible", convert.visible, "Leave out hidden and filtered rows of a worksheet");
    command->add_option("--type", convert.type, "Tab type")->check(CLI::Range(0, kTabTypes - 1));
    command->add_option("--fields", convert.fields, "Fields per tab")->check(CLI::Range(1, 3));
    command->add_flag("--no-header", convert.noHeader, "Write the tabs alone");
    command->callback([&] { request.run = [&] { return RunConvert(request.convert); }; });
}

void AddSheets(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("sheets", "Print the names of a workbook's worksheets");
    command->add_option("FILE", request.sheets, "Workbook")->required()->check(kNotEmpty);
    command->callback([&] { request.run = [&] { return RunSheets(request.sheets); }; });
}

CLI::App* AddSettingsAction(CLI::App& parent, Request& request, SettingsAction action, const char* name,
                            const char* text) {
    CLI::App* command = parent.add_subcommand(name, text);
    command->callback([&request, action] {
        request.settings.action = action;
        request.run = [&request] { return RunSettings(request.settings); };
    });
    if (action != SettingsAction::Sections)
        command->add_option("SECTION", request.settings.section)->required();
    if (action != SettingsAction::Sections && action != SettingsAction::Keys)
        command->add_option("KEY", request.settings.key)->required();
    return command;
}

void AddSettings(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("settings", "Read or change an INI file");
    command->add_option("--ini", request.settings.ini, "The file; without it your own settings are read");
    command->require_subcommand(1);
    AddSettingsAction(*command, request, SettingsAction::Get, "get", "Print a value")
        ->add_option("DEFAULT", request.settings.fallback, "Stored and printed where the key is missing");
    AddSettingsAction(*command, request, SettingsAction::Set, "set", "Store a value")
        ->add_option("VALUE", request.settings.value)
        ->required();
    AddSettingsAction(*command, request, SettingsAction::Delete, "delete", "Remove a key");
    AddSettingsAction(*command, request, SettingsAction::Sections, "sections", "Print the section names");
    AddSettingsAction(*command, request, SettingsAction::Keys, "keys", "Print the keys of a section with their values");
}

void AddCommands(CLI::App& app, Request& request) {
    AddInfo(app, request);
    AddPdf(app, request);
    AddCalibration(app, request);
    AddPrint(app, request);
    AddNew(app, request);
    AddFill(app, request);
    AddRecipes(app, request);
    AddCheck(app, request);
    AddConvert(app, request);
    AddSheets(app, request);
    AddSettings(app, request);
}

} // namespace

ParsedCommand ParseCommandLine(std::vector<std::string> arguments, std::ostream& output, std::ostream& errors) {
    CLI::App app("Prints, makes and checks Velmora tab files.", "velmora-batch");
    app.set_version_flag("--version", std::string("velmora-batch ") + kVersion);
    app.allow_windows_style_options(false); // "/folder/file" is a path there too
    app.require_subcommand(1);
    const auto request = std::make_shared<Request>();
    AddCommands(app, *request);
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes a list
    try {
        app.parse(arguments);
    } catch (const CLI::ParseError& error) {
        return {nullptr, app.exit(error, output, errors) == 0 ? kDone : kWrongUsage};
    }
    return {[request] { return request->run(); }, kDone};
}

} // namespace velmora
