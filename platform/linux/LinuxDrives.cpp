#include "platform/linux/LinuxDrives.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace velmora {
namespace {

constexpr std::size_t kRootColumn = 4;

DriveKind KindOf(std::string_view type) {
    constexpr std::string_view disks[] = {
        "ext2", "ext3",  "ext4",  "xfs", "btrfs",   "f2fs",    "jfs", "reiserfs", "zfs",     "vfat",     "msdos",
        "ntfs", "ntfs3", "exfat", "hfs", "hfsplus", "iso9660", "udf", "overlay",  "fuseblk", "bcachefs", "nilfs2"};
    constexpr std::string_view networks[] = {"nfs", "nfs4", "cifs", "smb3", "smbfs", "9p", "afs", "ceph", "virtiofs"};
    if (std::find(std::begin(disks), std::end(disks), type) != std::end(disks))
        return DriveKind::Disk;
    // What a program serves (a cloud, a phone, another machine) is as slow as a network.
    const bool served = type.starts_with("fuse.") && type != "fuse.portal" && type != "fuse.lxcfs" &&
                        type != "fuse.gvfsd-fuse" && !type.starts_with("fuse.snapfuse");
    return served || std::find(std::begin(networks), std::end(networks), type) != std::end(networks)
               ? DriveKind::Network
               : DriveKind::Virtual;
}

/// Blanks and other odd characters stand there as a backslash and three octal digits.
std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view code = text[i] == '\\' ? text.substr(i + 1, 3) : "";
        const bool octal = code.size() == 3 && code.find_first_not_of("01234567") == std::string_view::npos;
        plain += octal ? static_cast<char>((code[0] - '0') * 64 + (code[1] - '0') * 8 + (code[2] - '0')) : text[i];
        i += octal ? 3 : 0;
    }
    return plain;
}

} // namespace

std::vector<Drive> ReadMounts(std::string_view text) {
    std::vector<Drive> drives;
    for (const std::string_view line : Split(text, '\n')) {
        const auto columns = Split(line, ' ');
        const auto dash = std::find(columns.begin(), columns.end(), "-"); // a varying number of columns before it
        if (columns.size() > kRootColumn && columns.end() - dash > 1)
            drives.push_back({PathOf(Unescaped(columns[kRootColumn])), KindOf(*std::next(dash))});
    }
    return drives;
}

std::vector<Drive> LinuxDrives::List() const {
    try {
        return ReadMounts(ReadFile("/proc/self/mountinfo"));
    } catch (const FileAccessError&) {
        return {{"/", DriveKind::Disk}};
    }
}

} // namespace velmora
