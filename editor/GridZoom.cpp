#include "editor/GridZoom.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr std::array kSteps = {GridZoom::kLeastPercent, 75, 90, 100, 110, 125, 150, 175, GridZoom::kMostPercent};
constexpr double kNearly = 0.5; // percent: a fitted sheet that stands on a step
constexpr int kWhole = 100;
constexpr double kLeastFitted = 0.75;
constexpr const char* kFitSheet = "Sheet";
constexpr const char* kFitWidth = "Width";

const SettingKey kZoom = {"Settings", "Editor Zoom", "Sheet", IsAnyText};

} // namespace

GridZoom ReadZoom(SettingsStore& store) {
    const std::string text = Probe(store, kZoom).value_or("");
    if (EqualsNoCase(text, kFitWidth))
        return {GridFit::Width};
    if (!IsNumeric(text))
        return {};
    const double percent = ToDouble(text);
    return {GridFit::None,
            static_cast<int>(std::clamp<double>(percent, GridZoom::kLeastPercent, GridZoom::kMostPercent))};
}

void SaveZoom(SettingsStore& store, const GridZoom& zoom) {
    Write(store, kZoom,
          zoom.fit == GridFit::Sheet   ? kFitSheet
          : zoom.fit == GridFit::Width ? kFitWidth
                                       : std::to_string(zoom.percent));
}

GridZoom ZoomBeside(double percent, int steps) {
    if (steps > 0) {
        const auto* larger = std::upper_bound(kSteps.begin(), kSteps.end(), percent + kNearly);
        return {GridFit::None, larger == kSteps.end() ? kSteps.back() : *larger};
    }
    const auto* atLeast = std::lower_bound(kSteps.begin(), kSteps.end(), percent - kNearly);
    return {GridFit::None, atLeast == kSteps.begin() ? kSteps.front() : *(atLeast - 1)};
}

double ZoomScale(const GridZoom& zoom, const GridSize& room, const GridSize& twips, double whole) {
    if (zoom.fit == GridFit::None)
        return whole * zoom.percent / kWhole;
    const double width = room.width / twips.width;
    const double fitting = zoom.fit == GridFit::Width ? width : std::min(width, room.height / twips.height);
    return std::max(fitting, whole * kLeastFitted);
}

} // namespace velmora
