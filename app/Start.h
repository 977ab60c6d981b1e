// The start of the program: configuration, folders, main window.
#pragma once

#include "app/CommandLine.h"
#include "app/LostDocuments.h"
#include "app/Program.h"
#include "workspace/Globals.h"

namespace velmora {

/// The windows that the start-up opens.
class Forms {
public:
    virtual ~Forms() = default;
    virtual void ShowMainWindow() = 0;
    /// In the main window, while no other document is to come; modal are all that follow.
    virtual void ShowStartPage() = 0;
    /// As ChooseLost.
    virtual LostAnswer ShowLost(const std::vector<RecoveredDocument>& lost) = 0;
    virtual void ShowPrinterSetup() = 0;
    virtual void ShowMarginSetup() = 0;
    /// NoPrinter: as LoadGlobals says.
    virtual LoadOutcome ShowPageSetup() = 0;
    /// Without a main window: returns when it is closed.
    virtual void ShowSettingsEditor() = 0;
};

enum class StartOutcome { Running, Ended };

/// The start-up sequence. The first file of the command line is opened here, or brought back where it is a copy in the
/// folder of recovery copies, each other one in a window of its own. Ended: the process has nothing more to do.
StartOutcome Main(Program& program, const CommandLine& commandLine, Forms& forms);

} // namespace velmora
