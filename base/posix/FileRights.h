// What a file that takes another's place must have of it.
#pragma once

#include "base/AtomicFile.h"
#include "base/posix/SystemFile.h"

#include <sys/stat.h>

namespace velmora {

inline constexpr mode_t kOwnerAlone = 0600;
inline constexpr mode_t kAllThatTheFolderGives = 0666; ///< less what the person's mask and the folder's list take away

/// Owner, group, mode, access control list and a person's extended attributes of the old file; of one that is for its
/// owner alone only owner and group. The mode comes last, so that the new file is at no time open to more people. False
/// where one of them cannot be had.
bool TakeRights(const SystemFile& file, const std::filesystem::path& old, const struct stat& oldStatus,
                Readers readers);

} // namespace velmora
