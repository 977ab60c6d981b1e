#include "base/Paths.h"
#include "base/Text.h"
#include "batch/BatchProgram.h"
#include "batch/Commands.h"
#include "document/TabFileForm.h"
#include "document/TextList.h"
#include "document/Worksheet.h"
#include "workbook/LibraryWorkbooks.h"
#include "workspace/OpenDocument.h"
#include "workspace/SaveDocument.h"

#include <iostream>

namespace velmora {
namespace {

constexpr const char* kSheetName = "Tabs";

void CheckUsage(const ConvertArguments& arguments) {
    const auto format = WorkbookFormatOf(PathOf(arguments.output));
    if (!format && !EndsWithNoCase(arguments.output, ".csv"))
        throw UsageError(arguments.output + ": the output must end in .csv, .xls or .xlsx");
    if (format && !LibraryWorkbooks().CanWrite(*format))
        throw UsageError(arguments.output + ": workbooks of this format cannot be written");
    if (IsSameFile(PathOf(arguments.input), PathOf(arguments.output)))
        throw UsageError(arguments.output + ": the output would replace what it is made from");
}

std::string ChooseSheet(const Workbook& workbook, const std::string& wanted) {
    if (!wanted.empty())
        return wanted;
    if (workbook.SheetNames().size() == 1)
        return workbook.SheetNames().front();
    std::string names;
    for (const std::string& name : workbook.SheetNames())
        names += " [" + name + "]";
    throw UsageError("choose a worksheet with --sheet:" + names);
}

WorksheetOptions OptionsOf(const ConvertArguments& arguments) {
    WorksheetOptions options;
    options.heading = arguments.heading;
    options.visibleOnly = arguments.visible;
    options.between = arguments.join;
    if (arguments.columns.empty())
        return options;
    options.columns.clear();
    for (const std::string_view field : Split(arguments.columns, ',')) {
        const auto [column, joined] = ParseColumns(field).value();
        options.joined.at(options.columns.size()) = joined;
        options.columns.push_back(column);
    }
    return options;
}

/// Only of columns that were asked for: the first three are taken whether they are there or not.
void RefuseMissingColumns(const Worksheet& sheet, const ConvertArguments& arguments) {
    for (const std::string_view field : Split(arguments.columns, ',')) {
        const auto [column, joined] = ParseColumns(field).value_or(std::pair(0, 0));
        const int last = std::max(column, joined);
        if (last > sheet.columns)
            throw Error("column " + std::to_string(last) + " is asked for, the last one is " +
                        std::to_string(sheet.columns));
    }
}

/// A workbook's sheet, or a list of another program.
Worksheet ReadSheet(const ConvertArguments& arguments, const std::string& text) {
    if (!WorkbookFormatOf(PathOf(arguments.input)))
        return WorksheetOf(text, SpreadsheetSeparator(text).value_or(GuessDelimiter(text)), OptionsOf(arguments));
    const auto workbook = LibraryWorkbooks().Open(PathOf(arguments.input), {});
    Worksheet sheet = ReadWorksheet(*workbook, ChooseSheet(*workbook, arguments.sheet), OptionsOf(arguments));
    if (const std::string found = UnresolvedFindings(sheet); !found.empty())
        throw Error(found);
    return sheet;
}

/// As tab files are read, but also in the encoding that a spreadsheet calls Unicode text.
std::string ReadText(const std::string& path) {
    const std::string bytes = NamingFile(path, [&] { return ReadInput(path); });
    const std::vector<ListEncoding> encodings = FittingEncodings(bytes);
    const bool utf16 = !encodings.empty() && encodings.front() == ListEncoding::Utf16;
    return utf16 ? DecodeList(bytes, ListEncoding::Utf16) : bytes;
}

/// Puts what the command line says in the place of what the input says, in its header or in the settings.
template <typename Source>
void Overrule(Source& source, const ConvertArguments& arguments, int fields, SettingsStore& settings) {
    const auto type = std::to_string(arguments.type.value_or(0));
    const auto used = std::to_string(arguments.fields.value_or(fields));
    if (!source.header) {
        Write(settings, kOptType, type);
        Write(settings, kNoOfFields, used);
        return;
    }
    source.header->optType = arguments.type ? type : source.header->optType;
    source.header->noOfFields = arguments.fields ? used : source.header->noOfFields;
}

void LoadInput(BatchProgram& program, const ConvertArguments& arguments) {
    const bool isWorkbook = WorkbookFormatOf(PathOf(arguments.input)).has_value();
    if (isWorkbook)
        MentionInterruptedSave(arguments.input);
    const std::string bytes = isWorkbook ? "" : ReadText(arguments.input);
    NamingFile(arguments.input, [&] {
        // A tab file knows no quotes, so its own reader takes it, unless a spreadsheet put some in.
        TabFile file = ParseTabFile(bytes);
        if (file.header && !SpreadsheetSeparator(file.text)) {
            Overrule(file, arguments, 1, program.Settings());
            program.Load(file);
            return;
        }
        Worksheet sheet = ReadSheet(arguments, file.text);
        if (sheet.lines == 0)
            throw Error("there are no rows to convert");
        RefuseMissingColumns(sheet, arguments);
        Overrule(sheet, arguments, FieldsInUse(sheet), program.Settings());
        program.Load(sheet);
    });
}

void WriteDocument(BatchProgram& program, const ConvertArguments& arguments,
                   const std::function<void(std::string_view)>& sink) {
    const TabDocument& document = program.Main().document;
    if (const auto format = WorkbookFormatOf(PathOf(arguments.output))) {
        LibraryWorkbooks().Write(*format, kSheetName, TabRows(document), sink);
        return;
    }
    std::string text = arguments.noHeader ? "" : SaveData(program.Settings());
    SaveRows(document, program.Main().ui, text);
    sink(text);
}

} // namespace

int RunConvert(const ConvertArguments& arguments) {
    CheckUsage(arguments);
    BatchProgram program;
    LoadInput(program, arguments);
    WriteOutput(arguments.output, [&](const auto& sink) {
        NamingFile(arguments.output, [&] { WriteDocument(program, arguments, sink); });
    });
    if (!WorkbookFormatOf(PathOf(arguments.output)))
        WarnOfCommas(program.Main());
    if (!program.Told().empty())
        std::cerr << "velmora-batch: " << program.Told() << '\n';
    return kDone;
}

int RunSheets(const std::string& file) {
    MentionInterruptedSave(file);
    const auto workbook = NamingFile(file, [&] { return LibraryWorkbooks().Open(PathOf(file), {}); });
    for (const std::string& name : workbook->SheetNames())
        std::cout << name << '\n';
    return kDone;
}

} // namespace velmora
