#include "base/Sibling.h"

#include "base/SiblingNames.h"
#include "base/posix/FileRights.h"
#include "base/posix/SystemFile.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

Sibling::Sibling(fs::path target) : target_(std::move(target)), file_(std::make_unique<SystemFile>()) {}

Sibling::~Sibling() {
    Remove();
}

/// The lock can come too late against another program that tidies up: then the name is gone, and the next is tried.
bool Sibling::CreateOne(const fs::path& folder, Readers readers) {
    static std::atomic<unsigned> count{0};
    const std::string prefix = SiblingStart(target_) + std::to_string(::getpid()) + "-";
    const mode_t mode = readers == Readers::OwnerAlone ? kOwnerAlone : kAllThatTheFolderGives;
    for (;;) {
        name_.Set(folder / (prefix + std::to_string(++count) + std::string(kUnfinished)));
        file_->Reset(::open(Path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (!file_->IsOpen() && errno == EEXIST)
            continue;
        if (!file_->IsOpen()) {
            const int cause = errno;
            name_.Set({});
            errno = cause;
            return false;
        }
        if (LockNew(*file_))
            return true;
    }
}

bool Sibling::TakePlaceOfTarget() {
    if (::rename(Path().c_str(), target_.c_str()) != 0)
        return false;
    name_.Set({});
    return true;
}

bool Sibling::KeepAsWhole() {
    fs::path whole = Path();
    whole.replace_extension(kWhole);
    if (::rename(Path().c_str(), whole.c_str()) != 0)
        return false;
    name_.Set(whole, Outlives::TheProgram);
    FlushFolder(whole.parent_path());
    return true;
}

void Sibling::Remove() {
    if (Path().empty())
        return;
    const int cause = errno;
    ::unlink(Path().c_str());
    name_.Set({});
    errno = cause;
}

std::string SiblingStart(const fs::path& target) {
    std::error_code error;
    const fs::path canonical = fs::weakly_canonical(target, error);
    return std::string(kSiblingStart) + PathSum(error ? target : canonical) + "-";
}

} // namespace velmora
