// How printing reports an error that it trapped.
#pragma once

#include "print/PrintModule.h"

#include <exception>
#include <string_view>

namespace velmora {

inline constexpr std::string_view kPrintReportPlace = "Called from Function: PrintReport";

/// The words for a printer error, for a printer that is not there, or the cause's own with the place.
void ReportPrintError(PrintModule& print, const std::exception& error, std::string_view place);

/// Runs `work` and reports the error that ends it; false then.
template <typename Work> bool TrappedPrinting(PrintModule& print, std::string_view place, Work work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        ReportPrintError(print, error, place);
        return false;
    }
}

} // namespace velmora
