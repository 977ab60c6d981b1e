#include "workbook/WorkbookParts.h"

#include "base/Text.h"

#include <algorithm>

namespace velmora {

bool SheetRow::Wants(int column) const {
    return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

void SheetRow::Put(int column, std::string_view text) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i] != column)
            continue;
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

} // namespace velmora
