#include "widgets/Contrast.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kStep = 0.05;

double Linear(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// As the guidelines for accessible pages compute it.
double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

} // namespace

double Contrast(const QColor& a, const QColor& b) {
    constexpr double kFlare = 0.05;
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + kFlare) / (dark + kFlare);
}

QColor StandingOut(const QColor& colour, const QColor& ground, double contrast) {
    const QColor end = Contrast(Qt::black, ground) > Contrast(Qt::white, ground) ? Qt::black : Qt::white;
    double share = 0;
    while (share < 1 && Contrast(Blend(colour, end, share), ground) < contrast)
        share += kStep;
    return Blend(colour, end, std::min(share, 1.0));
}

QColor Blend(const QColor& a, const QColor& b, double share) {
    const auto between = [share](float from, float to) { return static_cast<float>(from + (to - from) * share); };
    return QColor::fromRgbF(between(a.redF(), b.redF()), between(a.greenF(), b.greenF()),
                            between(a.blueF(), b.blueF()));
}

} // namespace velmora
