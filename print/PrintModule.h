// What printing shares from one run to the next.
#pragma once

#include "platform/FontCatalogue.h"
#include "print/ReportViewer.h"
#include "report/rptVelmor.h"
#include "workspace/Seat.h"
#include "workspace/mdlMain.h"

#include <string>

namespace velmora {

struct PrintModule {
    MainModule& main;
    LayoutValues& layout;
    const FontCatalogue& catalogue;
    Seat<ReportViewer> viewer{};     ///< taken while a main window lives
    bool PrinterProblem = false;     ///< the last SetupPrinter met an error
    std::string CurrentPrinter = {}; ///< the application's own, once one was chosen
};

} // namespace velmora
