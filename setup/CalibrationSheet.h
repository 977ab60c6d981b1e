// The sheet from which both margins are read off: the tab outlines of a stationery as they are printed without margins,
// and rulers that start at them.
#pragma once

#include "print/PrintModule.h"
#include "report/PdfReport.h"
#include "workspace/Margins.h"

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The outlines of a tab type (0 to 5) in a layout ("A4", "DL_v" or "DL_h"). Raises TypeMismatchError for a stored tab
/// top that is no number.
Sheet LayOutOutlines(SettingsStore& store, int tabType, std::string_view layout, const PageMargins& margins = {});
/// The same for a drawing: the usual tab top stands in for one that is no number, which `problem` names then.
struct DrawnSheet {
    Sheet sheet;
    std::string problem; ///< empty where there is none
};
DrawnSheet LayOutDrawing(SettingsStore& store, int tabType, std::string_view layout);

/// One sheet of a tab type in a layout. Margins shift the whole grid, so the way from
/// an outline printed with margins 0 to the cut edge of the same tab is the margin itself. Each ruler has its 0 at such
/// an outline and crosses the cut edge: what it shows there is the number to type, in place of the margin in use. The
/// 0 of the first tab's ruler lies at the paper's edge, where printers print nothing; the ruler in the second column
/// goes below 0 too, for a printer that starts too far right. A ruler is shorter than the way from tab to tab, so that
/// it meets one left or top edge only. Raises TypeMismatchError for a stored tab top that is no number.
Sheet LayOutCalibrationSheet(SettingsStore& store, int tabType, std::string_view layout);

/// The same sheet, laid out when it is written; the store must outlive the series.
SheetSeries CalibrationSheets(SettingsStore& store, int tabType, std::string_view layout);

/// The sheet of the document's stationery goes to the configured printer; the built-in one asks for a path. A failure
/// is shown. Gives what was done in words; nullopt: nothing was.
std::optional<std::string> PrintCalibrationSheet(PrintModule& print);
/// A sheet of the outlines alone, with these margins, goes the same way: they are right where every outline lies on the
/// cut edge of its tab. Raises TypeMismatchError for what are no numbers.
std::optional<std::string> PrintCheckSheet(PrintModule& print, const MarginTexts& margins);

} // namespace velmora
