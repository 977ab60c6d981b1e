#include "workspace/ReplaceDocument.h"

#include "workspace/DocumentStatus.h"
#include "workspace/Margins.h"
#include "workspace/Recovery.h"
#include "workspace/Transaction.h"

#include <exception>

namespace velmora {
namespace {

LoadOutcome LoadOrUndo(MainModule& main, const std::function<LoadOutcome()>& load) {
    Transaction transaction(main);
    if (load() == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    transaction.Commit();
    main.history.Clear(main.document);
    return LoadOutcome::Loaded;
}

} // namespace

LoadOutcome LoadEmptyPage(MainModule& main) {
    TabDocument empty;
    empty.setup = main.document.setup;
    main.document = std::move(empty);
    ApplyTabType(main);
    return LoadOutcome::Loaded;
}

LoadOutcome ReplaceDocument(MainModule& main, const std::function<LoadOutcome()>& load) {
    const auto archived = ArchiveDocument(main); // an error gives back the document with what was typed last
    main.editor->TakeDown();
    LoadOutcome outcome = LoadOutcome::NoPrinter;
    std::exception_ptr failure;
    try {
        outcome = LoadOrUndo(main, load);
    } catch (...) {
        failure = std::current_exception();
    }
    if (archived && outcome != LoadOutcome::Loaded) {
        KeepRecoveryCopy(main); // before its stand-in goes
        main.recovery.Forget(*archived);
    }
    RefreshDocumentStatus(main);
    ShowCaption(main);
    main.editor->BringUp();
    if (failure)
        std::rethrow_exception(failure);
    TellOtherMargins(main);
    return outcome;
}

void NewDocument(MainModule& main) {
    ReplaceDocument(main, [&] {
        UseMargins(main.settings, StartingMargins(main.settings, main.globals.PrinterName, main.document.setup));
        return LoadEmptyPage(main);
    });
}

} // namespace velmora
