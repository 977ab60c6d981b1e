#include "wizard/AppendWizardTabs.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "wizard/FontPage.h"
#include "wizard/NewTabs.h"
#include "workspace/Dialogs.h"
#include "workspace/Globals.h"
#include "workspace/Pages.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>
#include <memory>

namespace velmora {
namespace {

/// Of the document once it holds the values, never fewer than it has.
std::int16_t PagesAfter(const TabDocument& document, int start, int count) {
    const std::int16_t last = Add16(Add16(start, count), -1);
    return std::max(document.NoOfPages, PagesForTabs(last, document.setup.TabsPerPage));
}

void GrowTo(TabDocument& document, std::int16_t pages) {
    document.NoOfPages = pages;
    document.TabCount = Multiply16(pages, document.setup.TabsPerPage);
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).Resize(document.TabCount);
}

/// A field that was chosen and then left without values keeps its texts.
void CopyValues(const WizardState& wizard, TabDocument& document, int start) {
    for (std::size_t field = 0; field < kFieldsPerTab; ++field)
        if (wizard.WizFieldUsed[field] && wizard.FieldDone[field])
            CopyTabRange(wizard.Buffer(static_cast<int>(field)), 1, wizard.NewTabCount,
                         document.Field(static_cast<int>(field)), start);
}

/// The fonts chosen on the way belong to the step that fills the tabs.
std::unique_ptr<UndoStep> BeginStep(MainModule& main, const WizardState& wizard) {
    const FontSettings chosen = main.fonts;
    const SettingsBatch batch(main.settings);
    if (wizard.Fonts)
        PutFontsBack(main, *wizard.Fonts);
    auto step = std::make_unique<UndoStep>(main.history, main.State(), "AutoRepeat Wizard");
    if (wizard.Fonts)
        StoreFonts(main, chosen);
    return step;
}

} // namespace

bool TellRefusal(MainModule& main, bool behindLast, std::int32_t count) {
    const auto refusal = RefuseNewTabs(main.document, FirstNewTab(main.document, behindLast), count);
    if (!refusal)
        return false;
    main.ui.Beep();
    Tell(main.ui, *refusal);
    return true;
}

bool AppendWizardTabs(MainModule& main, const WizardState& wizard) {
    TabDocument& document = main.document;
    const int start = FirstNewTab(document, wizard.BehindLast);
    const std::int16_t pages = PagesAfter(document, start, wizard.NewTabCount);
    document.CurrentTab = std::max<std::int16_t>(1, document.CurrentTab);
    if (TellRefusal(main, wizard.BehindLast, wizard.NewTabCount))
        return false;
    TakePageBack(main);
    KeepRecoveryCopy(main);
    const auto step = BeginStep(main, wizard);
    GrowTo(document, pages);
    CopyValues(wizard, document, start);
    document.CurrentTab = static_cast<std::int16_t>(start);
    document.CurrentPage = PagesForTabs(start, document.setup.TabsPerPage);
    SaveGlobals(main);
    ShowChangedPages(main);
    main.editor->ShowText({start, 0}, 0, std::string::npos);
    main.status->Tell({Counted(static_cast<std::size_t>(wizard.NewTabCount), "tab") + " filled", step->Commit()});
    return true;
}

} // namespace velmora
