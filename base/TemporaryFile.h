// Files for what is handed to another program or a library and then thrown away.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace velmora {

class ScratchName;

/// A new file in the system's temporary folder that only its owner may read; it is gone with this object. Those that
/// programs left there which were killed go at the next. Every operation raises FileAccessError.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string_view suffix);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(std::string_view bytes);
    const std::filesystem::path& Path() const { return path_; }

private:
    class Handle; // each system's own

    std::filesystem::path path_;
    std::unique_ptr<Handle> file_;
};

/// A new folder there that only its owner may open; it is gone with this object and all that is in it. Raises
/// FileAccessError.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const;

private:
    std::unique_ptr<ScratchName> name_;
};

} // namespace velmora
