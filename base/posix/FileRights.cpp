#include "base/posix/FileRights.h"

#include "base/Text.h"

#include <cerrno>
#include <optional>
#include <string>
#include <sys/xattr.h>
#include <unistd.h>

namespace velmora {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

/// One attribute of a file; nullopt where it has none, or the file system knows of none.
std::optional<std::string> Attribute(const std::filesystem::path& path, const char* name) {
    std::string value(XATTR_SIZE_MAX, '\0');
    const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
    if (size < 0)
        return std::nullopt;
    value.resize(static_cast<std::size_t>(size));
    return value;
}

std::string AttributeNames(const std::filesystem::path& path) {
    std::string names(XATTR_LIST_MAX, '\0');
    const ssize_t size = ::listxattr(path.c_str(), names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    return names;
}

bool CopyAttributes(const SystemFile& file, const std::filesystem::path& old) {
    const std::string names = AttributeNames(old);
    for (const std::string_view name : Split(names, '\0')) {
        if (!name.starts_with("user."))
            continue;
        const std::string attribute(name);
        const auto value = Attribute(old, attribute.c_str());
        if (value && ::fsetxattr(file.Get(), attribute.c_str(), value->data(), value->size(), 0) != 0)
            return false;
    }
    return true;
}

/// Also none where the old file has none: the folder may have given the new one a list of its own.
bool CopyAccessList(const SystemFile& file, const std::filesystem::path& old) {
    if (const auto list = Attribute(old, kAccessList))
        return ::fsetxattr(file.Get(), kAccessList, list->data(), list->size(), 0) == 0;
    return ::fremovexattr(file.Get(), kAccessList) == 0 || errno == ENODATA || errno == ENOTSUP;
}

} // namespace

bool TakeRights(const SystemFile& file, const std::filesystem::path& old, const struct stat& oldStatus,
                Readers readers) {
    struct stat made {};
    if (::fstat(file.Get(), &made) != 0)
        return false;
    const bool sameOwner = made.st_uid == oldStatus.st_uid && made.st_gid == oldStatus.st_gid;
    if (!sameOwner && ::fchown(file.Get(), oldStatus.st_uid, oldStatus.st_gid) != 0)
        return false;
    if (readers == Readers::OwnerAlone)
        return true;
    return CopyAttributes(file, old) && CopyAccessList(file, old) &&
           ::fchmod(file.Get(), oldStatus.st_mode & 07777) == 0;
}

} // namespace velmora
