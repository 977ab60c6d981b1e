// A folder of its own for a test, gone with it, and what a file there holds.
#pragma once

#include "base/AtomicFile.h"
#include "base/Paths.h"

#include <filesystem>
#include <random>
#include <string>

namespace velmora {

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() / ("velmora-test-" + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, error);
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    /// With the system's own separator throughout, as the program shows paths.
    std::filesystem::path operator/(const std::string& name) const { return (path_ / PathOf(name)).make_preferred(); }

private:
    std::filesystem::path path_;
};

/// What a file holds; "(none)" where there is none.
inline std::string Content(const std::filesystem::path& path) {
    return std::filesystem::exists(path) ? ReadFile(path) : "(none)";
}

} // namespace velmora
