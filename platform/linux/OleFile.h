// The OLE2 compound file, the container of .xls: a file system of sectors in one file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

bool IsOleFile(std::string_view bytes);

class OleFile {
public:
    /// Raises WorkbookError for a damaged container. The bytes must outlive it.
    explicit OleFile(std::string_view bytes);
    /// The bytes of a stream, whatever its folder; nothing where there is none. Raises WorkbookError.
    std::optional<std::string> Stream(std::string_view name) const;

private:
    struct Entry {
        std::string name;
        int type = 0;
        std::uint32_t start = 0;
        std::size_t size = 0;
    };
    std::string_view Sector(std::uint32_t number) const;
    void ReadAllocation();
    void ReadDirectory(std::uint32_t start);
    /// The sectors of a chain one behind the other, at most `most` bytes of them.
    std::string Chain(std::uint32_t start, std::size_t most) const;
    std::string MiniChain(const Entry& entry) const;

    std::string_view bytes_;
    std::size_t sectorSize_ = 512;
    std::vector<std::uint32_t> next_;
    std::string miniNext_;
    std::string miniStream_;
    std::vector<Entry> entries_;
};

/// A compound file with one stream.
std::string WriteOleFile(std::string_view name, std::string stream);

} // namespace velmora
