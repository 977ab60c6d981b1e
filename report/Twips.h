// Twips, and the two ways to them from millimetres.
#pragma once

namespace velmora {

inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kLayoutTwipsPerMm = 56.7;

/// Of millimetres in the layout: tabs, margins, rulers. The factor is rounded: stationery in use is calibrated to it.
constexpr double LayoutTwips(double mm) {
    return mm * kLayoutTwipsPerMm;
}

/// Of true millimetres: the paper, and what a printer cannot reach of it.
constexpr double PaperTwips(double mm) {
    return mm / 25.4 * kTwipsPerInch;
}

} // namespace velmora
