#include "base/windows/SystemFile.h"

#include <algorithm>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// Without the prefix of names that are handed on as they are.
fs::path WithoutPrefix(std::wstring_view name) {
    constexpr std::wstring_view kLocal = L"\\\\?\\";
    constexpr std::wstring_view kServer = L"\\\\?\\UNC\\";
    if (name.starts_with(kServer))
        return std::wstring(L"\\\\").append(name.substr(kServer.size()));
    return name.substr(name.starts_with(kLocal) ? kLocal.size() : 0);
}

/// Empty for what is not there.
fs::path FinalPath(const fs::path& path) {
    const SystemFile file(OpenFile(path, 0, kShareAll, FILE_FLAG_BACKUP_SEMANTICS));
    if (!file.IsOpen())
        return {};
    std::wstring name(MAX_PATH, 0);
    for (DWORD length = MAX_PATH; length >= name.size();) {
        name.resize(length + 1);
        length = ::GetFinalPathNameByHandleW(file.Get(), name.data(), static_cast<DWORD>(name.size()), 0);
        if (length == 0)
            return {};
        if (length < name.size()) {
            name.resize(length);
            break;
        }
    }
    return WithoutPrefix(name);
}

} // namespace

void SystemFile::Reset(HANDLE handle) {
    if (IsOpen())
        ::CloseHandle(handle_);
    handle_ = handle;
}

HANDLE OpenFile(const fs::path& path, DWORD access, DWORD share, DWORD flags) {
    return ::CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, flags, nullptr);
}

HANDLE MakeFile(const fs::path& path) {
    return ::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, kShareButWriting, nullptr, CREATE_NEW,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool WriteAll(const SystemFile& file, std::string_view bytes) {
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 24;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        if (::WriteFile(file.Get(), bytes.data(), wanted, &written, nullptr) == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool RemoveFile(const fs::path& path) {
    return ::DeleteFileW(path.c_str()) != 0;
}

fs::path ResolvedPath(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    if (fs::path whole = FinalPath(absolute); !whole.empty())
        return whole;
    const fs::path folder = FinalPath(absolute.parent_path());
    return folder.empty() ? absolute : folder / absolute.filename();
}

} // namespace velmora
