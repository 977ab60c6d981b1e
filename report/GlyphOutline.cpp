#include "report/GlyphOutline.h"

namespace velmora {
namespace {

using Outline = std::vector<OutlinePoint>;
using Kind = OutlinePoint::Kind;

void Append(void* outline, Kind kind, double x, double y) {
    static_cast<Outline*>(outline)->push_back({kind, x, y});
}

void MoveTo(hb_draw_funcs_t*, void* outline, hb_draw_state_t*, float x, float y, void*) {
    Append(outline, Kind::Move, x, y);
}
void LineTo(hb_draw_funcs_t*, void* outline, hb_draw_state_t*, float x, float y, void*) {
    Append(outline, Kind::Line, x, y);
}
/// As the cubic curve that it is: its handles lie two thirds of the way to the one point.
void QuadraticTo(hb_draw_funcs_t*, void* outline, hb_draw_state_t* state, float controlX, float controlY, float x,
                 float y, void*) {
    const auto handle = [](double end, double control) { return end + (control - end) * 2 / 3; };
    Append(outline, Kind::Curve, handle(state->current_x, controlX), handle(state->current_y, controlY));
    Append(outline, Kind::Curve, handle(x, controlX), handle(y, controlY));
    Append(outline, Kind::Curve, x, y);
}
void CubicTo(hb_draw_funcs_t*, void* outline, hb_draw_state_t*, float control1X, float control1Y, float control2X,
             float control2Y, float x, float y, void*) {
    Append(outline, Kind::Curve, control1X, control1Y);
    Append(outline, Kind::Curve, control2X, control2Y);
    Append(outline, Kind::Curve, x, y);
}

} // namespace

std::vector<OutlinePoint> GlyphOutline(const FontFace& face, std::uint32_t glyph) {
    const std::unique_ptr<hb_draw_funcs_t, HbRelease<hb_draw_funcs_destroy>> functions(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(functions.get(), MoveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions.get(), LineTo, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(functions.get(), QuadraticTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions.get(), CubicTo, nullptr, nullptr);
    Outline outline;
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(face.Font(), glyph, functions.get(), &outline);
#else
    hb_font_get_glyph_shape(face.Font(), glyph, functions.get(), &outline);
#endif
    return outline;
}

} // namespace velmora
