#include "workbook/LibraryWorkbooks.h"

#include "base/AtomicFile.h"
#include "base/Text.h"
#include "workbook/OleFile.h"
#include "workbook/WorkbookParts.h"

#include <algorithm>

namespace velmora {

bool SheetRow::Wants(int column) const {
    return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

void SheetRow::Put(int column, std::string_view text) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i] != column)
            continue;
        texts_[i] = Trim(OneLine(text));
        filled_ = filled_ || !texts_[i].empty();
    }
}

bool SheetRow::Flush(std::int32_t row) {
    if (!filled_)
        return true;
    const bool more = sink_(row, texts_);
    std::fill(texts_.begin(), texts_.end(), std::string());
    filled_ = false;
    return more;
}

std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, int count) {
    const auto size = static_cast<std::size_t>(count);
    if (at > bytes.size() || bytes.size() - at < size)
        RaiseDamaged();
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

void AppendLittleEndian(std::string& bytes, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

void RaiseDamaged() {
    throw WorkbookError("the workbook is damaged");
}

bool LibraryWorkbooks::CanRead(WorkbookFormat) const {
    return true;
}

bool LibraryWorkbooks::CanWrite(WorkbookFormat format) const {
    return format != WorkbookFormat::Ods;
}

std::unique_ptr<Workbook> LibraryWorkbooks::Open(const std::filesystem::path& path) {
    std::string bytes = ReadFile(path, kMostWorkbookBytes + 1);
    if (bytes.size() > kMostWorkbookBytes)
        throw WorkbookError("the file is larger than 256 MB");
    if (IsOleFile(bytes))
        return OpenXls(bytes);
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
