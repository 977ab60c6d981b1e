#include "base/SystemLock.h"

#include "base/AtomicFile.h"
#include "base/posix/SystemFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

SystemLock::SystemLock(std::unique_ptr<SystemFile> file) : file_(std::move(file)) {}

SystemLock::SystemLock(SystemLock&&) noexcept = default;

SystemLock::~SystemLock() = default;

std::optional<SystemLock> SystemLock::TryFolder(const fs::path& folder) {
    auto file = std::make_unique<SystemFile>();
    file->Reset(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file->IsOpen() && ::flock(file->Get(), LOCK_EX | LOCK_NB) == 0)
        return SystemLock(std::move(file));
    if (file->IsOpen() && (errno == EWOULDBLOCK || errno == EINTR))
        return std::nullopt;
    throw FileAccessError(folder, errno);
}

SystemLock SystemLock::MakeFile(const fs::path& path) {
    auto file = std::make_unique<SystemFile>();
    file->Reset(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (file->IsOpen() && ::flock(file->Get(), LOCK_EX | LOCK_NB) == 0)
        return SystemLock(std::move(file));
    const int cause = errno;
    if (file->IsOpen())
        ::unlink(path.c_str());
    throw FileAccessError(path, cause);
}

bool SystemLock::IsHeld(const fs::path& path) {
    const SystemFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen())
        return errno != ENOENT;
    return ::flock(file.Get(), LOCK_SH | LOCK_NB) != 0; // shared: two that ask at once do not hinder each other
}

void SystemLock::RemoveUnheld(const fs::path& path) {
    const SystemFile file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.IsOpen() && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0)
        ::unlink(path.c_str());
}

} // namespace velmora
