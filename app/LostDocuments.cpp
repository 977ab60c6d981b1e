#include "app/LostDocuments.h"

#include "app/Commands.h"
#include "base/AtomicFile.h"
#include "workspace/Dialogs.h"

namespace velmora {
namespace {

using Documents = std::vector<RecoveredDocument>;

bool IsOf(const RecoveredDocument& document, const std::filesystem::path& file) {
    return document.DocFileName == file || IsSameFile(document.DocFileName, file);
}

void TellNotOpened(UserInterface& ui, std::size_t count) {
    Tell(ui,
         "Documents not brought back yet: " + std::to_string(count) +
             "\r\nFile > Recover has them, and the next start offers them again.",
         Icon::Exclamation);
}

/// True when one came back here. The error of one that can't is shown, and the next may come.
bool Recover(MainModule& main, Desktop& desktop, const std::filesystem::path& file, const Documents& chosen) {
    bool isHere = false;
    std::size_t windows = 0;
    std::size_t left = 0;
    for (const RecoveredDocument& document : chosen) {
        if (!isHere && (file.empty() || IsOf(document, file)))
            isHere = RestoreCommand(main, document);
        else if (windows < kMostWindows && desktop.StartAnother(document.File, windows + 1))
            ++windows;
        else
            ++left;
    }
    if (left > 0)
        TellNotOpened(main.ui, left);
    return isHere;
}

/// A start with one lost document, which the person may give up.
bool OfferOne(MainModule& main, Desktop& desktop, const std::filesystem::path& file,
              const RecoveredDocument& document) {
    if (Ask(main.ui,
            "Velmora ended without saving the document \"" + document.Name() + "\" of " + LocalTime(document.Time) +
                ".\r\nDo you want to have it back?",
            Buttons::YesNo) == Answer::Yes)
        return Recover(main, desktop, file, {document});
    main.recovery.Settle(document);
    return false;
}

void Discard(MainModule& main, const Documents& chosen) {
    if (Ask(main.ui,
            "Documents to be given up: " + std::to_string(chosen.size()) +
                "\r\nFile > Recover keeps the last ten of all that were given up or replaced. Do you want to go on?",
            Buttons::YesNo, Answer::No) != Answer::Yes)
        return;
    for (const RecoveredDocument& document : chosen)
        main.recovery.Settle(document);
}

} // namespace

bool OfferLost(MainModule& main, Desktop& desktop, const std::filesystem::path& file, const ChooseLost& choose) {
    Documents lost = main.recovery.Lost();
    if (lost.size() == 1)
        return OfferOne(main, desktop, file, lost.front());
    for (; !lost.empty(); lost = main.recovery.Lost()) {
        const LostAnswer answer = choose(lost);
        Documents chosen;
        for (const std::size_t index : answer.which)
            chosen.push_back(lost.at(index));
        if (answer.choice != LostChoice::Discard)
            return Recover(main, desktop, file, chosen);
        Discard(main, chosen);
    }
    return false;
}

} // namespace velmora
