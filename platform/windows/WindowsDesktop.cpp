#include "platform/windows/WindowsDesktop.h"

#include "base/windows/Api.h"

#include <shellapi.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

bool Open(const fs::path& what, const std::wstring& arguments = {}) {
    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    request.lpVerb = L"open";
    request.lpFile = what.c_str();
    request.lpParameters = arguments.c_str();
    request.nShow = SW_SHOWNORMAL;
    return ::ShellExecuteExW(&request) != 0;
}

} // namespace

fs::path RunningProgram() {
    std::wstring name(MAX_PATH, 0);
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size())
            return name.substr(0, length);
        name.resize(name.size() * 2);
    }
}

bool WindowsDesktop::OpenFile(const fs::path& file) {
    return Open(fs::absolute(file));
}

bool WindowsDesktop::StartProgram(const fs::path& program) {
    std::error_code error;
    return program.is_absolute() && fs::is_regular_file(program, error) && Open(program);
}

bool WindowsDesktop::StartAnother(const fs::path& file, std::size_t beside) {
    const std::wstring variable = Wide(kBesideVariable); // which goes to what is started with all others
    ::SetEnvironmentVariableW(variable.c_str(), std::to_wstring(beside).c_str());
    const bool started = Open(RunningProgram(), L"\"" + fs::absolute(file).wstring() + L"\"");
    ::SetEnvironmentVariableW(variable.c_str(), nullptr);
    return started;
}

bool WindowsDesktop::StartSystemInformation() {
    return Open("msinfo32.exe");
}

} // namespace velmora
