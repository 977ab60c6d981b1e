// The settings of an older installation lie in the machine's registry. The first start moves them into the
// INI file.
#pragma once

#include "app/settings/mdlSettings.h"

namespace velmora {

enum class MoveResult {
    NothingThere,
    Moved,
    PartlyFailed ///< the values that could not be written, or not be removed, are still in the registry
};

/// Moves every value of every section of the store's application. A value leaves the registry only when it is
/// in the file on disk, inside a batch too; the sections' keys stay. Afterwards `SaveMode` is 1. Failures are
/// reported, each kind once.
MoveResult MoveRegistrySettings(SettingsStore& store);

} // namespace velmora
