// A file for what is handed to another program and then thrown away.
#pragma once

#include <filesystem>
#include <string_view>

namespace velmora {

/// A new file in the system's temporary folder that only its owner may read; it is gone with this object. Every
/// operation raises FileAccessError.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string_view suffix);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(std::string_view bytes);
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
    int file_ = -1;
};

} // namespace velmora
