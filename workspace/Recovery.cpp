#include "workspace/Recovery.h"

#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"

namespace velmora {

void KeepRecoveryCopy(MainModule& main) {
    if (main.recovery.IsPaused())
        return;
    TakePageBack(main);
    try {
        main.recovery.Keep(main.document, main.settings);
    } catch (const std::exception& error) {
        if (main.recovery.IsFirstFailure())
            ReportError(main.ui, error.what(), "Called from Sub: KeepRecoveryCopy");
    }
}

void KeepLastRecoveryCopy(MainModule& main) {
    main.recovery.IsFirstFailure(); // from here on none is reported
    KeepRecoveryCopy(main);
}

std::optional<std::filesystem::path> ArchiveDocument(MainModule& main) {
    TakePageBack(main);
    std::optional<std::filesystem::path> copy;
    Trapped(main.ui, "Called from Sub: ArchiveDocument",
            [&] { copy = main.recovery.Archive(main.document, main.settings); });
    return copy;
}

} // namespace velmora
