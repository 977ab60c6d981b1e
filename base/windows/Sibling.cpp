#include "base/Sibling.h"

#include "base/Paths.h"
#include "base/SiblingNames.h"
#include "base/Text.h"
#include "base/windows/SystemFile.h"

#include <atomic>
#include <string>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// Scanners and indexers hold a file for a moment, mostly one that has just been written.
bool MoveOver(const fs::path& from, const fs::path& to) {
    constexpr int kTries = 25;
    constexpr DWORD kPauseMs = 20;
    for (int tried = 1;; ++tried) {
        if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
            return true;
        const DWORD cause = ::GetLastError();
        if (tried == kTries || (cause != ERROR_ACCESS_DENIED && cause != ERROR_SHARING_VIOLATION))
            return false;
        ::Sleep(kPauseMs);
    }
}

} // namespace

Sibling::Sibling(fs::path target) : target_(std::move(target)), file_(std::make_unique<SystemFile>()) {}

Sibling::~Sibling() {
    Remove();
}

/// The folder itself says who may read what is made in it.
bool Sibling::CreateOne(const fs::path& folder, Readers /*readers*/) {
    static std::atomic<unsigned> count{0};
    const std::string start = SiblingStart(target_) + std::to_string(::GetCurrentProcessId()) + "-";
    do {
        name_.Set(folder / PathOf(start + std::to_string(++count) + std::string(kUnfinished)));
        file_->Reset(MakeFile(Path()));
    } while (!file_->IsOpen() && ::GetLastError() == ERROR_FILE_EXISTS);
    if (!file_->IsOpen()) {
        const DWORD cause = ::GetLastError();
        name_.Set({});
        ::SetLastError(cause);
        return false;
    }
    ::SetFileAttributesW(Path().c_str(), FILE_ATTRIBUTE_HIDDEN);
    return true;
}

bool Sibling::TakePlaceOfTarget() {
    const DWORD old = ::GetFileAttributesW(target_.c_str());
    ::SetFileAttributesW(Path().c_str(), old == INVALID_FILE_ATTRIBUTES ? FILE_ATTRIBUTE_NORMAL : old);
    if (!MoveOver(Path(), target_))
        return false;
    name_.Set({});
    return true;
}

bool Sibling::KeepAsWhole() {
    fs::path whole = Path();
    whole.replace_extension(PathOf(kWhole));
    if (!MoveOver(Path(), whole))
        return false;
    name_.Set(whole, Outlives::TheProgram);
    return true;
}

void Sibling::Remove() {
    if (Path().empty())
        return;
    const DWORD cause = ::GetLastError();
    RemoveFile(Path());
    name_.Set({});
    ::SetLastError(cause);
}

std::string SiblingStart(const fs::path& target) {
    return std::string(kSiblingStart) + PathSum(PathOf(FoldCase(PathText(ResolvedPath(target))))) + "-";
}

} // namespace velmora
