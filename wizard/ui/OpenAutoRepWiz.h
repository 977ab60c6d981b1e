// The way into the auto-fill wizard, which alone knows the window and all its pages.
#pragma once

#include "wizard/ui/frmAutoRepWiz.h"

namespace velmora {

/// `main` and `fonts` must outlive the wizard, which deletes itself when it is closed.
void OpenAutoRepWiz(MainModule& main, const FontCatalogue& fonts, frmAutoRepWiz::Start start, QWidget* parent);

} // namespace velmora
