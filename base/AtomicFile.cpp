#include "base/AtomicFile.h"

#include "base/FileNumber.h"
#include "base/Paths.h"

#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

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

void ReplaceFile(const fs::path& path, std::string_view bytes, Readers readers) {
    AtomicFile file(path, readers);
    file.Write(bytes);
    file.Commit();
}

} // namespace velmora
