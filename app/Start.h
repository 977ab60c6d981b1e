// The start of the program: configuration, folders, main window.
#pragma once

#include "app/LostDocuments.h"
#include "app/Program.h"
#include "workspace/Globals.h"

#include <string>

namespace velmora {

/// The windows that the start-up opens.
class Forms {
public:
    virtual ~Forms() = default;
    virtual void ShowMainWindow() = 0;
    /// As ChooseLost: modal, over the main window, like all that follow.
    virtual LostAnswer ShowLost(const std::vector<RecoveredDocument>& lost) = 0;
    virtual void ShowPrinterSetup() = 0;
    virtual void ShowMarginSetup() = 0;
    /// NoPrinter: as LoadGlobals says.
    virtual LoadOutcome ShowPageSetup() = 0;
    /// Without a main window: returns when it is closed.
    virtual void ShowSettingsEditor() = 0;
};

enum class StartOutcome { Running, Ended };

/// The start-up sequence. `commandLine` is the whole of it, without the program's own name: "SETTINGS" in any letter
/// case, the path of a file to open, or of a copy in the folder of recovery copies to bring back, or empty. Ended: the
/// process has nothing more to do.
StartOutcome Main(Program& program, const std::string& commandLine, Forms& forms);

} // namespace velmora
