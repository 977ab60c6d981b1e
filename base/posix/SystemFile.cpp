#include "base/posix/SystemFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {

SystemFile::~SystemFile() {
    Reset(-1);
}

void SystemFile::Reset(int number) {
    if (IsOpen())
        ::close(number_);
    number_ = number;
}

bool WriteAll(const SystemFile& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.Get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool LockNew(const SystemFile& file) {
    struct stat status {};
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    return ::fstat(file.Get(), &status) != 0 || status.st_nlink > 0;
}

void FlushFolder(const std::filesystem::path& folder) {
    const SystemFile opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.IsOpen())
        ::fsync(opened.Get());
}

} // namespace velmora
