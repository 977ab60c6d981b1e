// What is painted as paper has these colours whatever the desktop's palette, as what comes out of the printer has.
#pragma once

#include <QColor>

namespace velmora {

inline constexpr QColor kPaper(0xff, 0xff, 0xff);
inline constexpr QColor kInk(0, 0, 0);
inline constexpr QColor kHairline(0xc4, 0xc4, 0xc4);
inline constexpr QColor kLetter(0x8c, 0x8c, 0x8c); ///< what an empty field is called
inline constexpr QColor kAmber(0xc0, 0x6c, 0x00);  ///< around a text that loses something
/// How much of the mark's colour lies on marked paper.
inline constexpr double kMarkTint = 0.15;

} // namespace velmora
