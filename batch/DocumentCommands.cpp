#include "batch/Commands.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "batch/BatchProgram.h"
#include "document/TabFileCheck.h"
#include "platform/linux/FontconfigCatalogue.h"
#include "print/CalibrationSheet.h"
#include "print/PdfReport.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
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
    const std::string text = GetSetting(settings, settings.SettingsAppName, key.section, key.key, key.fallback);
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

bool IsFilled(const TabDocument& document, int tab) {
    for (int field = 0; field < document.NoOfFields; ++field)
        if (!Trim(document.Field(field)(tab)).empty())
            return true;
    return false;
}

int CountFilled(const TabDocument& document) {
    int filled = 0;
    for (int tab = 1; tab <= document.TabCount; ++tab)
        filled += IsFilled(document, tab) ? 1 : 0;
    return filled;
}

Json TextsJson(const TabDocument& document) {
    Json texts = Json::array();
    for (int tab = 1; tab <= document.TabCount; ++tab)
        texts.push_back({document.FieldA(tab), document.FieldB(tab), document.FieldC(tab)});
    return texts;
}

/// A whole number at the front of `text`, which is cut off.
int TakeNumber(std::string_view& text, const std::string& list) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < 1)
        throw UsageError("\"" + list + "\" is no list of pages such as 1-3,7");
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

/// "1-3,7" as page numbers of a document of `pages` pages.
std::vector<int> ParsePages(const std::string& list, int pages) {
    std::vector<int> numbers;
    for (std::string_view part : Split(list, ',')) {
        const int first = TakeNumber(part, list);
        int last = first;
        if (part.starts_with('-')) {
            part.remove_prefix(1);
            last = TakeNumber(part, list);
        }
        if (!part.empty() || last < first)
            throw UsageError("\"" + list + "\" is no list of pages such as 1-3,7");
        if (last > pages)
            throw UsageError("page " + std::to_string(last) + " is asked for, the document has " +
                             std::to_string(pages));
        for (int number = first; number <= last; ++number)
            numbers.push_back(number);
    }
    return numbers;
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
    info["stationery"] = document.StationeryType;
    info["optType"] = document.OptType;
    info["fields"] = document.NoOfFields;
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
        if (IsSameFile(read, arguments.output))
            throw UsageError(arguments.output + ": the PDF would replace what it is made from");
    BatchProgram program;
    if (!arguments.ini.empty())
        program.UseSettings(arguments.ini);
    program.Load(arguments.file);
    const FontconfigCatalogue catalogue;
    rptVelmor report = NamingFile(arguments.file, [&] {
        return PrepareReport(program.Main(), program.Layout(), {arguments.test ? "TEST" : "PRINT", false});
    });
    PdfOptions options;
    options.outline = arguments.outline;
    if (arguments.pages)
        options.sheets = ParsePages(*arguments.pages, report.SheetCount());
    else if (arguments.test)
        options.sheets = {1}; // the test page is one page, however long the document
    WriteOutput(arguments.output,
                [&](const auto& sink) { WritePdf(report, program.Main(), catalogue, options, sink); });
    return kDone;
}

int RunCalibration(const CalibrationArguments& arguments) {
    if (IsSameFile(arguments.ini, arguments.output))
        throw UsageError(arguments.output + ": the PDF would replace the settings");
    const bool isDl = SetStationeryFromType(arguments.type) == "DL";
    if (!isDl && !arguments.layout.empty())
        throw UsageError("tab type " + std::to_string(arguments.type) + " has no layouts to choose from");
    const std::string layout = !isDl ? "A4" : arguments.layout.empty() ? "DL_v" : arguments.layout;
    BatchProgram program;
    if (!arguments.ini.empty())
        program.UseSettings(arguments.ini);
    const FontconfigCatalogue catalogue;
    WriteOutput(arguments.output, [&](const auto& sink) {
        WriteCalibrationPdf(program.Settings(), catalogue, arguments.type, layout, sink);
    });
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
    document.OptType = static_cast<std::int16_t>(arguments.type);
    document.NoOfFields = static_cast<std::int16_t>(arguments.fields);
    SetLayoutFromType(document);
    SetRowsAndStationery(document, arguments.type);
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
            for (const TabFileProblem& problem : CheckTabFile(ReadInput(file))) {
                std::cout << file << ":" << problem.line << ": " << problem.text << '\n';
                clean = false;
            }
        } catch (const FileAccessError& error) {
            std::cerr << "velmora-batch: " << error.what() << '\n';
            clean = false;
        }
    }
    return clean ? kDone : kFailed;
}

} // namespace velmora
