#include "setup/PageSetup.h"

#include "document/TabOrder.h"
#include "setup/Margins.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Globals.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"
#include "workspace/Transaction.h"
#include "workspace/Undo.h"

#include <algorithm>

namespace velmora {
namespace {

bool SameChoices(const DocumentSetup& a, const DocumentSetup& b) {
    return a.OptType == b.OptType && a.NoOfFields == b.NoOfFields && a.StationeryType == b.StationeryType &&
           a.LayoutName == b.LayoutName;
}

/// One empty page that nobody has given a name: it stays one page, whatever the number of its tabs.
bool IsUntouched(const TabDocument& document) {
    if (!document.DocFileName.empty() || document.NoOfPages > 1)
        return false;
    const TabOrder tabs = OrderOf(document);
    return std::all_of(tabs.begin(), tabs.end(), [&](std::int32_t tab) { return IsBareTab(document, tab); });
}

void TakeOver(MainModule& main, const DocumentSetup& draft, DefaultMargins margins) {
    TabDocument& document = main.document;
    const bool calibrate = TakesDefaultMargins(main, draft, margins);
    if (!SameChoices(draft, document.setup))
        document.DocChanged = true;
    document.setup.OptType = draft.OptType;
    document.setup.StationeryType = draft.StationeryType;
    document.setup.LayoutName = draft.LayoutName;
    document.setup.NoOfFields = draft.NoOfFields;
    SetFieldLimits(document.setup);
    document.CurrentPage = 1;
    if (IsUntouched(document))
        document.TabCount = 0;
    ApplyTabType(main);
    if (calibrate)
        ApplyDefaultMargins(main.settings, draft.OptType, draft.LayoutName);
}

} // namespace

bool TakesDefaultMargins(MainModule& main, const DocumentSetup& draft, DefaultMargins margins) {
    return draft.LayoutName != main.document.setup.LayoutName ||
           (margins == DefaultMargins::Always && DefaultMarginsExist(main.settings, draft.OptType, draft.LayoutName));
}

DocumentSetup SetupDraft(const DocumentSetup& setup) {
    DocumentSetup draft;
    draft.NoOfFields = setup.NoOfFields;
    draft.StationeryType = setup.StationeryType;
    SetDraftType(draft, setup.OptType);
    SetFieldLimits(draft);
    return draft;
}

void SetDraftType(DocumentSetup& draft, int type) {
    draft.OptType = static_cast<std::int16_t>(type);
    SetLayoutFromType(draft);
    SetColsPerPage(draft, type);
    SetRowsAndStationery(draft, type);
}

bool ApplySetup(MainModule& main, const DocumentSetup& draft, const std::string& stepName, DefaultMargins margins) {
    TakePageBack(main);
    KeepRecoveryCopy(main);
    const UndoStep step(main.history, main.State(), stepName);
    main.editor->TakeDown();
    const bool done = Trapped(main.ui, "Called from Sub: ApplySetup", [&] {
        Transaction transaction(main);
        TakeOver(main, draft, margins);
        transaction.Commit();
    });
    main.editor->BringUp();
    RefreshDocumentStatus(main);
    SaveGlobals(main);
    return done;
}

LoadOutcome PageSetup::Open() {
    const LoadOutcome outcome = LoadGlobals(main_);
    RefreshDocumentStatus(main_);
    ReadDocument();
    return outcome;
}

void PageSetup::ChooseType(int type) {
    if (!FindTabType(type))
        return Tell(main_.ui, "Invalid type of stationary selected!");
    SetDraftType(draft_, type);
    ShowDocumentStatus(main_, draft_);
}

void PageSetup::ChooseFields(int fields) {
    if (fields < 1 || fields > kFieldsPerTab)
        return;
    draft_.NoOfFields = static_cast<std::int16_t>(fields);
    SetFieldLimits(draft_);
    ShowDocumentStatus(main_, draft_);
}

std::string PageSetup::Picture() const {
    return std::string(FindTabType(draft_.OptType)->picture);
}

std::string PageSetup::GridSizeText() const {
    return std::to_string(draft_.RowsPerPage) + " Rows, " + std::to_string(draft_.ColsPerPage) + " Colums";
}

bool PageSetup::Ok() {
    return ApplySetup(main_, draft_, "Page Setup", DefaultMargins::OnNewLayout);
}

void PageSetup::Cancel() {
    RefreshDocumentStatus(main_);
    ReadDocument();
}

} // namespace velmora
