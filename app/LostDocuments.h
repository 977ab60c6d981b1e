// What programs that have ended left unsaved is offered at the start, before all else. What a person did not choose to
// have back or to give up stays, for File > Recover and for the next start.
#pragma once

#include "platform/Desktop.h"
#include "workspace/mdlMain.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace velmora {

enum class LostChoice {
    Later,
    Recover,
    Discard ///< to the last ten of File > Recover
};

/// What a person wants of a list of lost documents.
struct LostAnswer {
    LostChoice choice = LostChoice::Later;
    std::vector<std::size_t> which{}; ///< indexes into the list; none for Later
};

/// Shows the list, newest first, at least one.
using ChooseLost = std::function<LostAnswer(const std::vector<RecoveredDocument>& lost)>;

/// Offers what was lost: a single document by a question, several in one list. What is wanted opens here and, from the
/// second on, in windows of their own; where `file` (empty: none) is to be opened here, only that file's own document
/// does. True when a document came back here, and `file` is not to be opened any more.
bool OfferLost(MainModule& main, Desktop& desktop, const std::filesystem::path& file, const ChooseLost& choose);

} // namespace velmora
