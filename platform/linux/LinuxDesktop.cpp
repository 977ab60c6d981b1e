#include "platform/linux/LinuxDesktop.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

bool IsProgram(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

std::optional<fs::path> FindInPath(const std::string& folders, const std::string& name) {
    for (const std::string_view folder : Split(folders, ':'))
        if (PathOf(folder).is_absolute() && IsProgram(PathOf(folder) / PathOf(name)))
            return PathOf(folder) / PathOf(name);
    return std::nullopt;
}

/// The rest of a life as another program: between fork and exec only calls that are safe there.
[[noreturn]] void Become(char* const* arguments, char* const* variables, int complaint) {
    if (const int null = ::open("/dev/null", O_RDWR); null >= 0)
        for (int stream = 0; stream < 3; ++stream)
            ::dup2(null, stream);
    ::execve(arguments[0], arguments, variables);
    const int cause = errno;
    [[maybe_unused]] const auto written = ::write(complaint, &cause, sizeof cause);
    ::_exit(127);
}

/// For a program, ended as the system wants it.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// This program's own, after `first`.
std::vector<std::string> Variables(std::vector<std::string> first) {
    for (char** variable = environ; *variable; ++variable)
        first.emplace_back(*variable);
    return first;
}

/// A grandchild in a session of its own, so that it outlives this program and leaves no zombie. False when it could
/// not become that program, which the pipe tells: a program that starts closes it without a word.
bool StartDetached(const std::vector<std::string>& command, const std::vector<std::string>& own = {}) {
    const std::vector<char*> arguments = Pointers(command);
    const std::vector<std::string> texts = Variables(own);
    const std::vector<char*> variables = Pointers(texts);
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0)
        return false;
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        const pid_t grandchild = ::fork();
        if (grandchild == 0)
            Become(arguments.data(), variables.data(), pipe[1]);
        ::_exit(grandchild < 0 ? 1 : 0);
    }
    ::close(pipe[1]);
    int status = 1;
    if (child > 0)
        while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    int cause = 0;
    const bool complained = ::read(pipe[0], &cause, sizeof cause) > 0;
    ::close(pipe[0]);
    return child > 0 && status == 0 && !complained;
}

} // namespace

bool LinuxDesktop::StartFirst(const std::vector<std::vector<std::string>>& commands) const {
    const std::string folders = environment_("PATH").value_or("/usr/local/bin:/usr/bin:/bin");
    for (std::vector<std::string> command : commands) {
        const auto program = FindInPath(folders, command.front());
        if (!program)
            continue;
        command.front() = PathText(*program);
        if (StartDetached(command))
            return true;
    }
    return false;
}

bool LinuxDesktop::OpenFile(const fs::path& file) {
    const std::string path = PathText(fs::absolute(file));
    return StartFirst({{"xdg-open", path}, {"gio", "open", path}});
}

bool LinuxDesktop::StartProgram(const fs::path& program) {
    return program.is_absolute() && IsProgram(program) && StartDetached({PathText(program)});
}

bool LinuxDesktop::StartAnother(const fs::path& file, std::size_t beside) {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return !error && StartDetached({PathText(program), PathText(fs::absolute(file))},
                                   {kBesideVariable + ("=" + std::to_string(beside))});
}

bool LinuxDesktop::StartSystemInformation() {
    const std::string desktop = ToUpper(environment_("XDG_CURRENT_DESKTOP").value_or(""));
    std::vector<std::vector<std::string>> tools = {{"gnome-control-center", "system"},
                                                   {"kinfocenter"},
                                                   {"mate-system-monitor"},
                                                   {"xfce4-about"},
                                                   {"cinnamon-settings", "info"},
                                                   {"hardinfo2"},
                                                   {"hardinfo"}};
    if (desktop.find("KDE") != std::string::npos)
        std::swap(tools[0], tools[1]);
    return StartFirst(tools);
}

} // namespace velmora
