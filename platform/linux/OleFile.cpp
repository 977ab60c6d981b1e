#include "platform/linux/OleFile.h"

#include "base/Text.h"
#include "platform/linux/WorkbookParts.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::string_view kMagic("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
constexpr std::uint32_t kLastSector = 0xFFFFFFFA; ///< higher numbers are marks
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kAllocationSector = 0xFFFFFFFD;
constexpr std::uint32_t kListSector = 0xFFFFFFFC;
constexpr std::size_t kListInHeader = 109;
constexpr std::size_t kMiniLimit = 4096;
constexpr std::size_t kMiniSector = 64;
constexpr std::size_t kEntryBytes = 128;
constexpr std::size_t kSector = 512;

std::uint32_t Long(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint32_t>(LittleEndian(bytes, at, 4));
}

/// The ASCII of a name in UTF-16, which is all that names here need.
std::string EntryName(std::string_view entry) {
    std::string name;
    for (std::size_t at = 0; at < kMiniSector && LittleEndian(entry, at, 2) != 0; at += 2)
        name += LittleEndian(entry, at, 2) < 0x80 ? entry[at] : '?';
    return name;
}

} // namespace

bool IsOleFile(std::string_view bytes) {
    return bytes.starts_with(kMagic);
}

OleFile::OleFile(std::string_view bytes) : bytes_(bytes) {
    const std::uint64_t power = LittleEndian(bytes_, 30, 2);
    if (!IsOleFile(bytes_) || (power != 9 && power != 12))
        RaiseDamaged();
    sectorSize_ = std::size_t{1} << power;
    ReadAllocation();
    ReadDirectory(Long(bytes_, 48));
    miniNext_ = Chain(Long(bytes_, 60), bytes_.size());
}

std::string_view OleFile::Sector(std::uint32_t number) const {
    const std::size_t at = (std::size_t{number} + 1) * sectorSize_;
    if (at >= bytes_.size())
        RaiseDamaged();
    return bytes_.substr(at, sectorSize_); // the last one may be cut
}

void OleFile::ReadAllocation() {
    const std::size_t most = bytes_.size() / sectorSize_;
    const auto read = [&](std::uint32_t number) {
        if (number >= kLastSector)
            return;
        const std::string_view sector = Sector(number);
        for (std::size_t at = 0; at + 4 <= sector.size() && next_.size() <= most; at += 4)
            next_.push_back(Long(sector, at));
    };
    for (std::size_t i = 0; i < kListInHeader; ++i)
        read(Long(bytes_, 76 + 4 * i));
    std::uint32_t list = Long(bytes_, 68);
    for (std::size_t seen = 0; list < kLastSector; ++seen) {
        if (seen > most)
            RaiseDamaged();
        const std::string_view sector = Sector(list);
        for (std::size_t at = 0; at + 4 < sectorSize_; at += 4)
            read(Long(sector, at));
        list = Long(sector, sectorSize_ - 4);
    }
}

std::string OleFile::Chain(std::uint32_t start, std::size_t most) const {
    std::string bytes;
    std::size_t seen = 0;
    for (std::uint32_t sector = start; sector < kLastSector && bytes.size() < most; sector = next_[sector]) {
        if (++seen > next_.size() || sector >= next_.size())
            RaiseDamaged();
        bytes += Sector(sector);
    }
    if (bytes.size() > most)
        bytes.resize(most);
    return bytes;
}

void OleFile::ReadDirectory(std::uint32_t start) {
    const std::string directory = Chain(start, bytes_.size());
    for (std::size_t at = 0; at + kEntryBytes <= directory.size(); at += kEntryBytes) {
        const std::string_view bytes = std::string_view(directory).substr(at, kEntryBytes);
        entries_.push_back(
            {EntryName(bytes), static_cast<int>(LittleEndian(bytes, 66, 1)), Long(bytes, 116), Long(bytes, 120)});
    }
    if (entries_.empty())
        RaiseDamaged();
    miniStream_ = Chain(entries_[0].start, std::min(entries_[0].size, bytes_.size()));
}

std::string OleFile::MiniChain(const Entry& entry) const {
    std::string bytes;
    std::size_t seen = 0;
    for (std::uint32_t sector = entry.start; sector < kLastSector && bytes.size() < entry.size;
         sector = Long(miniNext_, 4 * std::size_t{sector})) {
        if (++seen > miniNext_.size() || kMiniSector * sector >= miniStream_.size())
            RaiseDamaged();
        bytes += miniStream_.substr(kMiniSector * sector, kMiniSector);
    }
    bytes.resize(std::min(bytes.size(), entry.size));
    return bytes;
}

std::optional<std::string> OleFile::Stream(std::string_view name) const {
    constexpr int kStream = 2;
    for (const Entry& entry : entries_)
        if (entry.type == kStream && EqualsNoCase(entry.name, name))
            return entry.size < kMiniLimit ? MiniChain(entry) : Chain(entry.start, entry.size);
    return std::nullopt;
}

