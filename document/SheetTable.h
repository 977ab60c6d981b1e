// A worksheet's rows, read once for all that an import wants of them: its first cell, the preview, the tabs.
#pragma once

#include "document/Worksheet.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmora {

class SheetTable {
public:
    /// Rows are kept as long as they take no more bytes than `most`; what comes behind them is read again where it is
    /// needed. The reading ends where there are more rows than a document takes. `workbook` must outlive the table,
    /// `watch` is called for each row that is read. Raises WorkbookError.
    SheetTable(Workbook& workbook, std::string name, ReadingWatch watch, std::size_t most = kMostBytes);

    /// For the version tests.
    std::string FirstCell() const;
    /// The first rows with all columns up to kMostColumns, blank rows between them too. Hidden ones may be left
    /// out.
    std::vector<std::vector<std::string>> FirstRows(std::size_t most, bool visibleOnly) const;
    /// As far as the sheet was read, that are not blank.
    std::int32_t HiddenRows() const { return hiddenRows_; }
    /// Raises what the workbook and the builder raise.
    Worksheet Take(const WorksheetOptions& options) const;

private:
    static constexpr std::size_t kMostBytes = 48U << 20;

    void Read(const SheetRowSink& sink) const;
    void Keep(const SheetRow& row, std::size_t most);

    Workbook& workbook_;
    std::string name_;
    ReadingWatch watch_;
    std::vector<SheetRow> rows_; ///< without the empty texts at their ends
    std::size_t bytes_ = 0;
    bool whole_ = true; ///< all rows are kept
    std::int32_t hiddenRows_ = 0;
};

} // namespace velmora
