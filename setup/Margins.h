// The calibrated margins: the active pair, which shifts the whole grid, and one default pair for each layout.
#pragma once

#include "workspace/mdlMain.h"

#include <string>
#include <string_view>

namespace velmora {

/// The settings section of all margins.
inline constexpr std::string_view kMarginSection = "Margin Settings";

/// Millimetres as the settings hold them: texts, with a decimal point.
struct MarginTexts {
    std::string left = "0";
    std::string top = "0";
};

/// The name of a layout in messages; empty for a combination that does not exist.
std::string LayoutDisplayName(std::string_view layout, int tabType);

/// True when both default margins of the tab type's layout are stored. A DL type with another layout than "DL_v" or
/// "DL_h" has no defaults to miss, so true; false for types outside 0 to 5.
bool DefaultMarginsExist(SettingsStore& store, int tabType, std::string_view layout);
/// The defaults as whole millimetres; 0 for what is missing or no number. Looking them up stores nothing, so that a
/// layout without defaults stays one. Raises OverflowError outside 16 bits.
MarginTexts LoadDefaultMargins(SettingsStore& store, int tabType, std::string_view layout);
/// No effect for a layout that has no defaults.
void SaveDefaultMargins(SettingsStore& store, int tabType, std::string_view layout, const MarginTexts& margins);
/// Makes the defaults the active margins. Raises OverflowError, with nothing changed.
void ApplyDefaultMargins(SettingsStore& store, int tabType, std::string_view layout);

/// True unless printer, stationery type, page size or tab type is empty or missing in the settings.
bool SetupComplete(SettingsStore& store);
/// True when the layout of the open document has default margins.
bool MarginsReady(const MainModule& main);

} // namespace velmora
