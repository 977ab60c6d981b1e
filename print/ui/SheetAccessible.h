// What a screen reader is told of the sheet on the screen: a list of its tabs.
#pragma once

namespace velmora {

/// From then on every SheetDisplay is a list with an item for each tab, named "Row 2, column 1: its texts", or "Row 2,
/// column 1, gone" for one that is struck out. May be called again.
void InstallSheetAccessibility();

} // namespace velmora
