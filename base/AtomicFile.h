// Files that a person trusts us with are never half written: the new content goes to a temporary sibling, is flushed
// to disk and renamed into place, so that a crash or a full disk leaves either the old file or the new one.
#pragma once

#include "base/Error.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A file operation refused by the system; its number is one of <cerrno>, the text the system's, the path stands in
/// front.
class FileAccessError : public Error {
public:
    FileAccessError(const std::filesystem::path& path, int systemNumber);
    /// The system's text alone, without the path.
    const std::string& Cause() const { return cause_; }

private:
    std::string cause_;
};

/// The file, or its first `most` bytes. Raises FileAccessError, also for a directory.
std::string ReadFile(const std::filesystem::path& path, std::size_t most = std::string::npos);

/// One replacement of a file. Nothing at the path changes before Commit; without it the destructor leaves the old
/// file as it was. Symbolic links are followed, and the permissions and the owner of an old file survive. A file with
/// several hard links, one whose owner cannot be kept, or one in a folder that takes no new file is overwritten in
/// place from the finished sibling: links and owner survive, and the sibling stays behind if the machine stops in
/// between. A path that names a device or a pipe is written straight away. Every operation
/// raises FileAccessError.
class AtomicFile {
public:
    explicit AtomicFile(const std::filesystem::path& path);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    void Write(std::string_view bytes);
    void Commit();

private:
    class Replacement; // each system's own

    void Flush();

    std::unique_ptr<Replacement> file_;
    std::string buffer_;
};

/// Tells whether a file is still the one that was read or written.
struct FileStamp {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;
    bool operator==(const FileStamp&) const = default;
};
/// nullopt where there is no file.
std::optional<FileStamp> StampOf(const std::filesystem::path& path);

/// The same, told by all that the system knows of a file; times in nanoseconds since 1970.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = -1; ///< -1: no file
    std::int64_t modified = 0;
    std::int64_t changed = 0; ///< also by a rename or other permissions
    bool operator==(const FileIdentity&) const = default;
};
FileIdentity IdentityOf(const std::filesystem::path& path);

/// True when both paths lead to one existing file.
bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// AtomicFile for content that is at hand.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace velmora
