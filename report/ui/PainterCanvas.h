// Sheets drawn with a QPainter: the preview on the screen and the paper in the printer.
#pragma once

#include "report/Canvas.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>

#include <map>
#include <memory>
#include <utility>

namespace velmora {

/// The glyphs of one face for a painter, in the sizes used so far.
class PainterFont {
public:
    explicit PainterFont(std::shared_ptr<const FontFace> face);

    /// Not valid for a face that the toolkit cannot open by itself, as those of a collection but its first.
    const QRawFont& RawFont(double sizeTwips);
    /// In font units, upwards negative as painters count.
    const QPainterPath& Outline(std::uint32_t glyph);

private:
    std::shared_ptr<const FontFace> face_;
    std::map<double, QRawFont> rawFonts_; ///< by size
    QHash<std::uint32_t, QPainterPath> outlines_;
};

/// Keeps fonts open from one repaint to the next.
class PainterFonts {
public:
    PainterFont& operator[](const std::shared_ptr<const FontFace>& face);

private:
    std::map<const FontFace*, std::unique_ptr<PainterFont>> fonts_;
};

inline QRectF ToRect(const Box& box) {
    return {box.left, box.top, box.width, box.height};
}

/// A preview may show a sheet as it is read, whichever way the paper runs through the printer.
enum class SheetView { AsPrinted, AsRead };

/// Serves preview and paper alike, with the very glyphs and positions of the PDF. The painter's transform
/// maps twips to the device, at any scale: those of the paper from its top left corner, or of the sheet where
/// it is shown as read. The painter is left as it was found when the sheet ends.
class PainterCanvas : public Canvas {
public:
    PainterCanvas(QPainter& painter, PainterFonts& fonts, SheetView view = SheetView::AsPrinted);

    void BeginSheet(const Paper& paper) override;
    void DrawText(const ShapedText& text, double left, double baseline, const std::optional<Box>& clip) override;
    void FillBox(const Box& box) override;
    void DrawOutline(const Box& box, OutlineStyle style) override;
    void EndSheet() override;

private:
    void DrawRun(const GlyphRun& run, double fontSize, QPointF start);
    void DrawRunAsOutlines(const GlyphRun& run, double fontSize, QPointF start);

    QPainter& painter_;
    PainterFonts& fonts_;
    SheetView view_;
};

} // namespace velmora
