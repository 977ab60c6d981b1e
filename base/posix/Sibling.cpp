#include "base/posix/Sibling.h"

#include "base/SiblingNames.h"
#include "base/SystemLock.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

std::string SumOf(const fs::path& path) {
    std::error_code error;
    const fs::path canonical = fs::weakly_canonical(path, error);
    return PathSum(error ? path : canonical);
}

} // namespace

Sibling::~Sibling() {
    Remove();
}

bool Sibling::Create(const fs::path& folder, mode_t mode) {
    for (const fs::path& left : FilesNamed(folder, kSiblingStart, kUnfinished))
        RemoveIfLeft(left);
    if (!CreateOne(folder, mode))
        return false;
    olderCopies_ = WholeCopies(target_, folder);
    return true;
}

/// The lock can come too late against another program that tidies up: then the name is gone, and the next is tried.
bool Sibling::CreateOne(const fs::path& folder, mode_t mode) {
    static std::atomic<unsigned> count{0};
    const std::string prefix = std::string(kSiblingStart) + SumOf(target_) + "-" + std::to_string(::getpid()) + "-";
    for (;;) {
        name_.Set(folder / (prefix + std::to_string(++count) + std::string(kUnfinished)));
        file_.Reset(::open(Path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (!file_.IsOpen() && errno == EEXIST)
            continue;
        if (!file_.IsOpen()) {
            const int cause = errno;
            name_.Set({});
            errno = cause;
            return false;
        }
        if (LockNew(file_))
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

void Sibling::RemoveOlderCopies() {
    for (const fs::path& copy : olderCopies_)
        ::unlink(copy.c_str());
}

std::vector<fs::path> WholeCopies(const fs::path& target, const fs::path& folder) {
    std::vector<fs::path> copies = FilesNamed(folder, std::string(kSiblingStart) + SumOf(target) + "-", kWhole);
    std::erase_if(copies, [](const fs::path& copy) { return SystemLock::IsHeld(copy); });
    return copies;
}

} // namespace velmora
