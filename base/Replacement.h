// What AtomicFile asks of the system.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace velmora {

/// Who may read what is written.
enum class Readers {
    AsBefore,  ///< those who could read the old file; those to whom the folder gives new ones
    OwnerAlone ///< for what the program keeps for itself; on Windows the folder says who that is
};

/// The new content on its way to one file. Every operation raises FileAccessError; without Commit the destructor leaves
/// the old file as it was.
class Replacement {
public:
    Replacement() = default;
    virtual ~Replacement() = default;
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    virtual void Write(std::string_view bytes) = 0;
    virtual void Commit() = 0;
};

std::unique_ptr<Replacement> NewReplacement(const std::filesystem::path& path, Readers readers);

/// The file itself that a path leads to, with links followed.
std::filesystem::path TargetOf(const std::filesystem::path& path);

} // namespace velmora
