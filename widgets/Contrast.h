// Colours that can be told apart, whatever the desktop's palette says.
#pragma once

#include <QColor>

namespace velmora {

/// What a mark or a line needs beside its ground to be seen by everybody.
inline constexpr double kMarkContrast = 3;

/// The ratio of the two colours' luminances, 1 to 21.
double Contrast(const QColor& a, const QColor& b);
/// The colour itself, or as dark or as light a shade of it as has the contrast with `ground`.
QColor StandingOut(const QColor& colour, const QColor& ground, double contrast = kMarkContrast);
/// `share` 0: `a`, 1: `b`.
QColor Blend(const QColor& a, const QColor& b, double share);

} // namespace velmora
