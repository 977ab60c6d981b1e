#include "base/AtomicFile.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    int Get() const { return descriptor_; }

private:
    int descriptor_;
};

/// False on an error, which errno names.
bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Follows links, also one whose target does not exist yet.
fs::path ResolveLinks(fs::path path) {
    constexpr int kMostLinks = 40; // as many as Linux itself follows
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i)
        path = path.parent_path() / fs::read_symlink(path, error);
    return path;
}

/// Makes a rename in the folder durable; not every file system can, so a failure is none of ours.
void FlushFolder(const fs::path& folder) {
    const OpenFile opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.Get() >= 0)
        ::fsync(opened.Get());
}

} // namespace

FileAccessError::FileAccessError(const fs::path& path, int systemNumber)
    : Error(path.string() + ": " + std::generic_category().message(systemNumber), systemNumber),
      cause_(std::generic_category().message(systemNumber)) {}

std::string ReadFile(const fs::path& path, std::size_t most) {
    const OpenFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (file.Get() < 0 || ::fstat(file.Get(), &status) != 0)
        throw FileAccessError(path, errno);
    std::string bytes;
    std::size_t length = 0;
    const auto expected = static_cast<std::size_t>(S_ISREG(status.st_mode) ? status.st_size : 0);
    while (length < most) {
        if (bytes.size() == length) // one byte past the expected end, to meet the end without another round
            bytes.resize(std::max(expected + 1, length + kBufferSize));
        const ssize_t got = ::read(file.Get(), bytes.data() + length, bytes.size() - length);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw FileAccessError(path, errno);
        if (got == 0)
            break;
        length += static_cast<std::size_t>(got);
    }
    bytes.resize(std::min(length, most));
    return bytes;
}

AtomicFile::AtomicFile(const fs::path& path) : target_(ResolveLinks(path)) {
    way_ = ChooseWay();
    if (way_ == Way::Straight) {
        file_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
        if (file_ < 0)
            Fail();
        return;
    }
    OpenSibling();
}

AtomicFile::~AtomicFile() {
    if (file_ >= 0)
        ::close(file_);
    if (!sibling_.empty())
        ::unlink(sibling_.c_str());
}

AtomicFile::Way AtomicFile::ChooseWay() {
    struct stat status {};
    if (::stat(target_.c_str(), &status) != 0) {
        if (errno != ENOENT)
            Fail();
        return Way::Rename;
    }
    if (S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        Fail();
    }
    // A rename could replace a file that may not be written; the person who protected it means it.
    if (::access(target_.c_str(), W_OK) != 0)
        Fail();
    if (!S_ISREG(status.st_mode))
        return Way::Straight;
    return status.st_nlink > 1 ? Way::Overwrite : Way::Rename;
}

/// False where the folder takes no new file, which errno explains.
bool AtomicFile::CreateSibling(const fs::path& folder) {
    static std::atomic<unsigned> count{0};
    do {
        sibling_ = folder / (".velmora-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".tmp");
        file_ = ::open(sibling_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (file_ < 0 && errno == EEXIST);
    if (file_ < 0)
        sibling_.clear();
    return file_ >= 0;
}

void AtomicFile::OpenSibling() {
    struct stat status {};
    const bool exists = ::stat(target_.c_str(), &status) == 0;
    if (!CreateSibling(target_.parent_path())) {
        const int cause = errno;
        std::error_code error;
        // A file that may be written in a folder that may not: its twin waits elsewhere.
        if (!exists || cause != EACCES || !CreateSibling(fs::temp_directory_path(error))) {
            errno = cause;
            Fail();
        }
        way_ = Way::Overwrite;
    }
    if (!exists)
        return;
    if (::fchown(file_, status.st_uid, status.st_gid) != 0)
        way_ = Way::Overwrite;
    ::fchmod(file_, status.st_mode & 07777);
}

void AtomicFile::Write(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kBufferSize)
        Flush();
}

void AtomicFile::Flush() {
    if (!WriteAll(file_, buffer_))
        Fail();
    buffer_.clear();
}

void AtomicFile::Commit() {
    Flush();
    if (way_ == Way::Straight)
        return;
    if (::fsync(file_) != 0)
        Fail();
    if (way_ == Way::Overwrite)
        OverwriteTarget();
    else if (::rename(sibling_.c_str(), target_.c_str()) != 0)
        Fail();
    else
        sibling_.clear();
    FlushFolder(target_.parent_path());
}

void AtomicFile::OverwriteTarget() {
    const std::string content = ReadFile(sibling_);
    const OpenFile target(::open(target_.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    if (target.Get() < 0)
        Fail();
    if (!WriteAll(target.Get(), content) || ::fsync(target.Get()) != 0) {
        const int cause = errno;
        sibling_.clear(); // it holds the only whole copy now
        errno = cause;
        Fail();
    }
}

void AtomicFile::Fail() const {
    throw FileAccessError(target_, errno);
}

std::optional<FileStamp> StampOf(const fs::path& path) {
    std::error_code error;
    FileStamp stamp;
    stamp.size = fs::file_size(path, error);
    if (!error)
        stamp.written = fs::last_write_time(path, error);
    return error ? std::nullopt : std::optional(stamp);
}

bool IsSameFile(const fs::path& a, const fs::path& b) {
    std::error_code error;
    return fs::equivalent(a, b, error);
}

void ReplaceFile(const fs::path& path, std::string_view bytes) {
    AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
}

} // namespace velmora
