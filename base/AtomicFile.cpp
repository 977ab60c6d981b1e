#include "base/AtomicFile.h"

#include "base/Paths.h"

#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

FileAccessError::FileAccessError(const fs::path& path, int systemNumber)
    : Error(PathText(path) + ": " + std::generic_category().message(systemNumber), systemNumber),
      cause_(std::generic_category().message(systemNumber)) {}

std::optional<FileStamp> StampOf(const fs::path& path) {
    std::error_code error;
    FileStamp stamp;
    stamp.size = fs::file_size(path, error);
    if (!error)
        stamp.written = fs::last_write_time(path, error);
    return error ? std::nullopt : std::optional(stamp);
}

bool IsSameFile(const fs::path& a, const fs::path& b) {
    std::error_code error;
    return fs::equivalent(a, b, error);
}

void ReplaceFile(const fs::path& path, std::string_view bytes) {
    AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
}

} // namespace velmora
