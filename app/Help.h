// The pages of the help: their order in the contents, and which one explains which window.
#pragma once

#include "platform/Desktop.h"
#include "workspace/mdlMain.h"

#include <span>
#include <string_view>

namespace velmora {

struct HelpPage {
    std::string_view name;    ///< of its file, without ".html"
    std::string_view title;   ///< in the contents, and the heading of the page
    std::string_view chapter; ///< of the contents
};

/// In the order of the contents, chapter by chapter; the first one is shown where no other fits.
std::span<const HelpPage> HelpPages();

/// Name of the page that explains a form, or empty for a name that is no form's.
std::string_view HelpPageOf(std::string_view form);

/// Opens the help file of older versions with the desktop's viewer, where one lies beside the program. False where
/// there is none or it does not open: the program's own pages are shown then.
bool OpenHelpFile(const SettingsStore& settings, Desktop& desktop);

} // namespace velmora
