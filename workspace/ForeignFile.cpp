#include "workspace/ImportOwnWorkbook.h"

#include "base/AtomicFile.h"
#include "document/Worksheet.h"
#include "workbook/ZipFile.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

/// All parts that the program writes, but for the one with the time. Any other in a file would be named in these.
constexpr std::array kParts = {"[Content_Types].xml",        "_rels/.rels",         "xl/workbook.xml",
                               "xl/_rels/workbook.xml.rels", "xl/styles.xml",       "xl/theme/theme1.xml",
                               "xl/worksheets/sheet1.xml",   "xl/sharedStrings.xml"};

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

bool HoldsSame(WorkbookFormat format, const std::string& written, const std::string& found) {
    if (format == WorkbookFormat::Xls)
        return written == found;
    const ZipFile writtenParts(written);
    const ZipFile foundParts(found);
    return std::all_of(kParts.begin(), kParts.end(),
                       [&](const char* name) { return HaveSamePart(writtenParts, foundParts, name); });
}

} // namespace

bool IsOwnWorkbook(const MainModule& main, const std::filesystem::path& path) {
    const auto format = WorkbookFormatOf(path);
    if (!format || !main.spreadsheets.CanWrite(*format))
        return false;
    try {
        std::string written;
        main.spreadsheets.Write(*format, "Tabs", TabRows(main.document),
                                [&](std::string_view bytes) { written += bytes; });
        return HoldsSame(*format, written, ReadFile(path));
    } catch (const Error&) { // a text that no workbook holds, or a file that changed
        return false;
    }
}

} // namespace velmora
