// What the readers and writers of the workbook formats share.
#pragma once

#include "workbook/SpreadsheetApplication.h"

namespace velmora {

/// Most bytes of a workbook file, and of the XML parts in one once they are unpacked.
inline constexpr std::size_t kMostWorkbookBytes = 256u << 20;
/// Most characters in a cell.
inline constexpr std::size_t kMostCellCharacters = 32767;

/// The texts of one row on their way to the sink.
class SheetRow {
public:
    SheetRow(const std::vector<int>& columns, const SheetRowSink& sink)
        : columns_(columns), sink_(sink), texts_(columns.size()) {}
    bool Wants(int column) const;
    /// Keeps the text, on one line and trimmed, if its column (from 1) was asked for.
    void Put(int column, std::string_view text);
    /// Hands the row on unless it is blank, and starts an empty one. False when the sink wants no more.
    bool Flush(std::int32_t row);

private:
    const std::vector<int>& columns_;
    const SheetRowSink& sink_;
    std::vector<std::string> texts_;
    bool filled_ = false;
};

/// A little-endian number of 1 to 8 bytes; raises WorkbookError beyond the end.
std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, int count);
void AppendLittleEndian(std::string& bytes, std::uint64_t value, int count);
[[noreturn]] void RaiseDamaged();

} // namespace velmora
