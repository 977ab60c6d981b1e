#include "workspace/Recovery.h"

#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"

namespace velmora {

namespace {

/// False when it failed, which is reported once.
template <typename Work> bool ReportedOnce(MainModule& main, Work work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        if (main.recovery.IsFirstFailure())
            ReportError(main.ui, error.what(), "Called from Sub: KeepRecoveryCopy");
        return false;
    }
}

} // namespace

bool KeepRecoveryCopy(MainModule& main) {
    if (main.recovery.IsPaused())
        return false;
    TakePageBack(main);
    return ReportedOnce(main, [&] { main.recovery.Keep(main.document, main.settings); });
}

void KeepRecoveryCopyBeside(MainModule& main) {
    if (main.recovery.IsPaused())
        return;
    TakePageBack(main);
    FinishRecoveryCopy(main);
    ReportedOnce(main, [&] { main.recovery.KeepBeside(main.document, main.settings); });
}

void FinishRecoveryCopy(MainModule& main) {
    ReportedOnce(main, [&] { main.recovery.Finish(); });
}

void KeepLastRecoveryCopy(MainModule& main) {
    try {
        if (main.recovery.IsPaused())
            return main.recovery.Finish();
        TakePageBack(main);
        main.recovery.Keep(main.document, main.settings);
    } catch (const std::exception&) {} // nobody is left to read it
}

std::optional<std::filesystem::path> ArchiveDocument(MainModule& main) {
    TakePageBack(main);
    std::optional<std::filesystem::path> copy;
    Trapped(main.ui, "Called from Sub: ArchiveDocument",
            [&] { copy = main.recovery.Archive(main.document, main.settings); });
    return copy;
}

} // namespace velmora
