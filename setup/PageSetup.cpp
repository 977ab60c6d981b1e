#include "setup/PageSetup.h"

#include "base/Text.h"
#include "document/TabOrder.h"
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

/// One empty page that nobody has given a name: it stays one page, whatever the number of its tabs.
bool IsUntouched(const TabDocument& document) {
    if (!document.DocFileName.empty() || document.NoOfPages > 1)
        return false;
    const TabOrder tabs = OrderOf(document);
    return std::all_of(tabs.begin(), tabs.end(), [&](std::int32_t tab) { return IsBareTab(document, tab); });
}

void TakeOver(MainModule& main, const DocumentSetup& draft, const std::string& printer) {
    TabDocument& document = main.document;
    const auto margins = NewMargins(main, draft, printer);
    main.globals.PrinterName = printer;
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
    if (margins)
        UseMargins(main.settings, *margins);
}

bool HasTexts(const TabDocument& document) {
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        if (!IsEmptyTab(document, tab))
            return true;
    return false;
}

} // namespace

bool SameChoices(const DocumentSetup& a, const DocumentSetup& b) {
    return a.OptType == b.OptType && a.NoOfFields == b.NoOfFields && a.StationeryType == b.StationeryType &&
           a.LayoutName == b.LayoutName;
}

std::optional<MarginTexts> NewMargins(MainModule& main, const DocumentSetup& draft, const std::string& printer) {
    if (draft.LayoutName == main.document.setup.LayoutName && printer == main.globals.PrinterName)
        return std::nullopt;
    return StartingMargins(main.settings, printer, draft);
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

bool ApplySetup(MainModule& main, const DocumentSetup& draft, const std::string& printer, const std::string& stepName) {
    TakePageBack(main);
    KeepRecoveryCopy(main);
    const UndoStep step(main.history, main.State(), stepName);
    main.editor->TakeDown();
    const bool done = Trapped(main.ui, "Called from Sub: ApplySetup", [&] {
        Transaction transaction(main);
        TakeOver(main, draft, printer);
        transaction.Commit();
    });
    RefreshDocumentStatus(main);
    main.editor->BringUp(); // a box that it enters tells its tab
    SaveGlobals(main);
    return done;
}

LoadOutcome PageSetup::Open() {
    TakePageBack(main_);
    const LoadOutcome outcome = LoadGlobals(main_);
    RefreshDocumentStatus(main_);
    if (!SameChoices(read_, main_.document.setup))
        ReadDocument();
    ShowDocumentStatus(main_, draft_);
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

bool TakesTextsAway(const TabDocument& document, int optType) {
    return optType != document.setup.OptType && HasTexts(document) && EmptiesDocument(document, optType);
}

std::string PageSetup::WhatBecomesOfTexts() const {
    const TabDocument& document = main_.document;
    if (draft_.OptType == document.setup.OptType || !HasTexts(document))
        return {};
    if (EmptiesDocument(document, draft_.OptType))
        return "OK empties the document, because no tab but the first is in use. Edit > Undo brings its texts back. To "
               "let them flow onto the new sheets, cancel and click into any other tab before.";
    const auto pages = PagesForTabs(document.TabCount, FindTabType(draft_.OptType)->TabsPerPage());
    return "The texts flow on in their order, from " + Counted(static_cast<std::size_t>(document.NoOfPages), "page") +
           " onto " + Counted(static_cast<std::size_t>(pages), "page") + ".";
}

std::string PageSetup::Picture() const {
    return std::string(FindTabType(draft_.OptType)->picture);
}

std::string PageSetup::GridSizeText() const {
    return std::to_string(draft_.RowsPerPage) + " Rows, " + std::to_string(draft_.ColsPerPage) + " Colums";
}

bool PageSetup::Ok() {
    return ApplySetup(main_, draft_, main_.globals.PrinterName, "Page Setup");
}

void PageSetup::Cancel() {
    RefreshDocumentStatus(main_);
    ShowCurrentTab(main_);
    ReadDocument();
}

} // namespace velmora
