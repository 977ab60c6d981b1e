// The windows that the start-up opens, as they are on the screen.
#pragma once

#include "app/Start.h"
#include "app/ui/mdiVelmora.h"
#include "widgets/AltKeys.h"
#include "widgets/ListSearch.h"

#include <memory>

namespace velmora {

class QtForms : public Forms {
public:
    explicit QtForms(Program& program) : program_(program) {}
    void ShowMainWindow() override;
    void ShowStartPage() override;
    LostAnswer ShowLost(const std::vector<RecoveredDocument>& lost) override;
    void ShowPrinterSetup() override;
    void ShowMarginSetup() override;
    LoadOutcome ShowPageSetup() override;
    void ShowSettingsEditor() override;
    /// The main window, which lives as long as this; null before the start-up has opened it.
    mdiVelmora* Window() const { return window_.get(); }

private:
    Program& program_;
    AltKeys altKeys_;
    ListSearch listSearch_;
    std::unique_ptr<mdiVelmora> window_;
};

} // namespace velmora
