#include "wizard/AppendWizardTabs.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "workspace/Dialogs.h"
#include "workspace/Globals.h"
#include "workspace/Pages.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>

namespace velmora {
namespace {

/// Of the document once it holds the values, never fewer than it has.
std::int16_t PagesAfter(const TabDocument& document, int start, int count) {
    const std::int16_t last = Add16(Add16(start, count), -1);
    return std::max(document.NoOfPages, PagesForTabs(last, document.setup.TabsPerPage));
}

void TellLimit(MainModule& main, int start) {
    const int perPage = main.document.setup.TabsPerPage;
    main.ui.Beep();
    Tell(main.ui, "The maximum number of pages for this type on label is: " + std::to_string(kMostTabs / perPage) +
                      "\r\nPlease change your number of labels to " +
                      std::to_string((kMostTabs - 1 - start) / perPage * perPage));
}

void GrowTo(TabDocument& document, std::int16_t pages) {
    document.NoOfPages = pages;
    document.TabCount = Multiply16(pages, document.setup.TabsPerPage);
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).Resize(document.TabCount);
}

/// A field that was chosen and then left without values keeps its texts.
void CopyValues(const WizardState& wizard, TabDocument& document) {
    for (std::size_t field = 0; field < kFieldsPerTab; ++field)
        if (wizard.WizFieldUsed[field] && wizard.FieldDone[field])
            CopyTabRange(wizard.Buffer(static_cast<int>(field)), 1, wizard.NewTabCount,
                         document.Field(static_cast<int>(field)), document.CurrentTab);
}

int TabsWithText(const TabDocument& document, int first, int last) {
    int filled = 0;
    for (int tab = first; tab <= std::min(last, document.TabCount); ++tab)
        filled += IsEmptyTab(document, tab) ? 0 : 1;
    return filled;
}

} // namespace

std::string PlaceOfNewTabs(const TabDocument& document, int count) {
    const int first = std::max<int>(1, document.CurrentTab);
    const int last = first + count - 1;
    const int filled = TabsWithText(document, first, last);
    std::string text = "These will be tabs " + std::to_string(first) + " to " + std::to_string(last) + ".";
    if (filled > 0)
        text += " Tabs among them that hold texts now: " + std::to_string(filled) + ".";
    return text;
}

bool AppendWizardTabs(MainModule& main, const WizardState& wizard) {
    TabDocument& document = main.document;
    const std::int16_t start = std::max<std::int16_t>(1, document.CurrentTab);
    const std::int16_t pages = PagesAfter(document, start, wizard.NewTabCount);
    document.CurrentTab = start;
    if (pages * document.setup.TabsPerPage >= kMostTabs) {
        TellLimit(main, start);
        return false;
    }
    TakePageBack(main);
    KeepRecoveryCopy(main);
    UndoStep step(main.history, main.State(), "AutoRepeat Wizard");
    GrowTo(document, pages);
    CopyValues(wizard, document);
    document.CurrentPage = PagesForTabs(start, document.setup.TabsPerPage);
    SaveGlobals(main);
    ShowChangedPages(main);
    main.status->Tell({Counted(static_cast<std::size_t>(wizard.NewTabCount), "tab") + " filled", step.Commit()});
    return true;
}

} // namespace velmora