namespace {

void AppendEntry(std::string& bytes, std::string_view name, int type, std::uint32_t child, std::uint32_t start,
                 std::size_t size) {
    const std::size_t from = bytes.size();
    for (const char letter : name)
        AppendLittleEndian(bytes, static_cast<unsigned char>(letter), 2);
    bytes.resize(from + 64);
    AppendLittleEndian(bytes, name.empty() ? 0 : 2 * name.size() + 2, 2);
    AppendLittleEndian(bytes, static_cast<std::uint64_t>(type), 1);
    AppendLittleEndian(bytes, 1, 1); // black, in the red-black tree of names
    AppendLittleEndian(bytes, kFree, 4);
    AppendLittleEndian(bytes, kFree, 4);
    AppendLittleEndian(bytes, child, 4);
    bytes.resize(from + 116);
    AppendLittleEndian(bytes, start, 4);
    AppendLittleEndian(bytes, size, 4);
    bytes.resize(from + kEntryBytes);
}

/// Where everything lies: the stream, one sector of directory, the allocation table, the list of its sectors.
struct Layout {
    explicit Layout(std::size_t streamBytes) : stream(streamBytes / kSector) {
        constexpr std::size_t kPerSector = kSector / 4;
        for (bool grown = true; grown;) {
            const std::size_t needed = (stream + 1 + tables + lists + kPerSector - 1) / kPerSector;
            const std::size_t listed = needed > kListInHeader ? needed - kListInHeader : 0;
            const std::size_t neededLists = (listed + kPerSector - 2) / (kPerSector - 1);
            grown = needed != tables || neededLists != lists;
            tables = needed;
            lists = neededLists;
        }
    }
    std::size_t stream;
    std::size_t tables = 0;
    std::size_t lists = 0;

    std::size_t FirstTable() const { return stream + 1; }
    std::size_t FirstList() const { return stream + 1 + tables; }
    /// The sector of table `index`, or a free mark behind the last.
    std::uint64_t Table(std::size_t index) const { return index < tables ? FirstTable() + index : kFree; }
};

std::string OleHeader(const Layout& layout) {
    std::string bytes(kMagic);
    bytes.resize(24); // no class
    for (const int field : {0x3E, 3, 0xFFFE, 9, 6})
        AppendLittleEndian(bytes, static_cast<std::uint64_t>(field), 2); // versions, byte order, sizes of sectors
    bytes.resize(44);
    AppendLittleEndian(bytes, layout.tables, 4);
    AppendLittleEndian(bytes, layout.stream, 4); // the directory
    AppendLittleEndian(bytes, 0, 4);
    AppendLittleEndian(bytes, kMiniLimit, 4);
    AppendLittleEndian(bytes, kEndOfChain, 4);
    AppendLittleEndian(bytes, 0, 4);
    AppendLittleEndian(bytes, layout.lists > 0 ? layout.FirstList() : kEndOfChain, 4);
    AppendLittleEndian(bytes, layout.lists, 4);
    for (std::size_t i = 0; i < kListInHeader; ++i)
        AppendLittleEndian(bytes, layout.Table(i), 4);
    return bytes;
}

void AppendTables(std::string& bytes, const Layout& layout) {
    const std::size_t end = bytes.size() + layout.tables * kSector;
    for (std::size_t i = 1; i < layout.stream; ++i)
        AppendLittleEndian(bytes, i, 4);
    AppendLittleEndian(bytes, kEndOfChain, 4);
    AppendLittleEndian(bytes, kEndOfChain, 4); // the directory
    for (std::size_t i = 0; i < layout.tables; ++i)
        AppendLittleEndian(bytes, kAllocationSector, 4);
    for (std::size_t i = 0; i < layout.lists; ++i)
        AppendLittleEndian(bytes, kListSector, 4);
    bytes.resize(end, '\xFF');
}

void AppendLists(std::string& bytes, const Layout& layout) {
    std::size_t table = kListInHeader;
    for (std::size_t list = 1; list <= layout.lists; ++list) {
        for (std::size_t i = 0; i + 1 < kSector / 4; ++i)
            AppendLittleEndian(bytes, layout.Table(table++), 4);
        AppendLittleEndian(bytes, list < layout.lists ? layout.FirstList() + list : kEndOfChain, 4);
    }
}

} // namespace

std::string WriteOleFile(std::string_view name, std::string stream) {
    // Shorter streams would go into sectors of their own kind.
    stream.resize(std::max(kMiniLimit, (stream.size() + kSector - 1) / kSector * kSector));
    const Layout layout(stream.size());
    std::string bytes = OleHeader(layout);
    bytes += stream;
    AppendEntry(bytes, "Root Entry", 5, 1, kEndOfChain, 0);
    AppendEntry(bytes, name, 2, kFree, 0, stream.size());
    AppendEntry(bytes, "", 0, kFree, 0, 0);
    AppendEntry(bytes, "", 0, kFree, 0, 0);
    AppendTables(bytes, layout);
    AppendLists(bytes, layout);
    return bytes;
}

} // namespace velmora
