// What the readers and writers of the workbook formats share.
#pragma once

#include "workbook/SpreadsheetApplication.h"

namespace velmora {

/// Most bytes of a workbook file, and of the XML parts in one once they are unpacked.
inline constexpr std::size_t kMostWorkbookBytes = 256u << 20;
/// Most characters in a cell.
inline constexpr std::size_t kMostCellCharacters = 32767;
/// Most rows of the longest sheets.
inline constexpr int kMostSheetRows = 1 << 20;

/// Counts what is kept of a file, so that a small one cannot grow without end.
class KeptBytes {
public:
    /// A text with what it costs to keep it. Raises WorkbookError above 64 MB in all.
    void Add(std::string_view text);

private:
    std::size_t bytes_ = 0;
};

/// Many texts, kept end to end: an empty one costs a few bytes.
class TextTable {
public:
    /// Raises WorkbookError above 64 MB in all.
    void Add(std::string_view text);
    std::size_t Size() const { return ends_.size(); }
    /// The text with this number, from 0; raises WorkbookError where there is none.
    std::string_view At(std::size_t index) const;

private:
    KeptBytes kept_;
    std::string texts_;
    std::vector<std::size_t> ends_;
};

/// Adds to a cell's text; raises WorkbookError where it grows longer than a cell may be.
void AppendToCell(std::string& cell, std::string_view text);

/// The texts of one row on their way to the sink.
class RowCollector {
public:
    RowCollector(const std::vector<int>& columns, const SheetRowSink& sink);
    bool Wants(int column) const { return PlaceOf(column) != 0; }
    /// Keeps the text, on one line and trimmed, if its column (from 1) was asked for. Raises WorkbookError for more
    /// text in a sheet than any document holds.
    void Put(int column, std::string_view text);
    /// There is a text in this column, of which no more is wanted.
    void Note(int column) { row_.further = row_.further || column >= static_cast<int>(places_.size()); }
    /// The column's text comes from a formula, and is `missing` where no result was stored.
    void PutFormula(int column, bool missing);
    /// Hands the row on unless it is blank, and starts an empty one. False when the sink wants no more.
    bool Flush(std::int32_t number, bool hidden);
    /// Counts rows that are blank and hidden.
    void PassHidden(std::int32_t count) { row_.hiddenAbove += count; }

private:
    /// From 1; 0 for a column that nobody asked for.
    std::size_t PlaceOf(int column) const {
        const auto index = static_cast<std::size_t>(column);
        return column >= 0 && index < places_.size() ? places_[index] : 0;
    }

    std::vector<std::size_t> places_; ///< by column
    const SheetRowSink& sink_;
    SheetRow row_;
    std::size_t bytes_ = 0; ///< of all rows
    std::size_t used_ = 0;  ///< places from the first to the last with a text
};

/// A little-endian number of 1 to 8 bytes; raises WorkbookError beyond the end.
std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, int count);
void AppendLittleEndian(std::string& bytes, std::uint64_t value, int count);
[[noreturn]] void RaiseDamaged();
[[noreturn]] void RaiseTooLarge();

} // namespace velmora
