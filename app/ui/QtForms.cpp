#include "app/ui/QtForms.h"

#include "app/StartPage.h"
#include "app/ui/HelpDesk.h"
#include "app/ui/SetupForms.h"
#include "app/ui/frmRecover.h"
#include "app/ui/frmSettings.h"

namespace velmora {

void QtForms::ShowMainWindow() {
    window_ = std::make_unique<mdiVelmora>(program_);
    window_->show();
}

void QtForms::ShowStartPage() {
    if (WantsStartPage(program_.main.settings))
        window_->ShowStartPage();
}

LostAnswer QtForms::ShowLost(const std::vector<RecoveredDocument>& lost) {
    frmRecover form(program_.main.settings, lost, Window());
    form.exec();
    return form.Answer();
}

void QtForms::ShowPrinterSetup() {
    velmora::ShowPrinterSetup(program_, Window());
}

void QtForms::ShowMarginSetup() {
    velmora::ShowMarginSetup(program_, Window());
}

LoadOutcome QtForms::ShowPageSetup() {
    return velmora::ShowPageSetup(program_, Window());
}

void QtForms::ShowSettingsEditor() {
    frmSettings form(program_.main);
    new HelpDesk(program_.main, &form);
    form.exec();
}

} // namespace velmora
