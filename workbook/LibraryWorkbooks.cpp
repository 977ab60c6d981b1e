#include "workbook/LibraryWorkbooks.h"

#include "base/AtomicFile.h"
#include "workbook/OleFile.h"
#include "workbook/WorkbookFormats.h"
#include "workbook/WorkbookParts.h"

namespace velmora {

bool LibraryWorkbooks::CanRead(WorkbookFormat) const {
    return true;
}

bool LibraryWorkbooks::CanWrite(WorkbookFormat format) const {
    return format != WorkbookFormat::Ods;
}

std::unique_ptr<Workbook> LibraryWorkbooks::Open(const std::filesystem::path& path) {
    if (const auto stamp = StampOf(path); stamp && stamp->size > kMostWorkbookBytes)
        throw WorkbookError("the file is larger than 256 MB");
    std::string bytes = ReadFile(path, kMostWorkbookBytes);
    if (IsOleFile(bytes))
        return OpenXls(std::move(bytes));
    if (!bytes.starts_with("PK"))
        throw WorkbookError("the file is no workbook");
    ZipFile zip(std::move(bytes));
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
