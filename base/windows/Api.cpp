#include "base/windows/Api.h"

#include <cerrno>
#include <system_error>

namespace velmora {

std::wstring Wide(std::string_view utf8) {
    const int length = static_cast<int>(utf8.size());
    std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)), 0);
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), static_cast<int>(text.size()));
    return text;
}

std::string Narrow(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

int ErrnoOf(DWORD error) {
    switch (error) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return EBUSY;
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY: return ENOENT;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return ENOSPC;
    default: break;
    }
    const auto condition = std::system_category().default_error_condition(static_cast<int>(error));
    return condition.category() == std::generic_category() ? condition.value() : EIO;
}

int LastErrno() {
    return ErrnoOf(::GetLastError());
}

} // namespace velmora
