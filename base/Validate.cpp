#include "base/Validate.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <fstream>
#include <system_error>

namespace velmora {
namespace {

namespace fs = std::filesystem;
constexpr auto kNone = std::string_view::npos;

/// Length of the drive with its ":". A ":" behind a "/" is part of a name.
std::size_t DriveLength(std::string_view path) {
    const std::size_t at = path.find_first_of(":/");
    return at == kNone || path[at] == '/' ? 0 : at + 1;
}

} // namespace

bool FolderExists(const fs::path& path, bool create) {
    std::error_code error;
    const bool isForeign = !path.is_absolute() && DriveLength(PathText(path)) > 0;
    if (create && !isForeign)
        fs::create_directories(path, error);
    return fs::is_directory(path, error);
}

bool FileExists(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && std::ifstream(path).is_open();
}

std::optional<fs::path> FindFile(const fs::path& folder, const std::string& name) {
    if (FileExists(folder / PathOf(name)))
        return folder / PathOf(name);
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (EqualsNoCase(PathText(entry->path().filename()), name) && FileExists(entry->path()))
            return entry->path();
    return std::nullopt;
}

std::string DriveOf(std::string_view path) {
    const std::size_t length = DriveLength(path);
    return length == 0 ? "NO DRIVE" : std::string(path.substr(0, length));
}

} // namespace velmora
