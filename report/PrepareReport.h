// What to lay out, and the report's steps up to its sheets.
#pragma once

#include "report/rptVelmor.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

struct ReportRequest {
    std::string mode = "PRINT"; ///< "TEST": the fixed texts of the test page
    std::int16_t tabType = 0;
    std::int32_t count = 0; ///< of tabs, whole sheets
    std::int16_t numFields = 1;
    std::int16_t rows = 1;
    std::int16_t cols = 1;
    bool pageOnly = false; ///< the page shown alone
    LabelChoice labels = {};
};

/// The document as it is set up, or the page shown alone.
ReportRequest DocumentRequest(const TabDocument& document, std::string mode = "PRINT", bool pageOnly = false);

/// What a report is made from.
struct ReportSource {
    const TabDocument& document;
    SettingsStore& settings;
    const FontSettings& fonts;
};

/// Takes every step but SetPage. Raises what they raise.
void PrepareReport(rptVelmor& report, const ReportRequest& request, const ReportSource& source);
/// A report on the document's paper with the stored margins, ready for its sheets. Raises what the steps raise.
rptVelmor MakeReport(LayoutValues& layout, const ReportRequest& request, const ReportSource& source);

} // namespace velmora
