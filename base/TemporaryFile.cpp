#include "base/TemporaryFile.h"

#include "base/AtomicFile.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace velmora {

TemporaryFile::TemporaryFile(std::string_view suffix) {
    std::string name = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string() + std::string(suffix);
    file_ = ::mkstemps(name.data(), static_cast<int>(suffix.size()));
    if (file_ < 0)
        throw FileAccessError(name, errno);
    path_ = name;
}

TemporaryFile::~TemporaryFile() {
    ::close(file_);
    ::unlink(path_.c_str());
}

void TemporaryFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            throw FileAccessError(path_, errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace velmora
