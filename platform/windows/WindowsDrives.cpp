#include "platform/windows/WindowsDrives.h"

#include "base/windows/Api.h"

namespace velmora {

std::vector<Drive> WindowsDrives::List() const {
    std::vector<Drive> drives;
    const DWORD present = ::GetLogicalDrives();
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        const std::wstring root = {letter, L':', L'\\'};
        if ((present >> (letter - L'A') & 1U) == 0)
            continue;
        const UINT type = ::GetDriveTypeW(root.c_str());
        if (type != DRIVE_NO_ROOT_DIR && type != DRIVE_UNKNOWN)
            drives.push_back({root, type == DRIVE_REMOTE ? DriveKind::Network : DriveKind::Disk});
    }
    return drives;
}

} // namespace velmora
