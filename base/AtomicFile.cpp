#include "base/AtomicFile.h"

#include "base/FileNumber.h"
#include "base/Paths.h"
#include "base/Sibling.h"

#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostHeld = std::size_t{256} * 1024;

} // namespace

FileAccessError::FileAccessError(const fs::path& path, int systemNumber, const std::string& remark)
    : Error(PathText(path) + ": " + std::generic_category().message(systemNumber) + remark, systemNumber),
      cause_(std::generic_category().message(systemNumber) + remark) {}

FileAccessError::FileAccessError(const fs::path& path, int systemNumber)
    : FileAccessError(path, systemNumber, std::string()) {}

FileAccessError::FileAccessError(const fs::path& path, int systemNumber, const fs::path& wholeCopy)
    : FileAccessError(path, systemNumber, ". The whole text is in [" + PathText(wholeCopy) + "]") {}

std::optional<FileStamp> StampOf(const fs::path& path) {
    std::error_code error;
    FileStamp stamp;
    stamp.size = fs::file_size(path, error);
    if (!error)
        stamp.written = fs::last_write_time(path, error);
    stamp.number = FileNumber(path);
    return error ? std::nullopt : std::optional(stamp);
}

bool FileStamp::operator==(const FileStamp& other) const {
    return size == other.size && written == other.written &&
           (number == other.number || number == 0 || other.number == 0);
}

bool IsSameFile(const fs::path& a, const fs::path& b) {
    std::error_code error;
    return fs::equivalent(a, b, error);
}

void MakePrivateFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw FileAccessError(folder, error.default_error_condition().value());
    fs::permissions(folder, fs::perms::owner_all, error);
}

AtomicFile::AtomicFile(const fs::path& path, Readers readers) : file_(NewReplacement(path, readers)) {}

AtomicFile::~AtomicFile() = default;

void AtomicFile::Write(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kMostHeld)
        Flush();
}

void AtomicFile::Flush() {
    file_->Write(buffer_);
    buffer_.clear();
}

void AtomicFile::Commit() {
    Flush();
    file_->Commit();
}

std::optional<fs::path> InterruptedSave(const fs::path& path) {
    const fs::path target = TargetOf(path);
    std::error_code error;
    std::optional<fs::path> newest;
    for (const fs::path& folder : {target.parent_path(), fs::temp_directory_path(error)})
        for (const fs::path& copy : WholeCopies(target, folder))
            if (!newest || fs::last_write_time(copy, error) > fs::last_write_time(*newest, error))
                newest = copy;
    return newest;
}

void ReplaceFile(const fs::path& path, std::string_view bytes, Readers readers) {
    AtomicFile file(path, readers);
    file.Write(bytes);
    file.Commit();
}

} // namespace velmora
