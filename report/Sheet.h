// One sheet of stationery with its texts in place: what the tab report hands to the painter.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmora {

inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerInch = 1440;

/// Lengths in twips, from the top left corner of the sheet as it is read.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// The paper as it goes through the printer.
struct Paper {
    double widthMm = 0;
    double heightMm = 0;
    /// The content is turned a quarter against the clock: the top of the sheet as read lies along the paper's left
    /// edge.
    bool turned = false;
};

/// One field of one tab: a single line, clipped to its box, never wrapped, never scaled.
struct PlacedText {
    std::string_view text; ///< UTF-8; belongs to the document
    Box box;
    int field = 0;              ///< 0 to 2: index of its font and of its vertical alignment
    std::int16_t alignment = 0; ///< horizontal: 0 left, 1 right, 2 centre
    std::int32_t tab = 0;       ///< of the document, from 1
    int slot = 0;               ///< place on the sheet, from 1: the box of `tabs` that it belongs to
};

struct Sheet {
    Paper paper;
    std::vector<PlacedText> texts;
    std::vector<Box> tabs;       ///< text bands of all tabs of the sheet, for the outline
    std::vector<Box> fields;     ///< boxes of all fields in use, for the outline
    std::vector<Box> marks = {}; ///< filled black: rulers
};

} // namespace velmora
