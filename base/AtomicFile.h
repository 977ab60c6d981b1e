// Files that a person trusts us with are never half written: the new content goes to a temporary sibling, is flushed
// to disk and renamed into place, so that a crash or a full disk leaves either the old file or the new one.
#pragma once

#include "base/Error.h"
#include "base/Replacement.h"

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
    /// The file is damaged; `wholeCopy` holds what was to be written.
    FileAccessError(const std::filesystem::path& path, int systemNumber, const std::filesystem::path& wholeCopy);
    /// The text alone, without the path.
    const std::string& Cause() const { return cause_; }

private:
    FileAccessError(const std::filesystem::path& path, int systemNumber, const std::string& remark);

    std::string cause_;
};

/// The file, or its first `most` bytes. Raises FileAccessError, also for a directory.
std::string ReadFile(const std::filesystem::path& path, std::size_t most = std::string::npos);

/// One replacement of a file. Nothing at the path changes before Commit; without it the destructor leaves the old
/// file as it was. Symbolic links are followed, and the permissions, the owner, access control list and extended
/// attributes of an old file survive; at no time may more people read the new content than the old. A file with several
/// hard links, one whose owner or attributes cannot be kept, or one in a folder that takes no new file is overwritten
/// in place, in room that was reserved before: links and owner survive, an error puts the old content back, and if the
/// program or the machine stops in between, InterruptedSave finds the new one. A path that names a device or a pipe is
/// written straight away. Every operation raises FileAccessError.
class AtomicFile {
public:
    explicit AtomicFile(const std::filesystem::path& path, Readers readers = Readers::AsBefore);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    void Write(std::string_view bytes);
    void Commit();

private:
    void Flush();

    std::unique_ptr<Replacement> file_;
    std::string buffer_;
};

/// Tells whether a file is still the one that was read or written.
struct FileStamp {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;
    std::uint64_t number = 0; ///< the system's own of the file, another after a replacement; 0: not known, equal to any
    bool operator==(const FileStamp& other) const;
};
/// nullopt where there is no file.
std::optional<FileStamp> StampOf(const std::filesystem::path& path);

/// The same, told by all that the system knows of a file; times in nanoseconds since 1970.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = -1; ///< -1: no file
    std::int64_t modified = 0;
    std::int64_t changed = 0; ///< also by a rename or other permissions; on Windows not before it was made
    bool operator==(const FileIdentity&) const = default;
};
FileIdentity IdentityOf(const std::filesystem::path& path);

/// True when both paths lead to one existing file.
bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// Makes the folder, and those above it, and lets its owner alone into it, also where it is there. Raises
/// FileAccessError for one that can't be made; one that can't be narrowed stays as it is, as all do on Windows.
void MakePrivateFolder(const std::filesystem::path& folder);

/// AtomicFile for content that is at hand.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes, Readers readers = Readers::AsBefore);

/// The whole new content of a file whose overwriting in place was cut short, as by a crash; the newest of several,
/// until the file is written again. nullopt where there is none.
std::optional<std::filesystem::path> InterruptedSave(const std::filesystem::path& path);

} // namespace velmora
