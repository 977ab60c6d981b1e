#include "app/Commands.h"

#include "document/Dialogs.h"
#include "document/SaveDocument.h"

namespace velmora {
void NewCommand(MainModule& main) {
    const Answer answer = main.document.DocFileName.empty() ? Answer::No : AskToSave(main);
    const bool replace =
        answer == Answer::No || (answer == Answer::Yes && SaveLabels(main, false) == SaveOutcome::Saved);
    if (answer == Answer::Yes && !replace)
        return; // what could not be saved stays, with its name
    if (replace)
        NewDocument(main);
    main.document.DocFileName.clear();
    ShowCaption(main);
}

OpenOutcome OpenCommand(MainModule& main) {
    const OpenOutcome outcome = OpenNewFile(main);
    if (outcome == OpenOutcome::Failed)
        Tell(main, "The file could not be opened successfully");
    return outcome;
}

bool CloseCommand(MainModule& main) {
    if (!main.document.DocChanged || AskToSave(main) != Answer::Yes)
        return true;
    return SaveLabels(main, false) == SaveOutcome::Saved;
}

} // namespace velmora
