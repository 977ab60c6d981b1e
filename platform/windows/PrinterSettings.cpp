#include "platform/windows/PrinterSettings.h"

#include <cmath>
#include <cstdlib>

namespace velmora {
namespace {

constexpr double kPerMm = 10; // papers are in tenths of a millimetre
constexpr int kTolerance = 3;

bool IsAbout(LONG tenths, double mm) {
    return std::abs(static_cast<int>(tenths) - static_cast<int>(std::lround(mm * kPerMm))) <= kTolerance;
}

short Tenths(double mm) {
    return static_cast<short>(std::lround(mm * kPerMm));
}

} // namespace

OpenedPrinter::OpenedPrinter(const std::string& name) : name_(Wide(name)) {
    if (!::OpenPrinterW(name_.data(), &handle_, nullptr))
        handle_ = nullptr;
}

OpenedPrinter::~OpenedPrinter() {
    if (handle_)
        ::ClosePrinter(handle_);
}

int OpenedPrinter::Ask(WORD what, wchar_t* list) const {
    return IsThere() ? static_cast<int>(::DeviceCapabilitiesW(name_.c_str(), nullptr, what, list, nullptr)) : 0;
}

PrinterSettings::PrinterSettings(const OpenedPrinter& printer, double widthMm, double heightMm) : printer_(printer) {
    auto* name = const_cast<wchar_t*>(printer.Name().c_str()); // which it only reads
    const LONG size =
        printer.IsThere() ? ::DocumentPropertiesW(nullptr, printer.Handle(), name, nullptr, nullptr, 0) : 0;
    bytes_.resize(static_cast<std::size_t>(std::max(LONG{0}, size)));
    if (Mode() && ::DocumentPropertiesW(nullptr, printer.Handle(), name, Mode(), nullptr, DM_OUT_BUFFER) < 0)
        bytes_.clear();
    TakePaper(widthMm, heightMm);
}

void PrinterSettings::TakePaper(double widthMm, double heightMm) {
    const auto sizes = printer_.Capabilities<POINT>(DC_PAPERSIZE);
    const auto numbers = printer_.Capabilities<WORD>(DC_PAPERS);
    const auto paper = std::find_if(sizes.begin(), sizes.end(), [&](const POINT& size) {
        return IsAbout(size.x, widthMm) && IsAbout(size.y, heightMm);
    });
    const auto place = static_cast<std::size_t>(paper - sizes.begin());
    isPaperListed_ = printer_.IsThere() && (sizes.empty() || place < sizes.size());
    DEVMODEW* mode = Mode();
    if (!mode)
        return;
    mode->dmFields |= DM_PAPERSIZE | DM_ORIENTATION;
    mode->dmFields &= ~static_cast<DWORD>(DM_PAPERWIDTH | DM_PAPERLENGTH | DM_FORMNAME | DM_YRESOLUTION);
    mode->dmOrientation = DMORIENT_PORTRAIT; // what is drawn is turned already
    if (place < numbers.size()) {
        mode->dmPaperSize = static_cast<short>(numbers[place]);
        return;
    }
    mode->dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
    mode->dmPaperSize = DMPAPER_USER;
    mode->dmPaperWidth = Tenths(widthMm);
    mode->dmPaperLength = Tenths(heightMm);
}

void PrinterSettings::PrepareFor(const JobOptions& options) {
    DEVMODEW* mode = Mode();
    if (!mode)
        return;
    constexpr short kWhole = 100; // per cent
    mode->dmFields |= DM_COPIES | DM_COLLATE | DM_DUPLEX | DM_SCALE | DM_PRINTQUALITY | DM_NUP;
    mode->dmCopies = static_cast<short>(options.copies);
    mode->dmCollate = DMCOLLATE_TRUE;
    mode->dmDuplex = DMDUP_SIMPLEX;
    mode->dmScale = kWhole;
    mode->dmPrintQuality = DMRES_HIGH;
    mode->dmNup = DMNUP_ONEUP;
    if (!options.tray.empty()) {
        mode->dmFields |= DM_DEFAULTSOURCE;
        mode->dmDefaultSource = static_cast<short>(std::atoi(options.tray.c_str()));
    }
    if (!options.kind.empty()) {
        mode->dmFields |= DM_MEDIATYPE;
        mode->dmMediaType = static_cast<DWORD>(std::atoi(options.kind.c_str()));
    }
}

DeviceContext PrinterSettings::Context() const {
    std::vector<char> agreed = bytes_; // the driver mends what does not go together
    auto* mode = agreed.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(agreed.data());
    if (mode)
        ::DocumentPropertiesW(nullptr, printer_.Handle(), const_cast<wchar_t*>(printer_.Name().c_str()), mode, mode,
                              DM_IN_BUFFER | DM_OUT_BUFFER);
    return DeviceContext(printer_.IsThere() ? ::CreateDCW(L"WINSPOOL", printer_.Name().c_str(), nullptr, mode)
                                            : nullptr);
}

} // namespace velmora
