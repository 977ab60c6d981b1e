// The file systems that a search of the machine may meet.
#pragma once

#include <filesystem>
#include <vector>

namespace velmora {

enum class DriveKind {
    Disk,
    Network,
    Virtual ///< holds nothing that a person put there
};

struct Drive {
    std::filesystem::path root; ///< where it hangs in the folder tree
    DriveKind kind = DriveKind::Disk;
    bool operator==(const Drive&) const = default;
};

/// Itself it knows of none: then no search of the machine is offered.
class Drives {
public:
    virtual ~Drives() = default;
    /// Every file system, virtual ones too: a search that meets the root of one it does not want turns back there.
    virtual std::vector<Drive> List() const { return {}; }
};

} // namespace velmora
