// The mounted file systems.
#pragma once

#include "platform/Drives.h"

#include <string_view>

namespace velmora {

class LinuxDrives : public Drives {
public:
    std::vector<Drive> List() const override;
};

/// The rows of a text in the form of /proc/self/mountinfo; a row that is none is left out.
std::vector<Drive> ReadMounts(std::string_view text);

} // namespace velmora
