// The functions stand in the program itself, before those of the system's library. What they do not change they hand
// on.
#include "tests/support/FaultyCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace velmora {
namespace {

struct State {
    Fault fault = Fault::None;
    int at = 0;
    int count = 0;
    bool armed = false;
    bool refusesOwners = false;
};

State state;

[[noreturn]] void Kill() {
    ::kill(::getpid(), SIGKILL);
    std::abort();
}

int ErrorOf(Fault fault) {
    switch (fault) {
    case Fault::NoSpace: return ENOSPC;
    case Fault::Quota: return EDQUOT;
    case Fault::InputOutput:
    case Fault::BrokenDisk: return EIO;
    case Fault::Interrupted: return EINTR;
    default: return 0;
    }
}

/// Calls `real`, unless this call is the one that a fault befalls; `half` is what a kill within it leaves done.
template <typename Result, typename Real, typename Half> Result Call(Real real, Half half) {
    const bool counted = state.armed && ++state.count >= state.at && state.at > 0;
    if (!counted || (state.count > state.at && state.fault != Fault::BrokenDisk))
        return real();
    if (state.fault == Fault::KillIn)
        half();
    if (state.fault == Fault::KillBefore || state.fault == Fault::KillIn)
        Kill();
    if (const int error = ErrorOf(state.fault)) {
        errno = error;
        return Result{-1};
    }
    const Result result = real();
    if (state.fault == Fault::KillAfter)
        Kill();
    return result;
}

template <typename Result, typename Real> Result Call(Real real) {
    return Call<Result>(real, [] {});
}

int System(long result) {
    return static_cast<int>(result);
}

} // namespace

void ArmFault(Fault fault, int at) {
    state = {fault, at, 0, true, state.refusesOwners};
}
int DisarmFault() {
    state.armed = false;
    return state.count;
}
void RearmFault() {
    state.armed = true;
}
void RefuseOwners(bool refuse) {
    state.refusesOwners = refuse;
}

} // namespace velmora

using velmora::Call;
using velmora::System;

extern "C" {
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the library's are reserved

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return Call<int>([&] { return System(::syscall(SYS_openat, AT_FDCWD, path, flags, mode)); });
}

ssize_t write(int file, const void* bytes, size_t size) {
    const auto put = [&](size_t part) { return static_cast<ssize_t>(::syscall(SYS_write, file, bytes, part)); };
    return Call<ssize_t>([&] { return put(size); }, [&] { put(size / 2); });
}

int fsync(int file) {
    return Call<int>([&] { return System(::syscall(SYS_fsync, file)); });
}
int rename(const char* from, const char* to) noexcept {
    return Call<int>([&] { return System(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0)); });
}
int unlink(const char* path) noexcept {
    const auto real = [&] { return System(::syscall(SYS_unlinkat, AT_FDCWD, path, 0)); };
    return velmora::state.fault == velmora::Fault::BrokenDisk ? real() : Call<int>(real);
}
int ftruncate(int file, off_t size) noexcept {
    return Call<int>([&] { return System(::syscall(SYS_ftruncate, file, size)); });
}
/// Gives the error itself, as the standard has it.
int posix_fallocate(int file, off_t from, off_t size) {
    const int result = Call<int>([&] { return System(::syscall(SYS_fallocate, file, 0, from, size)); });
    return result == 0 ? 0 : errno;
}
int fchmod(int file, mode_t mode) noexcept {
    return Call<int>([&] { return System(::syscall(SYS_fchmod, file, mode)); });
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    if (velmora::state.refusesOwners) {
        errno = EPERM;
        return -1;
    }
    return Call<int>([&] { return System(::syscall(SYS_fchown, file, owner, group)); });
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return Call<int>([&] { return System(::syscall(SYS_fsetxattr, file, name, value, size, flags)); });
}
int stat(const char* path, struct stat* status) noexcept {
    return Call<int>([&] { return System(::syscall(SYS_newfstatat, AT_FDCWD, path, status, 0)); });
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
} // extern "C"
