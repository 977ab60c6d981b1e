#include "app/Help.h"

#include "base/Validate.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::string_view kStart = "Getting started";
constexpr std::string_view kWork = "Working with tabs";
constexpr std::string_view kPaper = "On paper";
constexpr std::string_view kMore = "More";

constexpr HelpPage kPages[] = {
    {"welcome", "Welcome to Velmora", kStart},
    {"first-document", "Your first document", kStart},
    {"how-do-i", "How do I ...?", kStart},
    {"stationery", "Stationery and page set-up", kStart},
    {"typing", "Typing and moving about", kWork},
    {"pages", "Pages and empty tabs", kWork},
    {"arranging", "Arranging and sorting", kWork},
    {"filling", "Filling many tabs at once", kWork},
    {"find-undo", "Find, replace and undo", kWork},
    {"spreadsheets", "Spreadsheets and text lists", kWork},
    {"fonts", "Fonts and alignment", kWork},
    {"printer", "Setting up the printer", kPaper},
    {"calibrating", "Margins and calibration", kPaper},
    {"printing", "Printing, preview and PDF", kPaper},
    {"used-sheets", "Partly used sheets", kPaper},
    {"recovery", "Saving and recovery", kMore},
    {"shortcuts", "Keys and shortcuts", kMore},
    {"settings", "Options and settings", kMore},
    {"batch", "The batch program", kMore},
    {"file-format", "The file format", kMore},
    {"troubles", "When something goes wrong", kMore},
};

struct FormPage {
    std::string_view start; ///< of the form's name
    std::string_view page;
};

// The longer of two names that start alike stands first.
constexpr FormPage kForms[] = {
    {"frmAutoRepWiz7", "fonts"},    {"frmAutoRepWiz", "filling"},
    {"frmAutoPrtWiz", "printer"},   {"frmFix3", "calibrating"},
    {"frmFix", "printer"},          {"frmPageSetUp", "stationery"},
    {"frmOptionsPage", "settings"}, {"frmSettings", "settings"},
    {"frmAbout", "welcome"},        {"frmFind", "find-undo"},
    {"frmPreview", "printing"},     {"frmPrint", "printing"},
    {"frmPassword", "printing"},    {"frmUsed", "used-sheets"},
    {"frmImport", "spreadsheets"},  {"frmSelectSheet", "spreadsheets"},
    {"frmGrid2a4", "typing"},       {"frmProgress", "troubles"},
    {"frmHelp", "welcome"},         {"frmGoTo", "pages"},
    {"frmSort", "arranging"},       {"frmMovePage", "pages"},
    {"frmRemove", "arranging"},     {"mdiVelmora", "welcome"},
    {"frmRecover", "recovery"},     {"frmStart", "first-document"},
};

} // namespace

std::span<const HelpPage> HelpPages() {
    return kPages;
}

std::string_view HelpPageOf(std::string_view form) {
    const auto* found = std::find_if(std::begin(kForms), std::end(kForms),
                                     [&](const FormPage& row) { return form.starts_with(row.start); });
    return found == std::end(kForms) ? "" : found->page;
}

bool OpenHelpFile(const SettingsStore& settings, Desktop& desktop) {
    const auto file = FindFile(settings.ProgramFolder, "help70.chm");
    return file && desktop.OpenFile(*file);
}

} // namespace velmora
