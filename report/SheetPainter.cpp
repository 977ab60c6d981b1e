#include "report/SheetPainter.h"

namespace velmora {
namespace {

constexpr double kRounding = 0.01; // twips; less than rounding takes away

double LeftOf(const PlacedText& placed, double width) {
    const double room = placed.box.width - width; // less than nothing where the text is too wide
    switch (placed.alignment) {
    case kAlignRight: return placed.box.left + room;
    case kAlignCentre: return placed.box.left + room / 2;
    default: return placed.box.left;
    }
}

double BaselineOf(const Box& box, std::int16_t alignment, const ShapedText& text) {
    const double room = box.height - text.ascent - text.descent;
    switch (alignment) {
    case kAlignTop: return box.top + text.ascent;
    case kAlignBottom: return box.top + room + text.ascent;
    default: return box.top + room / 2 + text.ascent;
    }
}

/// The ink is measured only where the line itself, with its room for accents, is too large: most lines are
/// not.
bool FitsIn(const Box& box, const ShapedText& text, double left, double baseline) {
    return box.Holds({left, baseline - text.ascent, text.width, text.ascent + text.descent}, kRounding) ||
           box.Holds(InkBox(text).Moved(left, baseline), kRounding);
}

} // namespace

LinePlace PlaceLine(const PlacedText& placed, const ShapedText& text, const FontSettings& fonts) {
    const double left = LeftOf(placed, text.width);
    const std::int16_t vertical = fonts[static_cast<std::size_t>(placed.field)].VerticalAlignment;
    const double baseline = BaselineOf(placed.box, vertical, text);
    return {left, baseline, FitsIn(placed.box, text, left, baseline)};
}

std::string LossText(const TextLoss& loss) {
    if (!loss.unknown)
        return loss.cut ? "will be cut off" : "";
    return loss.cut ? "will be cut off; no font has one of its characters" : "no font has one of its characters";
}

SheetPainter::SheetPainter(const FontCatalogue& catalogue, const FontSettings& fonts)
    : fonts_(fonts), shaper_(catalogue, fonts) {}

void SheetPainter::Paint(const Sheet& sheet, Canvas& canvas, Outlines outlines) {
    canvas.BeginSheet(sheet.paper);
    if (outlines == Outlines::Shown) {
        for (const Box& box : sheet.fields)
            canvas.DrawOutline(box, OutlineStyle::Field);
        for (const Box& box : sheet.tabs)
            canvas.DrawOutline(box, OutlineStyle::Tab);
    }
    for (const Box& mark : sheet.marks)
        canvas.FillBox(mark);
    for (const PlacedText& placed : sheet.texts)
        PaintText(placed, canvas);
    canvas.EndSheet();
}

TextLoss SheetPainter::LossOf(const PlacedText& placed) {
    const ShapedText& text = shaper_.Shape(placed.text, placed.field);
    return {!PlaceLine(placed, text, fonts_).fits, HasUnknownCharacter(text)};
}

TextLoss SheetPainter::PaintText(const PlacedText& placed, Canvas& canvas) {
    const ShapedText& text = shaper_.Shape(placed.text, placed.field);
    if (text.runs.empty())
        return {};
    const auto [left, baseline, fits] = PlaceLine(placed, text, fonts_);
    if (fits)
        canvas.DrawText(text, left, baseline, std::nullopt);
    else
        canvas.DrawText(text, left, baseline, placed.box);
    if (text.underline)
        PaintUnderline(placed, text, {left, baseline, fits}, canvas);
    return {!fits, HasUnknownCharacter(text)};
}

void SheetPainter::PaintUnderline(const PlacedText& placed, const ShapedText& text, const LinePlace& place,
                                  Canvas& canvas) {
    const Box line =
        Box{place.left, place.baseline + text.underlineTop, text.width, text.underlineThickness}.CommonWith(placed.box);
    if (line.width > 0 && line.height > 0)
        canvas.FillBox(line);
}

} // namespace velmora
