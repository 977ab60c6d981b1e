#include "workbook/WorkbookParts.h"

#include "base/Text.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::size_t kMostKeptBytes = 64u << 20;
constexpr std::size_t kCostOfEntry = 16; ///< what keeping a text takes besides its bytes, at least
constexpr std::size_t kMostPutBytes = 256u << 20;
constexpr std::size_t kMostCellBytes = 4 * kMostCellCharacters;

} // namespace

void KeptBytes::Add(std::string_view text) {
    bytes_ += text.size() + kCostOfEntry;
    if (bytes_ > kMostKeptBytes)
        RaiseTooLarge();
}

void TextTable::Add(std::string_view text) {
    kept_.Add(text);
    texts_ += text;
    ends_.push_back(texts_.size());
}

std::string_view TextTable::At(std::size_t index) const {
    if (index >= ends_.size())
        RaiseDamaged();
    const std::size_t from = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(texts_).substr(from, ends_[index] - from);
}

void AppendToCell(std::string& cell, std::string_view text) {
    if (cell.size() + text.size() > kMostCellBytes)
        throw WorkbookError("a cell holds more than " + std::to_string(kMostCellCharacters) + " characters");
    cell += text;
}

RowCollector::RowCollector(const std::vector<int>& columns, const SheetRowSink& sink) : sink_(sink) {
    row_.texts.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto column = static_cast<std::size_t>(columns[i]);
        places_.resize(std::max(places_.size(), column + 1));
        places_[column] = i + 1;
    }
}

void RowCollector::Put(int column, std::string_view text) {
    const std::size_t place = PlaceOf(column);
    bytes_ += place != 0 ? text.size() : 0;
    if (bytes_ > kMostPutBytes)
        RaiseTooLarge();
    std::string put = place != 0 ? std::string(Trim(OneLine(text))) : "";
    if (put.empty())
        return;
    row_.texts[place - 1] = std::move(put);
    used_ = std::max(used_, place);
}

void RowCollector::PutFormula(int column, bool missing) {
    if (!Wants(column))
        return;
    row_.formulas = true;
    if (missing)
        row_.unresolved.push_back(column);
}

bool RowCollector::Flush(std::int32_t number, bool hidden) {
    row_.number = number;
    row_.hidden = hidden;
    const bool more = (used_ == 0 && row_.unresolved.empty() && !row_.further) || sink_(row_);
    for (; used_ > 0; --used_)
        row_.texts[used_ - 1].clear();
    row_.unresolved.clear();
    row_.formulas = row_.further = false;
    row_.hiddenAbove += hidden ? 1 : 0;
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

void RaiseTooLarge() {
    throw WorkbookError("the workbook holds more than can be read");
}

} // namespace velmora
