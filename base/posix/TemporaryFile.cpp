#include "base/TemporaryFile.h"

#include "base/AtomicFile.h"
#include "base/ScratchNames.h"
#include "base/SystemLock.h"
#include "base/posix/SystemFile.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNameStart = "velmora-";

std::string Pattern() {
    return fs::temp_directory_path() / (std::string(kNameStart) + "XXXXXX");
}

bool IsOwnFile(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
}

void RemoveWhatWasLeft() {
    std::error_code error;
    for (fs::directory_iterator entry(fs::temp_directory_path(error), error), end; !error && entry != end;
         entry.increment(error))
        if (entry->path().filename().native().starts_with(kNameStart) && IsOwnFile(entry->path()))
            SystemLock::RemoveUnheld(entry->path());
}

} // namespace

class TemporaryFile::Handle {
public:
    SystemFile file;
    ScratchName name;
};

TemporaryFile::TemporaryFile(std::string_view suffix) : file_(std::make_unique<Handle>()) {
    RemoveWhatWasLeft();
    do {
        std::string name = Pattern() + std::string(suffix);
        file_->file.Reset(::mkstemps(name.data(), static_cast<int>(suffix.size())));
        if (!file_->file.IsOpen())
            throw FileAccessError(name, errno);
        path_ = name;
        file_->name.Set(path_);
    } while (!LockNew(file_->file));
}

TemporaryFile::~TemporaryFile() {
    ::unlink(path_.c_str());
}

void TemporaryFile::Write(std::string_view bytes) {
    if (!WriteAll(file_->file, bytes))
        throw FileAccessError(path_, errno);
}

ScratchFolder::ScratchFolder() : name_(std::make_unique<ScratchName>()) {
    std::string name = Pattern();
    if (!::mkdtemp(name.data()))
        throw FileAccessError(name, errno);
    name_->Set(name);
}

} // namespace velmora
