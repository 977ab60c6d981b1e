#include "base/ScratchNames.h"

#include <set>

namespace velmora {
namespace {

/// One process has one set of files, whoever makes them; it lives as long as the process, whose threads may be late.
struct Held {
    std::mutex mutex;
    std::set<std::filesystem::path> names;
};

Held& All() {
    static Held& all = *new Held; // NOLINT(cppcoreguidelines-owning-memory)
    return all;
}

} // namespace

void ScratchName::Set(std::filesystem::path path, Outlives outlives) {
    const std::lock_guard lock(All().mutex);
    All().names.erase(path_);
    path_ = std::move(path);
    if (!path_.empty() && outlives == Outlives::Nothing)
        All().names.insert(path_);
}

std::unique_lock<std::mutex> HoldInterruptions() {
    return std::unique_lock(All().mutex);
}

void RemoveScratchFiles() noexcept {
    All().mutex.lock(); // and never unlocked
    for (const auto& name : All().names) {
        std::error_code error;
        std::filesystem::remove_all(name, error);
    }
}

} // namespace velmora
