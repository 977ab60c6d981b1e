// Find and replace over all pages.
#pragma once

#include "workspace/Undo.h"
#include "workspace/mdlMain.h"

#include <cstddef>
#include <optional>
#include <string>

namespace velmora {

struct FindRequest {
    std::string find; ///< an empty text is nowhere
    std::string replaceWith;
    bool matchCase = false;
    std::optional<int> field = std::nullopt; ///< 0 to 2; nullopt: every field in use
};

enum class FindOutcome { Found, FoundFromTop, NotFound, LastReplaced };

/// The n-th of so many matches in the whole document.
struct MatchCount {
    int at = 0; ///< 0: before the first
    int of = 0;
};

/// Where a text holds what is looked for, for the editor to mark.
MatchFinder MatchesOf(const FindRequest& request);

/// Goes through a document from match to match. Whatever else happens to the document meanwhile, a search starts at the
/// last match as long as its tab has the focus, else at the tab that has it.
class Finder {
public:
    explicit Finder(MainModule& main) : main_(main) {}

    /// Shows the page of the next match and selects it; after the last tab it goes on with the first.
    FindOutcome FindNext(const FindRequest& request);
    /// Where among all matches the one gone to last stands.
    MatchCount Count(const FindRequest& request) const;
    /// Replaces the match that FindNext went to, if it is still there, and goes to the next; LastReplaced without one.
    /// A text that would become longer than its field allows stays, which is said.
    FindOutcome Replace(const FindRequest& request);
    /// Replaces all matches, as one change, and gives the number of texts changed. Texts that would become longer than
    /// their field allows stay; they are shown, with what the limit would cut, before anything changes, and a No has no
    /// effect.
    int ReplaceAll(const FindRequest& request);

private:
    struct Match {
        TabBox box;
        std::size_t at = 0; ///< in bytes
        std::size_t length = 0;
        bool operator==(const Match&) const = default;
    };

    Match Start() const;
    std::optional<Match> Search(const FindRequest& request, const Match& start) const;
    FindOutcome GoTo(const std::optional<Match>& match, const Match& start);

    MainModule& main_;
    std::optional<Match> last_;
};

} // namespace velmora
