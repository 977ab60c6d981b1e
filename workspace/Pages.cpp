#include "workspace/Pages.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "document/TabOrder.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Margins.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>

namespace velmora {
namespace {

/// A question whose safe answer is the default.
bool Confirms(UserInterface& ui, const char* question) {
    return Ask(ui, question, Buttons::YesNo, Answer::No) == Answer::Yes;
}

void AppendPage(TabDocument& document) {
    const std::int16_t pages = Add16(document.NoOfPages, 1);
    const std::int32_t count = Multiply16(pages, document.setup.TabsPerPage);
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).Resize(count);
    document.TabCount = count;
    document.NoOfPages = document.CurrentPage = pages;
}

/// Closes the gap that the current page leaves.
void RemovePage(TabDocument& document) {
    const std::int32_t perPage = document.setup.TabsPerPage;
    const std::int32_t before = (document.CurrentPage - 1) * perPage;
    for (int field = 0; field < kFieldsPerTab; ++field) {
        FieldTexts& texts = document.Field(field);
        CopyTabRange(texts, before + perPage + 1, document.TabCount, texts, before + 1);
        texts.Resize(document.TabCount - perPage);
    }
    document.TabCount -= perPage;
    --document.NoOfPages;
    --document.CurrentPage;
}

/// Packs the tabs that are not empty to the front, in their order; gives their number.
std::int32_t PackTabs(TabDocument& document) {
    std::int32_t kept = 0;
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab) {
        if (IsEmptyTab(document, tab))
            continue;
        ++kept;
        for (int field = 0; field < kFieldsPerTab && kept != tab; ++field)
            document.Field(field)(kept) = std::move(document.Field(field)(tab));
    }
    return kept;
}

} // namespace

void ShowChangedPages(MainModule& main) {
    main.document.DocChanged = true;
    Write(main.settings, kNoOfPages, std::to_string(main.document.NoOfPages));
    RefreshDocumentStatus(main);
    main.editor->BringUp();
}

void ShowPage(MainModule& main, std::int16_t page) {
    TakePageBack(main);
    main.document.CurrentPage = page;
    main.editor->BringUp();
}

void FirstPage(MainModule& main) {
    ShowPage(main, 1);
}

void LastPage(MainModule& main) {
    ShowPage(main, main.document.NoOfPages);
}

void NextPage(MainModule& main) {
    if (main.document.CurrentPage != main.document.NoOfPages)
        ShowPage(main, Add16(main.document.CurrentPage, 1));
    else if (Confirms(main.ui, "You are at the last page of this document.  Do you want to add a page?"))
        AddPage(main);
}

void PreviousPage(MainModule& main) {
    if (main.document.CurrentPage > 1)
        ShowPage(main, Add16(main.document.CurrentPage, -1));
}

void TellMostPages(UserInterface& ui, std::int16_t tabsPerPage) {
    ui.Beep();
    Tell(ui, "The maximum number of pages for this type on label is:" + std::to_string(kMostTabs / tabsPerPage));
}

void AddPage(MainModule& main) {
    TabDocument& document = main.document;
    if (document.NoOfPages * document.setup.TabsPerPage >= kMostTabs) {
        TellMostPages(main.ui, document.setup.TabsPerPage);
        return;
    }
    TakePageBack(main);
    const UndoStep step(main.history, main.State(), "New Page");
    if (Trapped(main.ui, "Called from Sub: AddPage", [&] { AppendPage(document); }))
        ShowChangedPages(main);
}

void DeletePage(MainModule& main) {
    TabDocument& document = main.document;
    if (document.NoOfPages == 1)
        return Tell(main.ui, "You can not delete the only page in this document.");
    if (main.globals.AskBeforeDelete && !Confirms(main.ui, "Do you want to delete the current page?"))
        return;
    TakePageBack(main);
    KeepRecoveryCopy(main);
    const UndoStep step(main.history, main.State(), "Delete Page");
    const std::string done = "Page " + std::to_string(document.CurrentPage) + " deleted";
    main.editor->TakeDown();
    RemovePage(document);
    // Deleting the first page leaves page 0, which the editor cannot show.
    document.CurrentPage = std::max<std::int16_t>(1, document.CurrentPage);
    ShowChangedPages(main);
    main.status->Tell({done, true});
}

void CleanLabels(MainModule& main) {
    TabDocument& document = main.document;
    if (document.TabCount == 0)
        return Tell(main.ui, "No Tabs to clean.");
    TakePageBack(main);
    KeepRecoveryCopy(main);
    const bool unsaved = document.DocChanged;
    UndoStep step(main.history, main.State(), "Delete Empty Tabs");
    main.editor->TakeDown();
    const std::int32_t kept = PackTabs(document);
    document.NoOfPages = std::max<std::int16_t>(1, PagesForTabs(kept, document.setup.TabsPerPage));
    document.CurrentPage = document.NoOfPages;
    document.TabCount = document.NoOfPages * document.setup.TabsPerPage;
    for (int field = 0; field < kFieldsPerTab; ++field) {
        document.Field(field).Resize(kept); // what was packed away must not show on the last page
        document.Field(field).Resize(document.TabCount);
    }
    ShowChangedPages(main);
    const std::string done = "Empty tabs deleted, " + Counted(static_cast<std::size_t>(kept), "tab") + " left";
    const bool changed = step.Commit();
    if (!changed && main.history.KeepsSteps()) // else nobody knows
        document.DocChanged = unsaved;
    main.status->Tell({changed ? done : "Delete Empty Tabs: nothing changed", changed});
}

namespace {

void MoveInHistory(MainModule& main, std::optional<TabBox> (UndoHistory::*move)(const UndoState&)) {
    TakePageBack(main);
    KeepRecoveryCopy(main);
    const MarginTexts margins = ActiveMargins(main.settings);
    const auto box = (main.history.*move)(main.State());
    RefreshDocumentStatus(main);
    main.editor->BringUp();
    if (box)
        main.editor->ShowText(*box, 0, std::string::npos);
    else
        main.editor->MarkTabs({TabInUse(main.document)}); // what was marked may be other tabs now, or none
    if (!SameMargins(margins, ActiveMargins(main.settings)))
        TellOtherMargins(main); // the printer is none of the document's and stays
}

} // namespace

void UndoChange(MainModule& main) {
    MoveInHistory(main, &UndoHistory::Undo);
}

void RedoChange(MainModule& main) {
    MoveInHistory(main, &UndoHistory::Redo);
}

} // namespace velmora
