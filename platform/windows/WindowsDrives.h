// The drives with a letter.
#pragma once

#include "platform/Drives.h"

namespace velmora {

class WindowsDrives : public Drives {
public:
    std::vector<Drive> List() const override;
};

} // namespace velmora
