#include "base/TemporaryFile.h"

#include "base/AtomicFile.h"
#include "base/posix/SystemFile.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace velmora {
namespace {

std::string Pattern() {
    return std::filesystem::temp_directory_path() / "velmora-XXXXXX";
}

} // namespace

TemporaryFile::TemporaryFile(std::string_view suffix) : file_(std::make_unique<SystemFile>()) {
    std::string name = Pattern() + std::string(suffix);
    file_->Reset(::mkstemps(name.data(), static_cast<int>(suffix.size())));
    if (!file_->IsOpen())
        throw FileAccessError(name, errno);
    path_ = name;
}

TemporaryFile::~TemporaryFile() {
    ::unlink(path_.c_str());
}

void TemporaryFile::Write(std::string_view bytes) {
    if (!WriteAll(*file_, bytes))
        throw FileAccessError(path_, errno);
}

ScratchFolder::ScratchFolder() {
    std::string name = Pattern();
    if (!::mkdtemp(name.data()))
        throw FileAccessError(name, errno);
    path_ = name;
}

} // namespace velmora
