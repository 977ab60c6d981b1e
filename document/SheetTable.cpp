#include "document/SheetTable.h"

#include <algorithm>
#include <numeric>

namespace velmora {
namespace {

/// Without the empty texts at its end.
SheetRow Shortened(const SheetRow& row) {
    const auto filled =
        std::find_if(row.texts.rbegin(), row.texts.rend(), [](const auto& text) { return !text.empty(); });
    SheetRow kept = {row.number, {row.texts.begin(), filled.base()}, row.unresolved};
    kept.formulas = row.formulas;
    kept.further = row.further;
    kept.hidden = row.hidden;
    kept.hiddenAbove = row.hiddenAbove;
    return kept;
}

std::size_t BytesOf(const SheetRow& row) {
    std::size_t bytes = sizeof(SheetRow) + row.texts.size() * sizeof(std::string);
    for (const std::string& text : row.texts)
        bytes += text.size();
    return bytes;
}

} // namespace

SheetTable::SheetTable(Workbook& workbook, std::string name, ReadingWatch watch, std::size_t most)
    : workbook_(workbook), name_(std::move(name)), watch_(std::move(watch)) {
    Read([&](const SheetRow& row) {
        hiddenRows_ += row.hidden ? 1 : 0;
        if (whole_)
            Keep(row, most);
        return row.number - row.hiddenAbove <= kMostTabs + kHeaderLines; // else no choice makes a document of it
    });
}

void SheetTable::Read(const SheetRowSink& sink) const {
    std::vector<int> columns(kMostColumns);
    std::iota(columns.begin(), columns.end(), 1);
    workbook_.ReadSheet(name_, columns, [&](const SheetRow& row) {
        watch_();
        return sink(row);
    });
}

void SheetTable::Keep(const SheetRow& row, std::size_t most) {
    SheetRow kept = Shortened(row);
    bytes_ += BytesOf(kept);
    whole_ = bytes_ <= most;
    if (whole_)
        rows_.push_back(std::move(kept));
}

std::string SheetTable::FirstCell() const {
    return rows_.empty() || rows_[0].number != 1 || rows_[0].texts.empty() ? "" : rows_[0].texts[0];
}

std::vector<std::vector<std::string>> SheetTable::FirstRows(std::size_t most, bool visibleOnly) const {
    std::vector<std::vector<std::string>> rows;
    for (const SheetRow& row : rows_) {
        const auto number = static_cast<std::size_t>(row.number - (visibleOnly ? row.hiddenAbove : 0));
        if (visibleOnly && row.hidden)
            continue;
        if (number > most)
            break;
        rows.resize(number);
        rows.back() = row.texts;
    }
    return rows;
}

Worksheet SheetTable::Take(const WorksheetOptions& options) const {
    WorksheetBuilder builder(options);
    if (!whole_)
        Read([&](const SheetRow& row) { return builder.Add(row); });
    for (auto row = rows_.begin(); whole_ && row != rows_.end() && builder.Add(*row);)
        ++row;
    return builder.Take();
}

} // namespace velmora
