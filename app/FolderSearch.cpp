#include "app/FolderSearch.h"

#include "app/settings/Validate.h"
#include "base/Text.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// File names of pictures are found whatever their letter case: they come from a system that knows no difference.
bool HoldsFile(const fs::path& folder, const std::string& name) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        if (EqualsNoCase(entry.path().filename().string(), name))
            return true;
    return false;
}

fs::path Store(MainModule& main, const FolderWanted& wanted, const fs::path& folder) {
    fs::path stored = WithSeparator(folder);
    SaveSetting(main.settings, main.settings.SettingsAppName, "Paths", wanted.key, stored.string());
    return stored;
}

} // namespace

fs::path WithSeparator(const fs::path& folder) {
    return folder.empty() || !folder.has_filename() ? folder : folder / "";
}

fs::path SearchFolder(MainModule& main, const fs::path& current, const FolderWanted& wanted) {
    const std::string& title = main.settings.SettingsAppName;
    if (wanted.offerToCreate &&
        main.ui.Show({"The '" + current.string() + "' directory cannot be found.\r\nDo you want to create it?", title,
                      Icon::Question, Buttons::YesNoCancel}) == Answer::Yes &&
        FolderExists(current, true))
        return Store(main, wanted, current);
    const auto chosen = main.ui.ChooseFolder("Open Velmora path", current);
    if (chosen && (wanted.markerFile.empty() || HoldsFile(*chosen, wanted.markerFile)))
        return Store(main, wanted, *chosen);
    if (chosen)
        main.ui.Show({"The folder '" + chosen->string() + "' does not hold the file '" + wanted.markerFile + "'.",
                      title, Icon::Information});
    else
        main.ui.Show({"This task will be canceled.", title, Icon::Information});
    return current;
}

} // namespace velmora
