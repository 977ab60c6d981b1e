// What was typed last is in the editor's boxes alone: everything that looks at the document takes the page back first.
#pragma once

#include "workspace/mdlMain.h"

#include <cstdint>

namespace velmora {

/// Copies the page that the editor shows into the document, tabs (page - 1) x tabsPerPage + 1 onward; fields not in use
/// keep their texts.
void SaveLabel(MainModule& main, std::int16_t page, std::int16_t tabsPerPage);
/// SaveLabel for the page shown.
void TakePageBack(MainModule& main);

} // namespace velmora
