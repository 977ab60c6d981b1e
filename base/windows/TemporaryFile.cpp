#include "base/TemporaryFile.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/ScratchNames.h"
#include "base/SiblingNames.h"
#include "base/SystemLock.h"
#include "base/windows/SystemFile.h"

#include <atomic>
#include <random>
#include <string>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNameStart = "velmora-";

/// Another one with every call.
fs::path NewPath(std::string_view suffix) {
    static std::atomic<unsigned> count{std::random_device()()};
    const std::string name = std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++count);
    return fs::temp_directory_path() / PathOf(std::string(kNameStart) + name + std::string(suffix));
}

void RemoveWhatWasLeft() {
    std::error_code error;
    for (const fs::path& path : FilesNamed(fs::temp_directory_path(error), kNameStart, ""))
        if (fs::is_regular_file(path, error))
            SystemLock::RemoveUnheld(path);
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
        path_ = NewPath(suffix);
        file_->file.Reset(MakeFile(path_));
    } while (!file_->file.IsOpen() && ::GetLastError() == ERROR_FILE_EXISTS);
    if (!file_->file.IsOpen())
        throw FileAccessError(path_, LastErrno());
    file_->name.Set(path_);
}

TemporaryFile::~TemporaryFile() {
    RemoveFile(path_);
}

void TemporaryFile::Write(std::string_view bytes) {
    if (!WriteAll(file_->file, bytes))
        throw FileAccessError(path_, LastErrno());
}

ScratchFolder::ScratchFolder() : name_(std::make_unique<ScratchName>()) {
    const fs::path path = NewPath("");
    if (::CreateDirectoryW(path.c_str(), nullptr) == 0)
        throw FileAccessError(path, LastErrno());
    name_->Set(path);
}

} // namespace velmora
