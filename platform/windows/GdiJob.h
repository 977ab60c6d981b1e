// A print job drawn on a printer's device context.
#pragma once

#include "platform/PrintSurface.h"
#include "platform/windows/GdiFonts.h"
#include "platform/windows/PrinterSettings.h"

#include <string>

namespace velmora {

class GdiJob : public PrintSurface {
public:
    GdiJob(DeviceContext context, const std::string& title);
    ~GdiJob() override;
    GdiJob(const GdiJob&) = delete;
    GdiJob& operator=(const GdiJob&) = delete;

    bool Start() override;
    void BeginPage() override;
    void Clip(const std::optional<PrintArea>& area) override;
    bool DrawLine(const PrintLine& line) override;
    void FillShape(const PrintShape& shape) override;
    void FillArea(const PrintArea& area, double grey) override;
    void EndPage() override;
    void Finish() override;

private:
    void TracePath(const PrintShape& shape);

    DeviceContext context_;
    std::wstring title_;
    GdiFonts fonts_;
    bool isOpen_ = false; ///< begun and not handed over
};

} // namespace velmora
