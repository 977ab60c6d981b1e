#include "base/AtomicFile.h"

#include "base/posix/SystemFile.h"

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
    const SystemFile opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.IsOpen())
        ::fsync(opened.Get());
}

std::int64_t Nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

std::string ReadFile(const fs::path& path, std::size_t most) {
    const SystemFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
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

/// The new content on its way to the file.
class AtomicFile::Replacement {
public:
    explicit Replacement(const fs::path& path);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void Write(std::string_view bytes);
    void Commit();

private:
    enum class Way { Rename, Overwrite, Straight };

    Way ChooseWay() const;
    bool CreateSibling(const fs::path& folder);
    void OpenSibling();
    void OverwriteTarget();
    [[noreturn]] void Fail() const;

    fs::path target_;  ///< with links resolved
    fs::path sibling_; ///< empty once it is gone
    Way way_;
    SystemFile file_;
};

AtomicFile::Replacement::Replacement(const fs::path& path) : target_(ResolveLinks(path)), way_(ChooseWay()) {
    if (way_ != Way::Straight) {
        OpenSibling();
        return;
    }
    file_.Reset(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file_.IsOpen())
        Fail();
}

AtomicFile::Replacement::~Replacement() {
    if (!sibling_.empty())
        ::unlink(sibling_.c_str());
}

AtomicFile::Replacement::Way AtomicFile::Replacement::ChooseWay() const {
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
bool AtomicFile::Replacement::CreateSibling(const fs::path& folder) {
    static std::atomic<unsigned> count{0};
    do {
        sibling_ = folder / (".velmora-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".tmp");
        file_.Reset(::open(sibling_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    } while (!file_.IsOpen() && errno == EEXIST);
    if (!file_.IsOpen())
        sibling_.clear();
    return file_.IsOpen();
}

void AtomicFile::Replacement::OpenSibling() {
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
    if (::fchown(file_.Get(), status.st_uid, status.st_gid) != 0)
        way_ = Way::Overwrite;
    ::fchmod(file_.Get(), status.st_mode & 07777);
}

void AtomicFile::Replacement::Write(std::string_view bytes) {
    if (!WriteAll(file_, bytes))
        Fail();
}

void AtomicFile::Replacement::Commit() {
    if (way_ == Way::Straight)
        return;
    if (::fsync(file_.Get()) != 0)
        Fail();
    if (way_ == Way::Overwrite)
        OverwriteTarget();
    else if (::rename(sibling_.c_str(), target_.c_str()) != 0)
        Fail();
    else
        sibling_.clear();
    FlushFolder(target_.parent_path());
}

void AtomicFile::Replacement::OverwriteTarget() {
    const std::string content = ReadFile(sibling_);
    const SystemFile target(::open(target_.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    if (!target.IsOpen())
        Fail();
    if (!WriteAll(target, content) || ::fsync(target.Get()) != 0) {
        const int cause = errno;
        sibling_.clear(); // it holds the only whole copy now
        errno = cause;
        Fail();
    }
}

void AtomicFile::Replacement::Fail() const {
    throw FileAccessError(target_, errno);
}

AtomicFile::AtomicFile(const fs::path& path) : file_(std::make_unique<Replacement>(path)) {}

AtomicFile::~AtomicFile() = default;

void AtomicFile::Write(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kBufferSize)
        Flush();
}

void AtomicFile::Flush() {
    file_->Write(buffer_);
    buffer_.clear();
}

void AtomicFile::Commit() {
    Flush();
    file_->Commit();
}

FileIdentity IdentityOf(const fs::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)};
}

} // namespace velmora
