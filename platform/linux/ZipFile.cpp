#include "platform/linux/ZipFile.h"

#include "base/Text.h"
#include "platform/linux/WorkbookParts.h"

#include <array>
#include <zlib.h>

namespace velmora {
namespace {

constexpr std::size_t kEndRecordBytes = 22;
constexpr std::size_t kEntryBytes = 46;
constexpr std::size_t kLocalHeaderBytes = 30;
constexpr int kStored = 0;
constexpr int kDeflated = 8;

/// zlib's state, freed whatever happens.
struct Inflater {
    explicit Inflater(std::string_view packed) {
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
        stream.avail_in = static_cast<uInt>(packed.size());
        if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
            throw WorkbookError("out of memory");
    }
    ~Inflater() { inflateEnd(&stream); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    z_stream stream{};
};

std::uint32_t Checksum(std::uint32_t before, std::string_view piece) {
    return static_cast<std::uint32_t>(
        crc32(before, reinterpret_cast<const Bytef*>(piece.data()), static_cast<uInt>(piece.size())));
}

/// Unpacks in pieces; false when the sink ended it.
bool Inflate(std::string_view packed, const std::function<bool(std::string_view)>& sink) {
    Inflater inflater(packed);
    std::array<char, 65536> piece{};
    for (int state = Z_OK; state != Z_STREAM_END;) {
        inflater.stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        inflater.stream.avail_out = static_cast<uInt>(piece.size());
        state = inflate(&inflater.stream, Z_NO_FLUSH);
        const std::size_t got = piece.size() - inflater.stream.avail_out;
        if ((state != Z_OK && state != Z_STREAM_END) || (state == Z_OK && got == 0))
            RaiseDamaged();
        if (got > 0 && !sink({piece.data(), got}))
            return false;
    }
    return true;
}

} // namespace

ZipFile::ZipFile(std::string bytes) : bytes_(std::move(bytes)) {
    ReadDirectory();
    std::size_t total = 0;
    for (const auto& [name, entry] : entries_)
        if (EndsWithNoCase(name, ".xml") || EndsWithNoCase(name, ".rels"))
            total += entry.size;
    if (total > kMostWorkbookBytes)
        throw WorkbookError("the workbook unpacks to more than 256 MB");
}

void ZipFile::ReadDirectory() {
    const std::size_t end = bytes_.rfind("PK\x05\x06");
    if (end == std::string::npos || bytes_.size() - end < kEndRecordBytes)
        throw WorkbookError("the file is no workbook, or its end is missing");
    const std::uint64_t count = LittleEndian(bytes_, end + 10, 2);
    std::size_t at = LittleEndian(bytes_, end + 16, 4);
    for (std::uint64_t i = 0; i < count; ++i) {
        if (LittleEndian(bytes_, at, 4) != 0x02014b50)
            RaiseDamaged();
        Entry entry;
        entry.encrypted = (LittleEndian(bytes_, at + 8, 2) & 1) != 0;
        entry.method = static_cast<int>(LittleEndian(bytes_, at + 10, 2));
        entry.checksum = static_cast<std::uint32_t>(LittleEndian(bytes_, at + 16, 4));
        entry.packed = LittleEndian(bytes_, at + 20, 4);
        entry.size = LittleEndian(bytes_, at + 24, 4);
        entry.at = LittleEndian(bytes_, at + 42, 4);
        const std::size_t nameBytes = LittleEndian(bytes_, at + 28, 2);
        const std::size_t others = LittleEndian(bytes_, at + 30, 2) + LittleEndian(bytes_, at + 32, 2);
        if (bytes_.size() - at < kEntryBytes + nameBytes)
            RaiseDamaged();
        entries_[bytes_.substr(at + kEntryBytes, nameBytes)] = entry;
        at += kEntryBytes + nameBytes + others;
    }
}

std::string_view ZipFile::Packed(const Entry& entry) const {
    if (LittleEndian(bytes_, entry.at, 4) != 0x04034b50)
        RaiseDamaged();
    const std::size_t from =
        entry.at + kLocalHeaderBytes + LittleEndian(bytes_, entry.at + 26, 2) + LittleEndian(bytes_, entry.at + 28, 2);
    if (from > bytes_.size() || bytes_.size() - from < entry.packed)
        RaiseDamaged();
    return std::string_view(bytes_).substr(from, entry.packed);
}

void ZipFile::Read(const std::string& name, const std::function<bool(std::string_view)>& sink) const {
    const auto found = entries_.find(name);
    if (found == entries_.end())
        throw WorkbookError("the workbook has no part " + name);
    const Entry& entry = found->second;
    if (entry.encrypted)
        throw WorkbookError("the workbook is protected by a password");
    std::size_t size = 0;
    std::uint32_t checksum = 0;
    const auto counted = [&](std::string_view piece) {
        size += piece.size();
        if (size > entry.size)
            RaiseDamaged();
        checksum = Checksum(checksum, piece);
        return sink(piece);
    };
    if (entry.method != kStored && entry.method != kDeflated)
        RaiseDamaged();
    const bool whole = entry.method == kDeflated ? Inflate(Packed(entry), counted) : counted(Packed(entry));
    if (whole && (size != entry.size || checksum != entry.checksum))
        RaiseDamaged();
}

} // namespace velmora
