// What the POSIX sources of base share.
#pragma once

#include <filesystem>
#include <string_view>

namespace velmora {

/// An open file, closed with this object; nothing is open below 0.
class SystemFile {
public:
    explicit SystemFile(int number = -1) : number_(number) {}
    ~SystemFile();
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;

    /// Closes what was open before.
    void Reset(int number);
    bool IsOpen() const { return number_ >= 0; }
    int Get() const { return number_; }

private:
    int number_;
};

/// False on an error, which errno names.
bool WriteAll(const SystemFile& file, std::string_view bytes);

/// Locks a file just made, so that SystemLock::RemoveUnheld knows that its program runs. False where that has removed
/// it already. A file system without locks locks nothing, and nothing is removed there.
bool LockNew(const SystemFile& file);

/// Makes a rename in the folder durable; not every file system can, so a failure is none of ours.
void FlushFolder(const std::filesystem::path& folder);

} // namespace velmora
