// One sheet of stationery with its texts in place: what the tab report hands to the painter.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmora {

/// Lengths in twips, from the top left corner of the sheet as it is read.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
    Box Moved(double right, double down) const { return {left + right, top + down, width, height}; }
    /// Also what reaches out by no more than `tolerance`.
    bool Holds(const Box& inner, double tolerance) const;
    /// No width or height where the two have nothing in common.
    Box CommonWith(const Box& other) const;
};

/// The paper as it goes through the printer.
struct Paper {
    double widthMm = 0;
    double heightMm = 0;
    /// The content is turned a quarter against the clock: the top of the sheet as read lies along the paper's left
    /// edge.
    bool turned = false;

    /// The sheet as it is read, at 0, 0.
    Box AsRead() const;
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
