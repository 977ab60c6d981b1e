#include "app/Commands.h"

#include "base/Paths.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Recovery.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/RestoreDocument.h"
#include "workspace/SaveDocument.h"
#include "workspace/Undo.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace velmora {
void NewCommand(MainModule& main) {
    const Answer answer = main.document.DocFileName.empty() ? Answer::No : AskToSave(main.ui);
    const bool replace =
        answer == Answer::No || (answer == Answer::Yes && SaveLabels(main, SaveKind::Save) == SaveOutcome::Saved);
    if (answer == Answer::Yes && !replace)
        return; // what could not be saved stays, with its name
    if (replace)
        NewDocument(main);
    main.document.DocFileName.clear();
    ShowCaption(main);
}

OpenOutcome OpenCommand(MainModule& main, OpenKind kind) {
    const OpenOutcome outcome = OpenNewFile(main, kind);
    if (outcome == OpenOutcome::Failed)
        Tell(main.ui, "The file could not be opened successfully");
    return outcome;
}

bool CloseCommand(MainModule& main) {
    if (!main.document.DocChanged) {
        KeepRecoveryCopy(main); // which removes what was kept before the changes were taken back
        return true;
    }
    const Answer answer = AskToSave(main.ui);
    if (answer == Answer::Yes)
        return SaveLabels(main, SaveKind::Save) == SaveOutcome::Saved;
    if (answer == Answer::No)
        main.recovery.Drop();
    else
        KeepRecoveryCopy(main); // the next start offers it
    return true;
}

bool RestoreCommand(MainModule& main, const RecoveredDocument& document) {
    return Trapped(main.ui, "Called from Sub: RestoreCommand", [&] {
        RestoreDocument(main, document);
        ShowCaption(main);
    });
}

std::string LocalTime(std::chrono::system_clock::time_point time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::array<char, 64> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", std::localtime(&seconds));
    return text.data();
}

void OpenBeside(UserInterface& ui, Desktop& desktop, const std::vector<std::filesystem::path>& files) {
    std::size_t opened = 0;
    while (opened < std::min(files.size(), kMostWindows) && desktop.StartAnother(files[opened], opened + 1))
        ++opened;
    std::string left;
    for (std::size_t i = opened; i < std::min(files.size(), opened + kMostWindows); ++i)
        left += "\r\n[" + PathText(files[i]) + "]";
    if (opened < files.size())
        Tell(ui, "Files not opened: " + std::to_string(files.size() - opened) + left, Icon::Exclamation);
}

} // namespace velmora
