#include "workspace/ChangeTabs.h"

#include "base/Text.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Pages.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <utility>

namespace velmora {
namespace {

void ShowChangedTabs(MainModule& main, bool otherPages) {
    if (otherPages) {
        main.editor->TakeDown(); // what it shows belongs to no page any more
        ShowChangedPages(main);
        return;
    }
    main.document.DocChanged = true;
    RefreshDocumentStatus(main);
    main.editor->BringUp();
}

} // namespace

TabNumbers TakeMarkedTabs(MainModule& main) {
    TakePageBack(main);
    return main.editor->MarkedTabs();
}

bool HasRoomFor(MainModule& main, std::size_t tabs) {
    if (tabs <= kMostTabs)
        return true;
    TellMostPages(main.ui, main.document.setup.TabsPerPage);
    return false;
}

TabChange ChangeOf(std::size_t tabs, const char* name, const char* done) {
    return {name, Counted(tabs, "tab") + " " + done};
}

void ChangeTabs(MainModule& main, const TabChange& what, const TabNumbers& marked, bool losesTexts,
                const std::function<void(TabDocument&)>& change) {
    if (losesTexts)
        KeepRecoveryCopy(main);
    TabDocument& document = main.document;
    const std::int16_t pages = document.NoOfPages;
    UndoStep step(main.history, main.State(), what.name);
    change(document);
    document.CurrentTab = static_cast<std::int16_t>(marked.front());
    document.CurrentPage = PageOfTab(document, marked.front());
    ShowChangedTabs(main, document.NoOfPages != pages);
    main.editor->MarkTabs(marked);
    main.status->Tell({what.done, step.Commit()});
}

void Rearrange(MainModule& main, const TabChange& what, TabOrder order, const TabNumbers& marked) {
    FillLastPage(order, main.document.setup.TabsPerPage);
    if (ChangesNothing(main.document, order))
        return main.status->Tell({what.name + ": nothing changed"});
    if (!HasRoomFor(main, order.size()))
        return;
    ChangeTabs(main, what, marked, LosesTexts(main.document, order),
               [&](TabDocument& document) { Arrange(document, order); });
}

} // namespace velmora
