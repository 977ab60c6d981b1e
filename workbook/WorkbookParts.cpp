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

bool SheetRow::Wants(int column) const {
    return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

void SheetRow::Put(int column, std::string_view text) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i] != column)
            continue;
        bytes_ += text.size();
        if (bytes_ > kMostPutBytes)
            RaiseTooLarge();
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

void RaiseNoResult(int row, int column) {
    std::string letters;
    for (int left = column; left > 0; left = (left - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (left - 1) % 26));
    throw WorkbookError("the formula in cell " + letters + std::to_string(row) +
                        " has no stored result: open the workbook in a spreadsheet program and save it");
}

void RaiseTooLarge() {
    throw WorkbookError("the workbook holds more than can be read");
}

} // namespace velmora
