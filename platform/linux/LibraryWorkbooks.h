// Workbooks without a spreadsheet application: OLE2 and zip containers taken apart here, XML by expat, .xlsx written by
// libxlsxwriter. Without one of these libraries the formats that need it can be neither read nor written.
#pragma once

#include "platform/SpreadsheetApplication.h"

namespace velmora {

class LibraryWorkbooks : public SpreadsheetApplication {
public:
    bool CanRead(WorkbookFormat format) const override;
    bool CanWrite(WorkbookFormat format) const override;
    std::unique_ptr<Workbook> Open(const std::filesystem::path& path) override;
    void Write(WorkbookFormat format, const std::string& sheetName, const SheetRowSource& rows,
               const std::function<void(std::string_view)>& sink) override;
};

} // namespace velmora
