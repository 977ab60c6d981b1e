#include "platform/qt/Endings.h"

#include "base/Interruption.h"

#include <QSocketNotifier>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <sys/socket.h>
#include <unistd.h>

namespace velmora {
namespace {

/// A signal's handler and what runs at exit are given nothing: what they need stands here.
struct Leaving {
    std::function<void()> leave; ///< empty: nothing is left to do
    int wake[2] = {-1, -1};      ///< a handler may write to a socket, and little else
};

Leaving& TheLeaving() {
    static Leaving leaving;
    return leaving;
}

void LeaveOnce() noexcept {
    const std::function<void()> leave = std::exchange(TheLeaving().leave, {});
    try {
        if (leave)
            leave();
    } catch (const std::exception&) {} // nobody is left to read it
}

void Handle(int signal) {
    const auto number = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = ::write(TheLeaving().wake[0], &number, 1);
}

void Catch(int signal) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action.sa_handler = Handle;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

/// Not through the event loop: the procedures that wait for a dialog would go on.
void EndBySignal() {
    char number = SIGTERM;
    [[maybe_unused]] const ssize_t got = ::read(TheLeaving().wake[1], &number, 1);
    LeaveOnce();
    RemoveTemporaryFiles();
    std::signal(number, SIG_DFL); // NOLINT(cert-err33-c)
    ::raise(number);
}

} // namespace

Endings::Endings(std::function<void()> leave) {
    Leaving& leaving = TheLeaving();
    leaving.leave = std::move(leave);
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, leaving.wake) != 0)
        return;
    auto* notifier = new QSocketNotifier(leaving.wake[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [] { EndBySignal(); });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        Catch(signal);
    std::atexit(LeaveOnce); // the toolkit exits when the display is lost NOLINT(cert-err33-c)
}

Endings::~Endings() {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        std::signal(signal, SIG_DFL); // NOLINT(cert-err33-c)
    Leaving& leaving = TheLeaving();
    leaving.leave = {};
    for (int& end : leaving.wake)
        ::close(std::exchange(end, -1));
}

} // namespace velmora
