// What the forms share in making their controls.
#pragma once

#include "document/FontSettings.h"

#include <Qt>

namespace velmora {

/// The control itself, with the name that it is found by.
template <typename Control> Control* Named(Control* control, const char* name) {
    control->setObjectName(name);
    return control;
}

/// Of the box of a field, from the code of its horizontal alignment.
inline Qt::Alignment BoxAlignment(std::int16_t code) {
    const Qt::Alignment horizontal = code == kAlignRight    ? Qt::AlignRight
                                     : code == kAlignCentre ? Qt::AlignHCenter
                                                            : Qt::AlignLeft;
    return horizontal | Qt::AlignVCenter;
}

} // namespace velmora
