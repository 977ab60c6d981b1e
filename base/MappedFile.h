// A file's bytes without reading it: only the pages that are looked at take memory.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace velmora {

class MappedFile {
public:
    /// Empty where the file cannot be mapped.
    explicit MappedFile(const std::filesystem::path& path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::string_view Bytes() const { return bytes_; }

private:
    std::string_view bytes_;
};

} // namespace velmora
