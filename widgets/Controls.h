// What the forms share in making their controls.
#pragma once

#include "document/FontSettings.h"

#include <QComboBox>

namespace velmora {

/// The control itself, with the name that it is found by.
template <typename Control> Control* Named(Control* control, const char* name) {
    control->setObjectName(name);
    return control;
}

/// What a combo box without a label is for. Where screen readers call a combo box by what is chosen in it, they read
/// the description after that.
inline void SetPurpose(QComboBox& box, const QString& purpose) {
    box.setAccessibleName(purpose);
    box.setAccessibleDescription(purpose);
}

/// Of the box of a field, from the code of its horizontal alignment.
inline Qt::Alignment BoxAlignment(std::int16_t code) {
    const Qt::Alignment horizontal = code == kAlignRight    ? Qt::AlignRight
                                     : code == kAlignCentre ? Qt::AlignHCenter
                                                            : Qt::AlignLeft;
    return horizontal | Qt::AlignVCenter;
}

} // namespace velmora
