#include "workbook/LibraryWorkbooks.h"

#include "base/AtomicFile.h"
#include "base/Encoding.h"
#include "base/Text.h"
#include "workbook/OleFile.h"
#include "workbook/WorkbookFormats.h"
#include "workbook/WorkbookParts.h"

namespace velmora {

namespace {

/// What a person may have before them under the name of a workbook.
[[noreturn]] void RaiseNoWorkbook(std::string_view bytes) {
    const std::string_view start = Trim(bytes.substr(0, bytes.find_first_of("\r\n")));
    if (start.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0).starts_with('<'))
        throw WorkbookError(
            "the file is no workbook but a web page or XML: open it in a spreadsheet program and save it "
            "as a workbook");
    if (!bytes.empty() && (bytes.starts_with(kUtf16Mark) || bytes.find('\0') == std::string_view::npos))
        throw WorkbookError("the file is no workbook but a text: give it a name that ends in .csv or .txt");
    throw WorkbookError("the file is no workbook");
}

} // namespace

bool LibraryWorkbooks::CanRead(WorkbookFormat) const {
    return true;
}

bool LibraryWorkbooks::CanWrite(WorkbookFormat format) const {
    return format == WorkbookFormat::Xls || format == WorkbookFormat::Xlsx;
}

std::unique_ptr<Workbook> LibraryWorkbooks::Open(const std::filesystem::path& path, const ReadingWatch& watch) {
    if (const auto stamp = StampOf(path); stamp && stamp->size > kMostWorkbookBytes)
        throw WorkbookError("the file is larger than 256 MB");
    std::string bytes = ReadFile(path, kMostWorkbookBytes);
    if (IsOleFile(bytes))
        return OpenXls(std::move(bytes), watch);
    if (!bytes.starts_with("PK"))
        RaiseNoWorkbook(bytes);
    ZipFile zip(std::move(bytes), watch);
    if (zip.Has("[Content_Types].xml"))
        return OpenXlsx(std::move(zip));
    if (zip.Has("content.xml"))
        return OpenOds(std::move(zip));
    throw WorkbookError("the file is no workbook");
}

void LibraryWorkbooks::Write(WorkbookFormat format, const std::string& sheetName, const SheetRowSource& rows,
                             const std::function<void(std::string_view)>& sink) {
    if (!CanWrite(format))
        throw WorkbookError("workbooks of this format cannot be written");
    sink(format == WorkbookFormat::Xls ? WriteXls(sheetName, rows) : WriteXlsx(sheetName, rows));
}

} // namespace velmora
