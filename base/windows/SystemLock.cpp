#include "base/SystemLock.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/SiblingNames.h"
#include "base/Text.h"
#include "base/windows/SystemFile.h"

#include <cerrno>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// A folder cannot be locked: the lock is a named object that is there as long as somebody holds it, in whatever
/// session of the machine.
std::wstring LockName(const fs::path& folder) {
    return Wide("Global\\velmora-" + PathSum(PathOf(FoldCase(PathText(ResolvedPath(folder))))));
}

} // namespace

SystemLock::SystemLock(std::unique_ptr<SystemFile> file) : file_(std::move(file)) {}

SystemLock::SystemLock(SystemLock&&) noexcept = default;

SystemLock::~SystemLock() = default;

std::optional<SystemLock> SystemLock::TryFolder(const fs::path& folder) {
    std::error_code error;
    if (!fs::is_directory(folder, error))
        throw FileAccessError(folder, fs::exists(folder, error) ? ENOTDIR : ENOENT);
    auto lock = std::make_unique<SystemFile>(::CreateMutexW(nullptr, FALSE, LockName(folder).c_str()));
    const DWORD cause = ::GetLastError();
    if (cause == ERROR_ALREADY_EXISTS || cause == ERROR_ACCESS_DENIED) // the latter: another person's
        return std::nullopt;
    if (!lock->IsOpen())
        throw FileAccessError(folder, ErrnoOf(cause));
    return SystemLock(std::move(lock));
}

SystemLock SystemLock::MakeFile(const fs::path& path) {
    auto file = std::make_unique<SystemFile>(velmora::MakeFile(path));
    if (!file->IsOpen())
        throw FileAccessError(path, LastErrno());
    return SystemLock(std::move(file));
}

bool SystemLock::IsHeld(const fs::path& path) {
    // Who holds it has it open to write; two that ask at once do not hinder each other.
    const SystemFile file(OpenFile(path, GENERIC_READ, kShareButWriting));
    return !file.IsOpen() && LastErrno() != ENOENT;
}

void SystemLock::RemoveUnheld(const fs::path& path) {
    const SystemFile alone(OpenFile(path, DELETE, 0, FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT));
}

} // namespace velmora
