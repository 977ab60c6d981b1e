#include "workspace/FolderSearch.h"

#include "base/Paths.h"
#include "base/Validate.h"
#include "workspace/Dialogs.h"

#include <algorithm>

namespace velmora {
namespace {

namespace fs = std::filesystem;

const std::string kGivenUp = "This task will be canceled.";
const std::string kChooserTitle = "Open Velmora path";

/// File names of pictures are found whatever their letter case: they come from a system that knows no difference.
bool HoldsFile(const fs::path& folder, const std::string& name) {
    return FindFile(folder, name).has_value();
}

fs::path Store(SettingsStore& settings, const std::string& key, const fs::path& folder) {
    SaveFolder(settings, key, folder);
    return WithSeparator(folder);
}

/// The folder that the person had made; nullopt when they would rather choose one, or it could not be made.
std::optional<fs::path> Create(MainModule& main, const fs::path& folder) {
    if (FolderExists(folder, true))
        return folder;
    Tell(main.ui, "The folder '" + PathText(folder) + "' could not be created.", Icon::Critical);
    return std::nullopt;
}

std::optional<fs::path> Choose(MainModule& main, const fs::path& current, const FolderWanted& wanted) {
    if (const auto chosen = main.ui.ChooseFolder(kChooserTitle, current))
        return Store(main.settings, wanted.key, *chosen);
    Tell(main.ui, kGivenUp);
    return std::nullopt;
}

bool HasNetworkDrives(const MainModule& main) {
    const std::vector<Drive> drives = main.drives->List();
    return std::any_of(drives.begin(), drives.end(),
                       [](const Drive& drive) { return drive.kind == DriveKind::Network; });
}

/// Searches the disks and, where the person wants it, the network; says what came of a search that found nothing.
std::optional<fs::path> FindOnDrives(MainModule& main, std::vector<std::string> names) {
    fs::path found;
    SearchEnd end = SearchDrives(main, names, false, found);
    if (end == SearchEnd::NotFound && HasNetworkDrives(main) &&
        Ask(main.ui,
            "The file '" + names.front() + "' is on none of the disks.\r\nDo you want to search the network too?",
            Buttons::YesNo) == Answer::Yes)
        end = SearchDrives(main, names, true, found);
    if (end == SearchEnd::Found)
        return found;
    Tell(main.ui, end == SearchEnd::Cancelled ? kGivenUp : "The file '" + names.front() + "' was not found.");
    return std::nullopt;
}

/// No, without the question, where there are no drives to search.
Answer AskToSearch(MainModule& main, const std::string& question) {
    return main.drives->List().empty() ? Answer::No : Ask(main.ui, question, Buttons::YesNoCancel);
}

/// Whether the folder was made, and where.
struct Creation {
    Answer answer = Answer::No;
    std::optional<fs::path> folder = std::nullopt;
};

Creation OfferToCreate(MainModule& main, const fs::path& current) {
    const Answer answer =
        Ask(main.ui, "The '" + PathText(current) + "' directory cannot be found.\r\nDo you want to create it?",
            Buttons::YesNoCancel);
    return {answer, answer == Answer::Yes ? Create(main, current) : std::nullopt};
}

std::optional<fs::path> SearchOrChoose(MainModule& main, const fs::path& current, const FolderWanted& wanted) {
    const std::string& word = wanted.captionWord;
    const Answer search = AskToSearch(main, "The '" + word + "' directory cannot be found.\r\nDo you want the " +
                                                "program to search for the " + word + " directory?");
    if (search == Answer::No)
        return Choose(main, current, wanted);
    if (search == Answer::Cancel)
        Tell(main.ui, kGivenUp);
    const auto found = search == Answer::Yes ? FindOnDrives(main, {wanted.markerFile}) : std::nullopt;
    return found ? std::optional(Store(main.settings, wanted.key, *found)) : std::nullopt;
}

std::optional<fs::path> SearchOrChooseFile(MainModule& main, const fs::path& folder, const FileWanted& wanted) {
    const Answer search = AskToSearch(main, "The '" + wanted.captionWord +
                                                "' directory can not be find.\r\nDo you want the program to "
                                                "search for it?");
    if (search == Answer::Yes) {
        const auto found = FindOnDrives(main, {wanted.name, wanted.markerFile});
        return found ? FindFile(*found, wanted.name) : std::nullopt;
    }
    auto chosen = search == Answer::No ? main.ui.ChooseFile({"OPEN", kChooserTitle, folder, wanted.filter, wanted.name})
                                       : std::nullopt;
    if (!chosen)
        Tell(main.ui, kGivenUp);
    return chosen;
}

} // namespace

std::optional<fs::path> SearchFolder(MainModule& main, const fs::path& current, const FolderWanted& wanted) {
    if (!wanted.offerToCreate)
        return SearchOrChoose(main, current, wanted);
    const Creation creation = OfferToCreate(main, current);
    if (creation.folder)
        return Store(main.settings, wanted.key, *creation.folder);
    if (creation.answer != Answer::Cancel)
        return SearchOrChoose(main, current, wanted);
    Tell(main.ui, kGivenUp);
    return std::nullopt;
}

std::optional<fs::path> SearchFile(MainModule& main, fs::path& folder, const FileWanted& wanted) {
    if (auto path = FindFile(folder, wanted.name))
        return path;
    if (main.drives->List().empty())
        return std::nullopt;
    auto found = SearchOrChooseFile(main, folder, wanted);
    if (!found)
        main.drives.Leave(); // no further search is offered in this run
    if (found && HoldsFile(found->parent_path(), wanted.markerFile))
        folder = Store(main.settings, wanted.key, found->parent_path());
    return found;
}

} // namespace velmora
