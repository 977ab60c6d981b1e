// .xlsx by libxlsxwriter, row by row through temporary files of its own.
#include "base/AtomicFile.h"
#include "base/LateLibrary.h"
#include "base/Paths.h"
#include "base/TemporaryFile.h"
#include "base/Text.h"
#include "workbook/WorkbookFormats.h"

#include <algorithm>
#include <xlsxwriter.h>

namespace velmora {
namespace {

const LateLibrary& XlsxLibrary() {
    static const LateLibrary library(VELMORA_XLSX);
    return library;
}

#define XLSX_CALL(function) VELMORA_LATE(XlsxLibrary(), function)

void Check(lxw_error error) {
    if (error != LXW_NO_ERROR)
        throw WorkbookError(XLSX_CALL(lxw_strerror)(error));
}

/// With blanks for the characters that XML does not allow, which would make the file one that nothing opens.
std::string XmlText(std::string text) {
    constexpr std::string_view kNoCharacter = "\xEF\xBF"; // U+FFFE and U+FFFF start so
    for (std::size_t at = text.find(kNoCharacter); at != std::string::npos; at = text.find(kNoCharacter, at + 1))
        if (at + 2 < text.size() && static_cast<unsigned char>(text[at + 2]) >= 0xBE)
            text.replace(at, 3, " ");
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\r' && c != '\n'; }, ' ');
    return text;
}

void WriteRows(lxw_worksheet* sheet, lxw_format* text, const SheetRowSource& rows) {
    const auto writeString = XLSX_CALL(worksheet_write_string);
    lxw_row_t number = 0;
    for (std::vector<std::string> row; rows(row); ++number) {
        if (number == LXW_ROW_MAX)
            throw WorkbookError("a worksheet of this format holds at most 1048576 rows");
        for (std::size_t column = 0; column < row.size(); ++column)
            if (!row[column].empty())
                Check(writeString(sheet, number, static_cast<lxw_col_t>(column), XmlText(row[column]).c_str(), text));
    }
}

} // namespace

std::string WriteXlsx(const std::string& sheetName, const SheetRowSource& rows) {
    const ScratchFolder folder;
    const std::filesystem::path file = folder.Path() / "workbook.xlsx";
    lxw_workbook_options options{LXW_TRUE, nullptr, LXW_FALSE};
    lxw_workbook* workbook = XLSX_CALL(workbook_new_opt)(PathText(file).c_str(), &options);
    if (!workbook)
        throw WorkbookError("out of memory");
    std::exception_ptr failure;
    try {
        lxw_worksheet* sheet = XLSX_CALL(workbook_add_worksheet)(workbook, sheetName.c_str());
        if (!sheet)
            throw WorkbookError("[" + sheetName + "] cannot be the name of a worksheet");
        lxw_format* text = XLSX_CALL(workbook_add_format)(workbook);
        XLSX_CALL(format_set_num_format_index)(text, 49); // "@"
        WriteRows(sheet, text, rows);
    } catch (...) {
        failure = std::current_exception();
    }
    const lxw_error closed = XLSX_CALL(workbook_close)(workbook); // frees it too
    if (failure)
        std::rethrow_exception(failure);
    Check(closed);
    return ReadFile(file);
}

} // namespace velmora
