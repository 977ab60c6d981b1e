// A print job that is drawn, for systems that take no PDF: pages of glyphs, shapes and areas, all black or grey.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace velmora {

/// Twips from the top left corner of the paper as it goes through the printer.
struct PrintPoint {
    double x = 0;
    double y = 0;
};
struct PrintArea {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// Glyphs of one face that share a baseline. Lengths in twips.
struct PrintLine {
    struct Glyph {
        std::uint32_t id;
        double along; ///< from the start of the line
        double above; ///< the baseline
    };

    std::filesystem::path font;
    int face = 0;    ///< index within a collection
    double size = 0; ///< the em
    PrintPoint start;
    bool upwards = false; ///< it runs up the paper, its glyphs lying on their backs
    std::vector<Glyph> glyphs;
};

/// Of an outline. A curve takes three points, two to steer by and its end. Each part begins with a move, and is closed
/// where it ends.
struct OutlinePoint {
    enum class Kind { Move, Line, Curve };
    Kind kind;
    double x;
    double y;
};

/// Filled, however its parts overlap.
struct PrintShape {
    std::vector<OutlinePoint> points; ///< placed as PrintPoint is
    double thickness = 0;             ///< twips; of a line with round corners along its edge; 0: none
};

/// One job. What goes away without Finish prints nothing. Raises PrinterError.
class PrintSurface {
public:
    virtual ~PrintSurface() = default;
    /// False where the system asks the person something, such as a file's name, and they cancelled: there is no job then.
    virtual bool Start() = 0;
    virtual void BeginPage() = 0;
    /// Ink outside is not drawn until the next call; nullopt: everywhere, as each page begins.
    virtual void Clip(const std::optional<PrintArea>& area) = 0;
    /// False, and nothing drawn, where the system cannot draw glyphs of that very face: they are to come as shapes.
    virtual bool DrawLine(const PrintLine& line) = 0;
    virtual void FillShape(const PrintShape& shape) = 0;
    /// `grey`: 0 black to 1 white.
    virtual void FillArea(const PrintArea& area, double grey) = 0;
    virtual void EndPage() = 0;
    /// Hands the job over.
    virtual void Finish() = 0;
};

} // namespace velmora
