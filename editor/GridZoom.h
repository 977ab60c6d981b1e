// How large the editor shows its sheet.
#pragma once

#include "settings/mdlSettings.h"

namespace velmora {

enum class GridFit { Sheet, Width, None };

struct GridZoom {
    static constexpr int kLeastPercent = 50;
    static constexpr int kMostPercent = 200;

    GridFit fit = GridFit::Sheet;
    int percent = 100; ///< without a fit

    bool operator==(const GridZoom&) const = default;
};

/// Lengths in the same unit.
struct GridSize {
    double width = 0;
    double height = 0;
};

/// From key "Editor Zoom": "Sheet", "Width" or a percentage; the whole sheet for anything else.
GridZoom ReadZoom(SettingsStore& store);
void SaveZoom(SettingsStore& store, const GridZoom& zoom);

/// One step larger or smaller (`steps` 1 or -1) than `percent`, which the sheet has now, within the limits.
GridZoom ZoomBeside(double percent, int steps);

/// Pixels per twip at which a sheet of `twips` fits `room`, as the zoom says. `whole`: pixels per twip at 100 percent.
/// A sheet that is fitted stays large enough to be read, three quarters of that.
double ZoomScale(const GridZoom& zoom, const GridSize& room, const GridSize& twips, double whole);

} // namespace velmora
