// Files that are to be gone when the program ends, also when it is interrupted.
#pragma once

#include "base/posix/SystemFile.h"

#include <filesystem>
#include <mutex>

namespace velmora {

enum class Outlives { Nothing, TheProgram };

/// One file's name, which an interruption removes while this object holds it; the file itself is its owner's.
class ScratchName {
public:
    ScratchName() = default;
    ~ScratchName() { Set({}); }
    ScratchName(const ScratchName&) = delete;
    ScratchName& operator=(const ScratchName&) = delete;

    /// Another name from now on, or none; one that outlives the program is left alone by an interruption.
    void Set(std::filesystem::path path, Outlives outlives = Outlives::Nothing);
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// An interruption waits for the end of this object.
std::unique_lock<std::mutex> HoldInterruptions();

/// Removes all that are held; none can be made any more. For a program that ends now.
void RemoveScratchFiles() noexcept;

/// Locks a file just made, so that RemoveIfLeft knows that its program runs. False where that has removed it already. A
/// file system without locks locks nothing, and nothing is removed there.
bool LockNew(const SystemFile& file);
/// Removes a file whose program has ended, to judge by the lock. No effect on others.
void RemoveIfLeft(const std::filesystem::path& path);

} // namespace velmora
