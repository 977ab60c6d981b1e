// The icons of toolbars and buttons: simple line drawings in the colour of the desktop's text, light or dark.
#pragma once

#include <QIcon>

namespace velmora {

/// The bundled drawing of that name.
QIcon LineIcon(const char* name);

} // namespace velmora
