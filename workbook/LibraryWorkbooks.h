// Workbooks without a spreadsheet application: the containers are libzip's and libgsf's work, XML is expat's, .xlsx is
// written by libxlsxwriter; the records of .xls and the cells of all formats are taken apart here. So hidden sheets,
// number formats and formula results are known in every format.
#pragma once

#include "workbook/SpreadsheetApplication.h"

namespace velmora {

class LibraryWorkbooks : public SpreadsheetApplication {
public:
    bool CanRead(WorkbookFormat format) const override;
    bool CanWrite(WorkbookFormat format) const override;
    std::unique_ptr<Workbook> Open(const std::filesystem::path& path, const ReadingWatch& watch) override;
    void Write(WorkbookFormat format, const std::string& sheetName, const SheetRowSource& rows,
               const std::function<void(std::string_view)>& sink) override;
};

} // namespace velmora
