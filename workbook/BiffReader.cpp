#include "workbook/BiffReader.h"

#include "base/Encoding.h"
#include "workbook/BiffRecords.h"
#include "workbook/WorkbookParts.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::size_t kMostPieces = 1 << 16; // a tenth of it holds the longest table of texts

/// Half a pair of surrogates becomes the replacement character.
std::string Utf8Of(const std::u16string& units) {
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const std::uint32_t unit = units[i];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool low = unit >= 0xDC00 && unit < 0xE000;
        if (high && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000)
            AppendUtf8(text, 0x10000 + ((unit - 0xD800) << 10) + (units[++i] - 0xDC00u));
        else
            AppendUtf8(text, high || low ? 0xFFFD : unit);
    }
    return text;
}

} // namespace

bool RecordReader::Next(BiffRecord& record) {
    if (at_ + 4 > stream_.size())
        return false;
    record.id = static_cast<int>(LittleEndian(stream_, at_, 2));
    const std::size_t size = LittleEndian(stream_, at_ + 2, 2);
    if (stream_.size() - at_ - 4 < size)
        RaiseDamaged();
    record.data = stream_.substr(at_ + 4, size);
    at_ += 4 + size;
    return true;
}

std::vector<std::string_view> RecordReader::WithContinuations(const BiffRecord& record) {
    std::vector<std::string_view> pieces{record.data};
    for (BiffRecord next; at_ + 4 <= stream_.size() && LittleEndian(stream_, at_, 2) == biff::kContinue;) {
        Next(next);
        if (pieces.size() >= kMostPieces)
            RaiseDamaged();
        pieces.push_back(next.data);
    }
    return pieces;
}

bool StringReader::AtEnd() {
    Settle();
    return piece_ >= pieces_.size();
}

std::uint32_t StringReader::Number(int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i)
        value |= std::uint32_t{Byte()} << (8 * i);
    return value;
}

std::string StringReader::Text(int lengthBytes) {
    const std::uint32_t length = Number(lengthBytes);
    unsigned flags = Byte();
    const std::size_t runs = flags & 8 ? Number(2) : 0;
    const std::size_t extension = flags & 4 ? Number(4) : 0;
    std::u16string units;
    for (std::uint32_t i = 0; i < length; ++i) {
        // A continuation in the middle of the characters starts with flags of its own.
        if (at_ >= pieces_[piece_].size()) {
            Settle();
            flags = Byte();
        }
        units += static_cast<char16_t>(flags & 1 ? Number(2) : Byte());
    }
    Skip(4 * runs + extension);
    return Utf8Of(units);
}

/// On to a piece with bytes left.
void StringReader::Settle() {
    while (piece_ < pieces_.size() && at_ >= pieces_[piece_].size()) {
        ++piece_;
        at_ = 0;
    }
}

unsigned char StringReader::Byte() {
    Settle();
    if (piece_ >= pieces_.size())
        RaiseDamaged();
    return static_cast<unsigned char>(pieces_[piece_][at_++]);
}

void StringReader::Skip(std::size_t count) {
    for (Settle(); count > 0; Settle()) {
        if (piece_ >= pieces_.size())
            RaiseDamaged();
        const std::size_t step = std::min(count, pieces_[piece_].size() - at_);
        at_ += step;
        count -= step;
    }
}

} // namespace velmora
