// The parts of a zip file, unpacked piece by piece. Sizes are those of the directory; a part that unpacks to more is
// damaged, so no part costs more than the directory said beforehand.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace velmora {

class ZipFile {
public:
    /// Raises WorkbookError for what is no zip file, and for XML parts of more than kMostWorkbookBytes in all.
    explicit ZipFile(std::string bytes);

    bool Has(const std::string& name) const { return entries_.contains(name); }
    /// Hands the part on in pieces until the sink returns false. Raises WorkbookError for a missing, damaged or
    /// encrypted part.
    void Read(const std::string& name, const std::function<bool(std::string_view piece)>& sink) const;

private:
    struct Entry {
        std::size_t at = 0; ///< of the local header
        std::size_t packed = 0;
        std::size_t size = 0;
        std::uint32_t checksum = 0;
        int method = 0;
        bool encrypted = false;
    };
    void ReadDirectory();
    std::string_view Packed(const Entry& entry) const;

    std::string bytes_;
    std::map<std::string, Entry> entries_;
};

} // namespace velmora
