#include "workspace/Dialogs.h"

#include "base/Paths.h"
#include "base/Validate.h"

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
    return !FileExists(path) || Ask(main, "Do you want to overwrite the following file?\r\n[" + PathText(path) + "]",
                                    Buttons::YesNo, Answer::No) == Answer::Yes;
}

void TellNoSpreadsheets(MainModule& main) {
    Tell(main,
         "You have to have Microsoft Excel 2000 (or latter) installed on your PC if you want to open or import an "
         "Excel file!",
         Icon::Critical);
}

void ReportError(MainModule& main, std::string_view cause, std::string_view place) {
    Tell(main, std::string(cause) + "\r\n" + std::string(place), Icon::Critical);
}

} // namespace velmora
