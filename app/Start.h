// The start of the program: configuration, folders, main window.
#pragma once

#include "app/Program.h"
#include "workspace/Globals.h"

#include <string>

namespace velmora {

/// The windows that the start-up opens.
class Forms {
public:
    virtual ~Forms() = default;
    virtual void ShowMainWindow() = 0;
    // The set-up dialogs: modal, over the main window.
    virtual void ShowPrinterSetup() = 0;
    virtual void ShowMarginSetup() = 0;
    /// NoPrinter: as LoadGlobals says.
    virtual LoadOutcome ShowPageSetup() = 0;
    /// Modal: returns when it is closed.
    virtual void ShowSettingsEditor() = 0;
};

enum class StartOutcome { Running, Ended };

/// The start-up sequence. `commandLine` is the whole of it, without the program's own name: "SETTINGS" in any letter
/// case, the path of a file to open, or empty. Ended: the process has nothing more to do.
StartOutcome Main(Program& program, const std::string& commandLine, Forms& forms);

} // namespace velmora
