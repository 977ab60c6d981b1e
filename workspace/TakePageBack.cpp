#include "workspace/TakePageBack.h"

#include "base/Numbers.h"
#include "workspace/Dialogs.h"

namespace velmora {
namespace {

void TakeTexts(TabDocument& document, const std::vector<TabTexts>& texts, std::int16_t page, std::int16_t tabsPerPage) {
    for (std::size_t slot = 0; slot < texts.size(); ++slot) {
        const int tab = Multiply16(page - 1, tabsPerPage) + static_cast<int>(slot) + 1;
        for (std::size_t field = 0; field < static_cast<std::size_t>(document.setup.NoOfFields); ++field)
            document.Field(static_cast<int>(field))(tab) = texts[slot][field];
    }
}

} // namespace

void SaveLabel(MainModule& main, std::int16_t page, std::int16_t tabsPerPage) {
    Trapped(main.ui, "Called form Function:SaveLabel",
            [&] { TakeTexts(main.document, main.editor->ShownTexts(), page, tabsPerPage); });
}

void TakePageBack(MainModule& main) {
    SaveLabel(main, main.document.CurrentPage, main.document.setup.TabsPerPage);
}

} // namespace velmora
