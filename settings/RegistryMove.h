// The settings of an older installation lie in the machine's registry. The first start moves them into the
// INI file.
#pragma once

#include "settings/mdlSettings.h"

#include <filesystem>

namespace velmora {

/// True where an older installation stored settings, also in a registry that cannot be read: that is no proof that
/// there was none.
bool HasOldSettings(const SettingsStore& store);

enum class MoveResult {
    NothingThere,
    Moved,
    PartlyFailed ///< the values that could not be written, or not be removed, are still in the registry
};

/// Moves every value of every section of the store's application. A value leaves the registry only when it is
/// in the file on disk, inside a batch too; the sections' keys stay. Afterwards `SaveMode` is 1. Failures are
/// reported, each kind once.
MoveResult MoveRegistrySettings(SettingsStore& store);

/// Copies every setting of the store's application from a registry export, which stays as it is, into the INI file, all
/// of them or none; gives their number. Left out are folders that this machine does not have. It goes past `Own`: an
/// open document keeps its properties. Raises Error for a file that is damaged or out of reach, or an INI file that
/// cannot be written.
int ImportRegistryExport(SettingsStore& store, const std::filesystem::path& file);

} // namespace velmora
