// The workbook formats: what opens and what writes each of them.
#pragma once

#include "workbook/SpreadsheetApplication.h"
#include "workbook/ZipFile.h"

namespace velmora {

std::unique_ptr<Workbook> OpenXlsx(ZipFile zip);
std::unique_ptr<Workbook> OpenOds(ZipFile zip);
std::unique_ptr<Workbook> OpenXls(std::string bytes, ReadingWatch watch);
std::string WriteXls(const std::string& sheetName, const SheetRowSource& rows);
std::string WriteXlsx(const std::string& sheetName, const SheetRowSource& rows);

} // namespace velmora
