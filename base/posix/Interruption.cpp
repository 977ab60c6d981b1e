#include "base/Interruption.h"

#include "base/ScratchNames.h"

#include <csignal>
#include <pthread.h>
#include <thread>
#include <unistd.h>

namespace velmora {
namespace {

sigset_t Interruptions() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&signals, number);
    }
    return signals;
}

/// A handler could do next to nothing; a thread that waits may do anything.
void WaitFor(sigset_t signals) {
    int number = SIGTERM;
    ::sigwait(&signals, &number);
    RemoveScratchFiles();
    std::signal(number, SIG_DFL); // NOLINT(cert-err33-c)
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    ::raise(number);
}

} // namespace

void RemoveTemporaryFiles() {
    RemoveScratchFiles();
}

void RemoveTemporaryFilesWhenInterrupted() {
    const sigset_t signals = Interruptions();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread(WaitFor, signals).detach();
}

} // namespace velmora
