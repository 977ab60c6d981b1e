#include "bench/Process.h"

#include "base/Error.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::bench {
namespace {

[[noreturn]] void Become(const std::vector<std::string>& command, const std::vector<std::string>& environment) {
    for (const std::string& variable : environment)
        ::putenv(const_cast<char*>(variable.c_str()));
    std::vector<char*> argv;
    for (const std::string& argument : command)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::execv(argv[0], argv.data());
    ::_exit(127);
}

std::string ReadToEnd(int pipe) {
    std::string text;
    std::array<char, 4096> piece;
    for (ssize_t size = 0; (size = ::read(pipe, piece.data(), piece.size())) > 0;)
        text.append(piece.data(), static_cast<std::size_t>(size));
    return text;
}

} // namespace

Finished RunProcess(const std::vector<std::string>& command, const std::vector<std::string>& environment) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        throw Error("no pipe");
    std::fflush(stdout); // or the child would write it again
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipe[1], STDOUT_FILENO);
        ::close(pipe[0]);
        ::close(pipe[1]);
        Become(command, environment);
    }
    ::close(pipe[1]);
    Finished finished{ReadToEnd(pipe[0]), 0};
    ::close(pipe[0]);
    int status = 0;
    struct rusage usage {};
    ::wait4(child, &status, 0, &usage);
    if (status != 0)
        throw Error(command[0] + " failed");
    finished.peakMegabytes = static_cast<double>(usage.ru_maxrss) / 1024;
    return finished;
}

} // namespace velmora::bench
