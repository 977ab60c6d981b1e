#include "report/Sheet.h"

#include "report/Twips.h"

#include <algorithm>

namespace velmora {

bool Box::Holds(const Box& inner, double tolerance) const {
    return inner.left >= left - tolerance && inner.top >= top - tolerance && inner.Right() <= Right() + tolerance &&
           inner.Bottom() <= Bottom() + tolerance;
}

Box Box::CommonWith(const Box& other) const {
    const double from = std::max(left, other.left), above = std::max(top, other.top);
    return {from, above, std::max(0.0, std::min(Right(), other.Right()) - from),
            std::max(0.0, std::min(Bottom(), other.Bottom()) - above)};
}

Box Paper::AsRead() const {
    const double across = PaperTwips(widthMm), down = PaperTwips(heightMm);
    return turned ? Box{0, 0, down, across} : Box{0, 0, across, down};
}

} // namespace velmora
