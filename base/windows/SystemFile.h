// What the Windows sources of base share.
#pragma once

#include "base/windows/Api.h"

namespace velmora {

/// An open file, closed with this object.
class SystemFile {
public:
    explicit SystemFile(HANDLE handle = nullptr) : handle_(handle) {}
    ~SystemFile() { Reset(nullptr); }
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;

    /// Closes what was open before.
    void Reset(HANDLE handle);
    bool IsOpen() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// With which nobody else can open the file to write, nor ask for it alone, while it may be renamed and removed.
inline constexpr DWORD kShareButWriting = FILE_SHARE_READ | FILE_SHARE_DELETE;

/// An existing file.
HANDLE OpenFile(const std::filesystem::path& path, DWORD access, DWORD share, DWORD flags = 0);
/// A new one; the error is EEXIST's where there is one.
HANDLE MakeFile(const std::filesystem::path& path);

/// These are false on an error, which the system keeps.
bool WriteAll(const SystemFile& file, std::string_view bytes);
bool RemoveFile(const std::filesystem::path& path);

/// With links resolved and in the spelling of the file system, as far as the path exists.
std::filesystem::path ResolvedPath(const std::filesystem::path& path);

} // namespace velmora
