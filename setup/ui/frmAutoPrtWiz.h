// The pages of the printer set-up wizard, frmAutoPrtWiz1 to frmAutoPrtWiz5: printer, stationery, test page,
// trouble-shooting, and the labels that came out upside-down.
#pragma once

#include "workspace/mdlMain.h"

#include <cstdint>
#include <functional>

class QWidget;

namespace velmora {

/// Shows the wizard until it is closed. `printTestPage` prints that many tabs of the document with fixed texts.
void RunPrinterWizard(MainModule& main, const std::function<void(std::int32_t tabs)>& printTestPage, QWidget* parent);

} // namespace velmora
