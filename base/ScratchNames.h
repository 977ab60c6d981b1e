// Files that are to be gone when the program ends, also when it is interrupted.
#pragma once

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

} // namespace velmora
