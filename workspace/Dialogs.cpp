#include "workspace/Dialogs.h"

#include "base/Validate.h"
#include "workspace/Recovery.h"

#include <utility>

namespace velmora {

void Tell(MainModule& main, const std::string& text, Icon icon) {
    main.ui.Show({text, main.settings.SettingsAppName, icon});
}

Answer Ask(MainModule& main, const std::string& text, Buttons buttons, std::optional<Answer> defaultButton) {
    return main.ui.Show({text, main.settings.SettingsAppName, Icon::Question, buttons, defaultButton});
}

Answer AskToSave(MainModule& main) {
    return Ask(main, "Do you want to save the current document?", Buttons::YesNoCancel);
}

bool MayOverwrite(MainModule& main, const std::filesystem::path& path) {
    return !FileExists(path) || Ask(main, "Do you want to overwrite the following file?\r\n[" + path.string() + "]",
                                    Buttons::YesNo, Answer::No) == Answer::Yes;
}

void TellNoSpreadsheets(MainModule& main) {
    Tell(main,
         "You have to have Microsoft Excel 2000 (or latter) installed on your PC if you want to open or import an "
         "Excel file!",
         Icon::Critical);
}

void KeepRecoveryCopy(MainModule& main) {
    if (!main.recovery || main.openTransactions > 0)
        return;
    try {
        main.recovery->Keep(main);
        main.recoveryFailureShown = false;
    } catch (const std::exception& error) {
        if (!std::exchange(main.recoveryFailureShown, true))
            ReportError(main, error.what(), "Called from Sub: KeepRecoveryCopy");
    }
}

std::optional<std::filesystem::path> ArchiveDocument(MainModule& main) {
    std::optional<std::filesystem::path> copy;
    if (main.recovery)
        Trapped(main, "Called from Sub: ArchiveDocument", [&] { copy = main.recovery->Archive(main); });
    return copy;
}

void ReportError(MainModule& main, std::string_view cause, std::string_view place) {
    Tell(main, std::string(cause) + "\r\n" + std::string(place), Icon::Critical);
}

} // namespace velmora
