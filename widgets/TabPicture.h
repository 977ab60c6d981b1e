// Pictures of the stationery, from the images folder.
#pragma once

#include "workspace/mdlMain.h"

#include <QPixmap>
#include <QSize>

#include <string>

namespace velmora {

/// Takes the picture of any stationery.
inline constexpr QSize kStationeryRoom(222, 298);

/// The picture of that file name, whatever its letter case on disk; the search for a missing one is offered once in a
/// run. A null picture for a file that is missing or no picture, which is said.
QPixmap LoadTabPicture(MainModule& main, const std::string& fileName);

} // namespace velmora
