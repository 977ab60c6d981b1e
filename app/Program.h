// One running program: everything that lives as long as it does, made in main() and passed by reference.
#pragma once

#include "platform/Desktop.h"
#include "platform/FontCatalogue.h"
#include "print/PrintModule.h"
#include "workspace/Seat.h"
#include "workspace/mdlMain.h"

#include <string>

namespace velmora {

struct Program {
    MainModule main;
    LayoutValues layout;
    const FontCatalogue& fontCatalogue;
    std::string Title; ///< application title: name and version
    PrintModule print{main, layout, fontCatalogue};
    Seat<Desktop> desktop{}; ///< while nobody takes it no other program is started
    int beside = 0;          ///< the window's number among those that were opened with another one
};

} // namespace velmora
