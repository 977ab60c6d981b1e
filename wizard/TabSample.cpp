#include "wizard/TabSample.h"

#include "base/Error.h"
#include "report/PrepareReport.h"

namespace velmora {

TabSample::TabSample(const FontCatalogue& catalogue, const DocumentSetup& setup, SettingsStore& settings,
                     const FontSettings& fonts)
    : painter_(catalogue, fonts) {
    try {
        Place(setup, settings, fonts);
    } catch (const TypeMismatchError&) {}
}

/// The first tab of a page, which has a text in every field.
void TabSample::Place(const DocumentSetup& setup, SettingsStore& settings, const FontSettings& fonts) {
    TabDocument page;
    page.setup = setup;
    page.TabCount = setup.TabsPerPage;
    for (int field = 0; field < kFieldsPerTab; ++field) {
        page.Field(field).ReDim(page.TabCount);
        page.Field(field)(1) = "x";
    }
    LayoutValues layout;
    rptVelmor report(layout);
    PrepareReport(report, DocumentRequest(page), {page, settings, fonts});
    Sheet sheet;
    report.LayOutSheet(1, sheet);
    const Box& tab = sheet.tabs.front();
    tab_ = tab.Moved(-tab.left, -tab.top);
    for (PlacedText placed : sheet.texts) {
        placed.text = {};
        placed.box = placed.box.Moved(-tab.left, -tab.top);
        fields_.push_back(placed);
    }
}

TextLoss TabSample::LossOf(int field, std::string_view text) {
    if (text.empty() || field >= static_cast<int>(fields_.size()))
        return {};
    PlacedText placed = fields_[static_cast<std::size_t>(field)];
    placed.text = text;
    try {
        return painter_.LossOf(placed);
    } catch (const Error&) {
        return {};
    }
}

} // namespace velmora
