#include "base/Paths.h"
#include "base/Text.h"
#include "workspace/FolderSearch.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <system_error>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kWholeSearch = 10000;

/// What one look at a folder shows.
struct Contents {
    std::vector<fs::path> folders;
    std::size_t found = 0; ///< of the files searched for
};

class Search {
public:
    Search(const std::vector<Drive>& drives, const std::vector<std::string>& names, bool network) : names_(names) {
        for (const Drive& drive : drives) {
            const bool wanted = drive.kind == DriveKind::Disk || (network && drive.kind == DriveKind::Network);
            (wanted ? roots_ : walls_).push_back(drive.root);
        }
    }

    SearchEnd Run(Progress& progress, fs::path& found) {
        std::deque<fs::path> pending; // level by level, so that the nearest folder is found
        for (const fs::path& root : roots_)
            if (!IsBelowAnother(root) && std::find(pending.begin(), pending.end(), root) == pending.end())
                pending.push_back(root);
        std::size_t shown = 0;
        for (std::size_t done = 0; !pending.empty(); ++done, pending.pop_front()) {
            // How many folders will come to light is not known: the bar never goes back.
            shown = std::max(shown, done * kWholeSearch / (done + pending.size()));
            progress.Advance(static_cast<int>(shown));
            if (progress.Cancelled())
                return SearchEnd::Cancelled;
            Contents contents = Look(pending.front());
            if (contents.found == names_.size()) {
                found = pending.front();
                return SearchEnd::Found;
            }
            std::move(contents.folders.begin(), contents.folders.end(), std::back_inserter(pending));
        }
        return SearchEnd::NotFound;
    }

private:
    /// Reached on the way down from the other root.
    bool IsBelowAnother(const fs::path& root) const {
        return std::any_of(roots_.begin(), roots_.end(), [&](const fs::path& other) {
            const auto [end, mismatch] = std::mismatch(other.begin(), other.end(), root.begin(), root.end());
            return other != root && (end == other.end() || end->empty());
        });
    }

    /// A folder that may not be read shows nothing.
    Contents Look(const fs::path& folder) const {
        Contents contents;
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            std::error_code ignored;
            if (!entry->is_symlink(ignored) && entry->is_directory(ignored)) { // known without a look at the entry
                if (std::find(walls_.begin(), walls_.end(), entry->path()) == walls_.end())
                    contents.folders.push_back(entry->path());
            } else if (IsWanted(PathText(entry->path().filename())))
                ++contents.found;
        }
        return contents;
    }

    bool IsWanted(const std::string& name) const {
        return std::any_of(names_.begin(), names_.end(),
                           [&](const std::string& wanted) { return EqualsNoCase(wanted, name); });
    }

    const std::vector<std::string>& names_;
    std::vector<fs::path> roots_;
    std::vector<fs::path> walls_;
};

} // namespace

SearchEnd SearchDrives(MainModule& main, const std::vector<std::string>& names, bool network, fs::path& found) {
    const auto progress =
        main.ui.StartCancellable("Searching for '" + names.front() + "' ...", static_cast<int>(kWholeSearch));
    return Search(main.drives->List(), names, network).Run(*progress, found);
}

} // namespace velmora
