// Pictures of the stationery and of a tab, from the images folder.
#pragma once

#include "document/mdlMain.h"

#include <QPixmap>

#include <string>

namespace velmora {

/// The picture of that file name, whatever its letter case on disk; the search for a missing one is offered once in a
/// run. Nothing (a null picture) for a file that is missing or no picture, which is said.
QPixmap LoadTabPicture(MainModule& main, const std::string& fileName);

} // namespace velmora
