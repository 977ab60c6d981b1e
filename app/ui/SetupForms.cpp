#include "app/ui/SetupForms.h"

#include "print/PrintReport.h"
#include "setup/ui/frmAutoPrtWiz.h"
#include "setup/ui/frmFix3.h"
#include "setup/ui/frmPageSetUp.h"
#include "workspace/Dialogs.h"
#include "workspace/Globals.h"

#include <QApplication>

namespace velmora {
namespace {

/// One sheet of fixed texts, as the set-up stands.
std::function<void(std::int32_t)> TestPagePrinter(Program& program) {
    return [&program](std::int32_t tabs) {
        ReportRequest request = DocumentRequest(program.main.document, "TEST");
        request.count = tabs;
        if (PrintReport(program.print, "TestPage", request) == PrintOutcome::NoPrinter)
            QApplication::exit();
    };
}

} // namespace

void ShowPrinterSetup(Program& program, QWidget* parent) {
    Trapped(program.main.ui, "Called from Sub: frmAutoPrtWiz1",
            [&] { RunPrinterWizard(program.main, TestPagePrinter(program), parent); });
}

void ShowMarginSetup(Program& program, QWidget* parent) {
    Trapped(program.main.ui, "Called from Sub: frmFix3", [&] { frmFix3(program.print, parent).exec(); });
}

LoadOutcome ShowPageSetup(Program& program, QWidget* parent) {
    LoadOutcome outcome = LoadOutcome::Loaded;
    Trapped(program.main.ui, "Called from Sub: frmPageSetUp",
            [&] { outcome = frmPageSetUp(program.main, TestPagePrinter(program), parent).Run(); });
    return outcome;
}

} // namespace velmora
