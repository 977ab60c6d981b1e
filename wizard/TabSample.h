// One tab as the report lays it out and the painter prints it, to be shown and measured before there is a document with
// its texts.
#pragma once

#include "document/TabDocument.h"
#include "report/SheetPainter.h"
#include "settings/mdlSettings.h"

#include <string_view>
#include <vector>

namespace velmora {

class TabSample {
public:
    /// The catalogue must outlive it. Without fields where a stored tab top is no number, which printing reports.
    TabSample(const FontCatalogue& catalogue, const DocumentSetup& setup, SettingsStore& settings,
              const FontSettings& fonts);

    /// At 0, 0, in twips as all here.
    const Box& Tab() const { return tab_; }
    /// Those in use, without texts.
    const std::vector<PlacedText>& Fields() const { return fields_; }
    SheetPainter& Painter() { return painter_; }
    /// What field 0, 1 or 2 would lose of a text; nothing for a field not in use, and on a machine without fonts.
    TextLoss LossOf(int field, std::string_view text);

private:
    void Place(const DocumentSetup& setup, SettingsStore& settings, const FontSettings& fonts);

    Box tab_;
    std::vector<PlacedText> fields_;
    SheetPainter painter_;
};

} // namespace velmora
