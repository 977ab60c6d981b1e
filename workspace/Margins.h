// The calibrated margins: the active pair, which shifts the whole grid, one default pair for each layout, in whole
// millimetres, and what each printer was calibrated to on each layout, with decimals.
#pragma once

#include "workspace/mdlMain.h"

#include <optional>
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

/// Those in use.
MarginTexts ActiveMargins(SettingsStore& store);
/// Makes them the active ones; writes nothing where they are.
void UseMargins(SettingsStore& store, const MarginTexts& margins);
/// True for the same two numbers, however they are written, or the same texts.
bool SameMargins(const MarginTexts& a, const MarginTexts& b);
/// "left 3.5, top -1 mm".
std::string MarginsInWords(const MarginTexts& margins);

/// The name of a layout in messages; empty for a combination that does not exist.
std::string LayoutDisplayName(std::string_view layout, int tabType);

/// True when both default margins of the tab type's layout are stored. A DL type with another layout than "DL_v" or
/// "DL_h" has no defaults to miss, so true; false for types outside 0 to 5.
bool DefaultMarginsExist(SettingsStore& store, int tabType, std::string_view layout);
/// The defaults as whole millimetres; 0 for what is missing or no number. Looking them up stores nothing, so that a
/// layout without defaults stays one. Raises OverflowError outside 16 bits.
MarginTexts LoadDefaultMargins(SettingsStore& store, int tabType, std::string_view layout);
/// No effect for a layout that has no defaults. False when the settings could not be written, which is shown once.
bool SaveDefaultMargins(SettingsStore& store, int tabType, std::string_view layout, const MarginTexts& margins);
/// Makes the defaults the active margins. Raises OverflowError, with nothing changed.
void ApplyDefaultMargins(SettingsStore& store, int tabType, std::string_view layout);

/// What the printer was calibrated to on the layout of `setup`; nullopt where it never was.
std::optional<MarginTexts> PrinterMargins(SettingsStore& store, const std::string& printer, const DocumentSetup& setup);
/// No effect for what are no numbers, and without a printer.
void RememberPrinterMargins(SettingsStore& store, const std::string& printer, const DocumentSetup& setup,
                            const MarginTexts& margins);
/// What a new document begins with, and one that comes to another printer or layout: the printer's, else the defaults.
/// Raises OverflowError as LoadDefaultMargins does.
MarginTexts StartingMargins(SettingsStore& store, const std::string& printer, const DocumentSetup& setup);
/// Says, with a button that takes them, where the printer was calibrated to others than the document's.
void TellOtherMargins(MainModule& main);
/// The button: the document takes the printer's, in one undo step; no effect where there are no others.
void TakePrinterMargins(MainModule& main);

/// True unless printer, stationery type, page size or tab type is empty or missing in the settings.
bool SetupComplete(SettingsStore& store);
/// True when the layout of the open document has default margins.
bool MarginsReady(const MainModule& main);

} // namespace velmora
