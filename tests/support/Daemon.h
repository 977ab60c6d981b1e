// Another program that runs while a test does, and a port for it.
#pragma once

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velmora {

/// A port that was free a moment ago.
inline int FreePort() {
    const int probe = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(::bind(probe, reinterpret_cast<sockaddr*>(&address), size), 0);
    ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(probe);
    return ntohs(address.sin_port);
}

/// A program in the background, ended with its keeper.
class Daemon {
public:
    explicit Daemon(std::vector<std::string> command) : process_(::fork()) {
        if (process_ != 0)
            return;
        ::setenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin", 1);
        std::vector<char*> arguments;
        for (std::string& argument : command)
            arguments.push_back(argument.data());
        arguments.push_back(nullptr);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    ~Daemon() {
        Kill(SIGTERM);
        ::waitpid(process_, nullptr, 0);
    }
    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;
    void Kill(int signal) const { ::kill(process_, signal); }

private:
    pid_t process_;
};

} // namespace velmora
