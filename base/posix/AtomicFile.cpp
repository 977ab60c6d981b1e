#include "base/AtomicFile.h"

#include "base/FileNumber.h"
#include "base/Sibling.h"
#include "base/posix/FileRights.h"
#include "base/posix/SystemFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

std::int64_t Nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

/// All of it, in place of what was there; nothing is cut off before. False on an error, which errno names.
bool Overwrite(const SystemFile& file, std::string_view bytes) {
    return ::lseek(file.Get(), 0, SEEK_SET) == 0 && WriteAll(file, bytes) &&
           ::ftruncate(file.Get(), static_cast<off_t>(bytes.size())) == 0 && ::fsync(file.Get()) == 0;
}

/// Room on the disk for that many bytes. False on an error, which errno names.
bool Reserve(const SystemFile& file, std::size_t bytes) {
    errno = bytes > 0 ? ::posix_fallocate(file.Get(), 0, static_cast<off_t>(bytes)) : 0;
    return errno == 0;
}

class PosixReplacement : public Replacement {
public:
    PosixReplacement(const fs::path& path, Readers readers);

    void Write(std::string_view bytes) override;
    void Commit() override;

private:
    enum class Way { Rename, Overwrite, Straight };

    Way ChooseWay();
    void OpenSibling();
    void OverwriteTarget();
    [[noreturn]] void Fail() const;

    fs::path target_; ///< with links resolved
    Readers readers_;
    bool exists_ = false;
    struct stat old_ {}; ///< the target's, where it exists
    Way way_;
    Sibling sibling_;
    SystemFile straight_;
};

PosixReplacement::PosixReplacement(const fs::path& path, Readers readers)
    : target_(TargetOf(path)), readers_(readers), way_(ChooseWay()), sibling_(target_) {
    if (way_ != Way::Straight) {
        OpenSibling();
        return;
    }
    straight_.Reset(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));
    if (!straight_.IsOpen())
        Fail();
}

PosixReplacement::Way PosixReplacement::ChooseWay() {
    exists_ = ::stat(target_.c_str(), &old_) == 0;
    if (!exists_) {
        if (errno != ENOENT)
            Fail();
        return Way::Rename;
    }
    if (S_ISDIR(old_.st_mode)) {
        errno = EISDIR;
        Fail();
    }
    // A rename could replace a file that may not be written; the person who protected it means it.
    if (::access(target_.c_str(), W_OK) != 0)
        Fail();
    if (!S_ISREG(old_.st_mode))
        return Way::Straight;
    return old_.st_nlink > 1 ? Way::Overwrite : Way::Rename;
}

void PosixReplacement::OpenSibling() {
    // The rights of an old file come last, with all of the content.
    if (sibling_.Create(target_.parent_path(), exists_ ? Readers::OwnerAlone : readers_))
        return;
    const int cause = errno;
    std::error_code error;
    // A file that may be written in a folder that may not: its twin waits elsewhere.
    if (!exists_ || cause != EACCES || !sibling_.Create(fs::temp_directory_path(error), Readers::OwnerAlone)) {
        errno = cause;
        Fail();
    }
    way_ = Way::Overwrite;
}

void PosixReplacement::Write(std::string_view bytes) {
    if (!WriteAll(way_ == Way::Straight ? straight_ : sibling_.File(), bytes))
        Fail();
}

void PosixReplacement::Commit() {
    if (way_ == Way::Straight)
        return;
    if (way_ == Way::Rename && exists_ && !TakeRights(sibling_.File(), target_, old_, readers_))
        way_ = Way::Overwrite;
    if (::fsync(sibling_.File().Get()) != 0)
        Fail();
    if (way_ == Way::Overwrite)
        OverwriteTarget();
    else if (!sibling_.TakePlaceOfTarget())
        Fail();
    FlushFolder(target_.parent_path());
    sibling_.RemoveOlderCopies();
}

void PosixReplacement::OverwriteTarget() {
    const std::string content = ReadFile(sibling_.Path());
    const SystemFile target(::open(target_.c_str(), O_RDWR | O_CLOEXEC));
    if (!target.IsOpen())
        Fail();
    const std::string old = ReadFile(target_);
    // From here on a program that is killed leaves the twin as the whole copy, which the next opening offers.
    if (!sibling_.KeepAsWhole())
        Fail();
    auto hold = HoldInterruptions();
    if (Reserve(target, content.size()) && Overwrite(target, content))
        return;
    const int cause = errno;
    if (!Overwrite(target, old)) {
        hold.unlock(); // names are told under the same lock
        throw FileAccessError(target_, cause, sibling_.Leave());
    }
    errno = cause;
    Fail();
}

void PosixReplacement::Fail() const {
    throw FileAccessError(target_, errno);
}

} // namespace

std::string ReadFile(const fs::path& path, std::size_t most) {
    const SystemFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        throw FileAccessError(path, errno);
    std::string bytes;
    std::size_t length = 0;
    const auto expected = std::min(most, static_cast<std::size_t>(S_ISREG(status.st_mode) ? status.st_size : 0));
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

std::unique_ptr<Replacement> NewReplacement(const fs::path& path, Readers readers) {
    return std::make_unique<PosixReplacement>(path, readers);
}

/// Also where a link's target does not exist yet.
fs::path TargetOf(const fs::path& path) {
    constexpr int kMostLinks = 40; // as many as Linux itself follows
    std::error_code error;
    fs::path target = path;
    for (int i = 0; i < kMostLinks && fs::is_symlink(target, error); ++i)
        target = target.parent_path() / fs::read_symlink(target, error);
    return target;
}

std::uint64_t FileNumber(const fs::path& path) {
    return IdentityOf(path).number;
}

FileIdentity IdentityOf(const fs::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)};
}

} // namespace velmora
