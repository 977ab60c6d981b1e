// Locks against other programs that the system frees when the program ends in any way.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

namespace velmora {

class SystemFile; // each system's own

/// Held while this object lives.
class SystemLock {
public:
    /// The lock of a folder, which leaves no file behind. Nullopt while another holds it; raises FileAccessError where
    /// it can't be tried.
    static std::optional<SystemLock> TryFolder(const std::filesystem::path& folder);
    /// A new file that only its owner may read, locked. It stays when the lock ends, and may be removed before. Raises
    /// FileAccessError, also where there is such a file.
    static SystemLock MakeFile(const std::filesystem::path& path);
    /// Whether the lock of a file is held. Nobody holds that of a missing file; one that can't be tried is taken for
    /// held.
    static bool IsHeld(const std::filesystem::path& path);
    /// Removes a file that a program which has ended left; no effect on one whose lock is held.
    static void RemoveUnheld(const std::filesystem::path& path);

    SystemLock(SystemLock&&) noexcept;
    ~SystemLock();

private:
    explicit SystemLock(std::unique_ptr<SystemFile> file);

    std::unique_ptr<SystemFile> file_;
};

} // namespace velmora
