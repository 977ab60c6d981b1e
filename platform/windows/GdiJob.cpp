#include "platform/windows/GdiJob.h"

#include "platform/PrintSystem.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace velmora {
namespace {

constexpr int kPerTwip = 10; // the units of the device context: finer than any printer's dots
constexpr int kPerInch = 1440 * kPerTwip;
constexpr int kUpwards = 900; // tenths of a degree

int Units(double twips) {
    return static_cast<int>(std::lround(twips * kPerTwip));
}

POINT At(double x, double y) {
    return {Units(x), Units(y)};
}

RECT RectOf(const PrintArea& area) {
    return {Units(area.left), Units(area.top), Units(area.left + area.width), Units(area.top + area.height)};
}

void Check(int result) {
    if (result <= 0)
        throw PrinterError("The job was not taken.", kPrinterErrorNumber);
}

/// Selected as long as this lives.
class Selected {
public:
    Selected(HDC context, HGDIOBJ object) : context_(context), before_(::SelectObject(context, object)) {}
    ~Selected() { ::SelectObject(context_, before_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC context_;
    HGDIOBJ before_;
};

struct DeletePen {
    using pointer = HPEN;
    void operator()(HPEN pen) const { ::DeleteObject(pen); }
};

/// The glyphs from `first` that one call draws: they stand at one height, and each to the right of the one before.
std::size_t EndOfStretch(const std::vector<PrintLine::Glyph>& glyphs, std::size_t first) {
    std::size_t end = first + 1;
    while (end < glyphs.size() && glyphs[end].above == glyphs[first].above &&
           glyphs[end].along >= glyphs[end - 1].along)
        ++end;
    return end;
}

std::uint32_t HighestOf(const std::vector<PrintLine::Glyph>& glyphs) {
    std::uint32_t highest = 0;
    for (const PrintLine::Glyph& glyph : glyphs)
        highest = std::max(highest, glyph.id);
    return highest;
}

/// From the places, which are rounded each for itself, so that no error grows along the line.
void DrawStretch(HDC context, const PrintLine& line, std::size_t first, std::size_t end) {
    const auto& [id, along, above] = line.glyphs[first];
    const POINT start =
        line.upwards ? At(line.start.x - above, line.start.y - along) : At(line.start.x + along, line.start.y - above);
    std::vector<wchar_t> ids;
    std::vector<INT> advances;
    for (std::size_t i = first; i < end; ++i) {
        ids.push_back(static_cast<wchar_t>(line.glyphs[i].id));
        advances.push_back(i + 1 < end ? Units(line.glyphs[i + 1].along - along) - Units(line.glyphs[i].along - along)
                                       : 0);
    }
    ::ExtTextOutW(context, start.x, start.y, ETO_GLYPH_INDEX, nullptr, ids.data(), static_cast<UINT>(ids.size()),
                  advances.data());
}

} // namespace

GdiJob::GdiJob(DeviceContext context, const std::string& title)
    : context_(std::move(context)), title_(Wide(title)), fonts_(context_.get()) {}

GdiJob::~GdiJob() {
    if (isOpen_)
        ::AbortDoc(context_.get());
}

bool GdiJob::Start() {
    DOCINFOW info{};
    info.cbSize = sizeof info;
    info.lpszDocName = title_.c_str();
    if (::StartDocW(context_.get(), &info) <= 0) {
        if (::GetLastError() == ERROR_CANCELLED) // a printer that writes files asks for a name
            return false;
        Check(0);
    }
    return isOpen_ = true;
}

void GdiJob::BeginPage() {
    HDC context = context_.get();
    Check(::StartPage(context));
    ::SetMapMode(context, MM_ANISOTROPIC);
    ::SetWindowExtEx(context, kPerInch, kPerInch, nullptr);
    ::SetViewportExtEx(context, ::GetDeviceCaps(context, LOGPIXELSX), ::GetDeviceCaps(context, LOGPIXELSY), nullptr);
    ::SetViewportOrgEx(context, -::GetDeviceCaps(context, PHYSICALOFFSETX), -::GetDeviceCaps(context, PHYSICALOFFSETY),
                       nullptr);
    ::SetBkMode(context, TRANSPARENT);
    ::SetTextAlign(context, TA_BASELINE | TA_LEFT);
    ::SetTextColor(context, 0);
    ::SetPolyFillMode(context, WINDING);
    Clip(std::nullopt);
}

void GdiJob::EndPage() {
    Check(::EndPage(context_.get()));
}

void GdiJob::Finish() {
    isOpen_ = false;
    Check(::EndDoc(context_.get()));
}

void GdiJob::Clip(const std::optional<PrintArea>& area) {
    ::SelectClipRgn(context_.get(), nullptr);
    if (!area)
        return;
    const RECT rect = RectOf(*area);
    ::IntersectClipRect(context_.get(), rect.left, rect.top, rect.right, rect.bottom);
}

bool GdiJob::DrawLine(const PrintLine& line) {
    HFONT font =
        fonts_.Find(line.font, line.face, HighestOf(line.glyphs), Units(line.size), line.upwards ? kUpwards : 0);
    if (!font)
        return false;
    const Selected selected(context_.get(), font);
    for (std::size_t first = 0; first < line.glyphs.size();) {
        const std::size_t end = EndOfStretch(line.glyphs, first);
        DrawStretch(context_.get(), line, first, end);
        first = end;
    }
    return true;
}

void GdiJob::TracePath(const PrintShape& shape) {
    HDC context = context_.get();
    ::BeginPath(context);
    const auto at = [&](std::size_t i) { return At(shape.points[i].x, shape.points[i].y); };
    for (std::size_t i = 0; i < shape.points.size(); ++i)
        switch (shape.points[i].kind) {
        case OutlinePoint::Kind::Move:
            if (i > 0)
                ::CloseFigure(context);
            ::MoveToEx(context, at(i).x, at(i).y, nullptr);
            break;
        case OutlinePoint::Kind::Line: ::LineTo(context, at(i).x, at(i).y); break;
        case OutlinePoint::Kind::Curve:
            const std::array curve = {at(i), at(i + 1), at(i + 2)};
            ::PolyBezierTo(context, curve.data(), static_cast<DWORD>(curve.size()));
            i += 2;
            break;
        }
    ::CloseFigure(context);
    ::EndPath(context);
}

void GdiJob::FillShape(const PrintShape& shape) {
    HDC context = context_.get();
    const LOGBRUSH black = {BS_SOLID, 0, 0};
    const std::unique_ptr<HPEN, DeletePen> pen(::ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                                              static_cast<DWORD>(std::max(1, Units(shape.thickness))),
                                                              &black, 0, nullptr));
    const Selected brush(context, ::GetStockObject(BLACK_BRUSH)), edge(context, pen.get());
    TracePath(shape);
    if (shape.thickness > 0)
        ::StrokeAndFillPath(context);
    else
        ::FillPath(context);
}

void GdiJob::FillArea(const PrintArea& area, double grey) {
    constexpr double kWhite = 255;
    const auto shade = static_cast<BYTE>(std::lround(grey * kWhite));
    HBRUSH brush = ::CreateSolidBrush(RGB(shade, shade, shade));
    const RECT rect = RectOf(area);
    ::FillRect(context_.get(), &rect, brush);
    ::DeleteObject(brush);
}

} // namespace velmora
