#include "workspace/ForeignFile.h"

#include "base/AtomicFile.h"
#include "base/Text.h"
#include "document/TabFileCheck.h"
#include "workbook/ZipFile.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

/// The parts that are the same in all workbooks that the program writes: others' are told by them at once.
constexpr std::array kConstantParts = {"_rels/.rels", "xl/workbook.xml", "xl/theme/theme1.xml"};
/// The others, but for the one with the time. Any further part in a file would be named in these.
constexpr std::array kParts = {"[Content_Types].xml", "xl/_rels/workbook.xml.rels", "xl/styles.xml",
                               "xl/worksheets/sheet1.xml", "xl/sharedStrings.xml"};

/// True where neither has the part, too.
bool HaveSamePart(const ZipFile& written, const ZipFile& found, const std::string& name) {
    std::string part;
    if (!written.Has(name) || !found.Has(name))
        return written.Has(name) == found.Has(name);
    written.Read(name, [&](std::string_view piece) { return !part.append(piece).empty(); });
    std::string_view left = part;
    bool same = true;
    found.Read(name, [&](std::string_view piece) {
        same = left.starts_with(piece);
        left.remove_prefix(same ? piece.size() : 0);
        return same;
    });
    return same && left.empty();
}

template <typename Parts> bool HaveSameParts(const Parts& parts, const ZipFile& written, const ZipFile& found) {
    return std::all_of(parts.begin(), parts.end(),
                       [&](const char* name) { return HaveSamePart(written, found, name); });
}

std::string Written(const MainModule& main, WorkbookFormat format, const SheetRowSource& rows) {
    std::string bytes;
    main.spreadsheets.Write(format, "Tabs", rows, [&](std::string_view piece) { bytes += piece; });
    return bytes;
}

bool HoldsSame(const MainModule& main, WorkbookFormat format, std::string found) {
    if (format == WorkbookFormat::Xls)
        return Written(main, format, TabRows(main.document)) == found;
    const ZipFile parts(std::move(found));
    const ZipFile empty(Written(main, format, [](const auto&) { return false; }));
    return HaveSameParts(kConstantParts, empty, parts) &&
           HaveSameParts(kParts, ZipFile(Written(main, format, TabRows(main.document))), parts);
}

bool IsNothing(const LeftOut& leftOut) {
    return leftOut.sheets.empty() && leftOut.columns.empty() && !leftOut.further && !leftOut.heading &&
           !leftOut.hiddenRows && !leftOut.formulas;
}

/// "column D" or "columns D, E", the first ten of them; nothing for none.
void AddNamed(std::vector<std::string>& list, const std::string& what, const std::vector<std::string>& names) {
    constexpr std::size_t kNamed = 10;
    std::string text = what + (names.size() > 1 ? "s " : " ");
    for (std::size_t i = 0; i < std::min(names.size(), kNamed); ++i)
        text += (i == 0 ? "" : ", ") + names[i];
    if (names.size() > kNamed)
        text += ", ...";
    if (!names.empty())
        list.push_back(text);
}

/// "Column D, formulas and formats would be lost."; empty for nothing.
std::string LossOf(const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : i + 1 < parts.size() ? ", " : " and ") + parts[i];
    if (text.empty())
        return "";
    text[0] = ToUpper(text.substr(0, 1))[0];
    return text + " would be lost.";
}

std::vector<std::string> PartsOf(const LeftOut& leftOut) {
    std::vector<std::string> sheets;
    for (const std::string& name : leftOut.sheets)
        sheets.push_back("[" + name + "]");
    std::vector<std::string> columns;
    for (const int column : leftOut.columns)
        columns.push_back(ColumnLetters(column));
    std::vector<std::string> parts;
    AddNamed(parts, "worksheet", sheets);
    AddNamed(parts, "column", columns);
    for (const auto& [left, what] : {std::pair(leftOut.further, "further columns"),
                                     {leftOut.heading, "the heading"},
                                     {leftOut.hiddenRows, "hidden rows"},
                                     {leftOut.formulas, "formulas"}})
        if (left)
            parts.emplace_back(what);
    return parts;
}

std::vector<std::string> PartsOf(const TabFile& file) {
    std::vector<std::string> parts;
    if (file.header)
        parts.emplace_back("what a later version wrote");
    if (!OverfullLines(file).empty())
        parts.emplace_back("columns behind the third");
    return parts;
}

} // namespace

bool IsOwnWorkbook(const MainModule& main, const std::filesystem::path& path, const LeftOut& leftOut) {
    const auto format = WorkbookFormatOf(path);
    if (!format || !main.spreadsheets.CanWrite(*format) || !IsNothing(leftOut))
        return false;
    try {
        return HoldsSame(main, *format, ReadFile(path));
    } catch (const Error&) { // a text that no workbook holds, or a file that changed
        return false;
    }
}

std::string ForeignFindings(const Imported& imported, const std::filesystem::path& path) {
    const auto* file = std::get_if<TabFile>(&imported);
    if (file && file->header)
        return LossOf(PartsOf(*file));
    std::vector<std::string> parts = file ? PartsOf(*file) : PartsOf(std::get<Worksheet>(imported).leftOut);
    if (WorkbookFormatOf(path)) {
        parts.emplace_back("formats");
        return LossOf(parts);
    }
    const std::string lost = LossOf(parts);
    return lost + (lost.empty() ? "" : "\r\n") +
           "The list would become a tab file, with six lines of settings before the texts, commas between them and "
           "no quotation marks.";
}

} // namespace velmora
