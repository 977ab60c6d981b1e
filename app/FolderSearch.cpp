#include "app/FolderSearch.h"

#include "app/settings/Validate.h"
#include "base/Text.h"
#include "document/Dialogs.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

const std::string kGivenUp = "This task will be canceled.";

/// File names of pictures are found whatever their letter case: they come from a system that knows no difference.
bool HoldsFile(const fs::path& folder, const std::string& name) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        if (EqualsNoCase(entry.path().filename().string(), name))
            return true;
    return false;
}

fs::path Store(MainModule& main, const FolderWanted& wanted, const fs::path& folder) {
    SaveFolder(main.settings, wanted.key, folder);
    return WithSeparator(folder);
}

/// The folder that the person had made; nothing when they would rather choose one, or it could not be made.
std::optional<fs::path> Create(MainModule& main, const fs::path& folder) {
    if (FolderExists(folder, true))
        return folder;
    Tell(main, "The folder '" + folder.string() + "' could not be created.", Icon::Critical);
    return std::nullopt;
}

fs::path Choose(MainModule& main, const fs::path& current, const FolderWanted& wanted) {
    const auto chosen = main.ui.ChooseFolder("Open Velmora path", current);
    if (chosen && (wanted.markerFile.empty() || HoldsFile(*chosen, wanted.markerFile)))
        return Store(main, wanted, *chosen);
    Tell(main, chosen ? "The folder '" + chosen->string() + "' does not hold the file '" + wanted.markerFile + "'."
                      : kGivenUp);
    return current;
}

} // namespace

fs::path SearchFolder(MainModule& main, const fs::path& current, const FolderWanted& wanted) {
    if (!wanted.offerToCreate)
        return Choose(main, current, wanted);
    const Answer answer =
        Ask(main, "The '" + current.string() + "' directory cannot be found.\r\nDo you want to create it?",
            Buttons::YesNoCancel);
    if (answer == Answer::Cancel) {
        Tell(main, kGivenUp);
        return current;
    }
    if (const auto made = answer == Answer::Yes ? Create(main, current) : std::nullopt)
        return Store(main, wanted, *made);
    return Choose(main, current, wanted);
}

} // namespace velmora
