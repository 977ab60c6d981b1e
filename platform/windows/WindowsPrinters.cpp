#include "platform/windows/WindowsPrinters.h"

#include "platform/windows/GdiJob.h"
#include "platform/windows/PrinterSettings.h"

#include <array>
#include <utility>

namespace velmora {
namespace {

/// What the spooler fills a buffer with, which holds pointers into itself.
template <typename Fill> std::vector<BYTE> Filled(Fill fill) {
    DWORD size = 0;
    fill(nullptr, 0, &size);
    std::vector<BYTE> bytes(size);
    if (size == 0 || !fill(bytes.data(), size, &size))
        bytes.clear();
    return bytes;
}

UnprintableMargins MarginsOf(HDC context) {
    constexpr double kMmPerInch = 25.4;
    const auto value = [&](int what) { return static_cast<double>(::GetDeviceCaps(context, what)); };
    const double perMmX = value(LOGPIXELSX) / kMmPerInch, perMmY = value(LOGPIXELSY) / kMmPerInch;
    const double left = value(PHYSICALOFFSETX), top = value(PHYSICALOFFSETY);
    return {left / perMmX, top / perMmY, (value(PHYSICALWIDTH) - left - value(HORZRES)) / perMmX,
            (value(PHYSICALHEIGHT) - top - value(VERTRES)) / perMmY};
}

/// Of the numbers that a driver gives, those with a name.
template <typename Number, std::size_t length>
std::vector<PaperSource> Named(const OpenedPrinter& printer, WORD numbers, WORD names) {
    using Name = std::array<wchar_t, length>;
    const auto known = printer.Capabilities<Number>(numbers);
    const auto words = printer.Capabilities<Name>(names);
    std::vector<PaperSource> sources;
    for (std::size_t i = 0; i < std::min(known.size(), words.size()); ++i) {
        const std::wstring_view name(words[i].data(), length); // without an end where it fills its place
        sources.push_back({std::to_string(known[i]), Narrow(name.substr(0, name.find(L'\0')))});
    }
    return sources;
}

constexpr std::pair<DWORD, const char*> kStates[] = {{PRINTER_STATUS_PAUSED, "paused"},
                                                     {PRINTER_STATUS_ERROR, "error"},
                                                     {PRINTER_STATUS_PAPER_JAM, "paper jam"},
                                                     {PRINTER_STATUS_PAPER_OUT, "out of paper"},
                                                     {PRINTER_STATUS_PAPER_PROBLEM, "paper problem"},
                                                     {PRINTER_STATUS_MANUAL_FEED, "wants paper by hand"},
                                                     {PRINTER_STATUS_OFFLINE, "offline"},
                                                     {PRINTER_STATUS_OUTPUT_BIN_FULL, "output bin full"},
                                                     {PRINTER_STATUS_NOT_AVAILABLE, "not available"},
                                                     {PRINTER_STATUS_NO_TONER, "out of toner"},
                                                     {PRINTER_STATUS_USER_INTERVENTION, "somebody must see to it"},
                                                     {PRINTER_STATUS_DOOR_OPEN, "door open"}};

[[noreturn]] void RaiseUnknown(const std::string& printer) {
    throw PrinterError("There is no printer \"" + printer + "\".", kPrinterNotValidNumber);
}

} // namespace

std::vector<std::string> WindowsPrinters::Printers() const {
    constexpr DWORD kLevel = 4; // names alone, without asking each printer
    DWORD count = 0;
    const auto list = Filled([&](BYTE* bytes, DWORD size, DWORD* needed) {
        return ::EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, kLevel, bytes, size, needed,
                               &count);
    });
    std::vector<std::string> names;
    const auto* found = reinterpret_cast<const PRINTER_INFO_4W*>(list.data());
    for (DWORD i = 0; !list.empty() && i < count; ++i)
        names.push_back(Narrow(found[i].pPrinterName));
    return names;
}

std::optional<std::string> WindowsPrinters::DefaultPrinter() const {
    DWORD length = 0;
    ::GetDefaultPrinterW(nullptr, &length);
    std::wstring name(length, L'\0');
    if (length == 0 || !::GetDefaultPrinterW(name.data(), &length))
        return std::nullopt;
    return Narrow(name.c_str());
}

PaperSupport WindowsPrinters::PaperOf(const std::string& printer, double widthMm, double heightMm) const {
    const OpenedPrinter opened(printer);
    const PrinterSettings settings(opened, widthMm, heightMm);
    if (!settings.IsPaperListed())
        return {};
    const DeviceContext context = settings.Context();
    return {true, context ? std::optional(MarginsOf(context.get())) : std::nullopt};
}

PaperSources WindowsPrinters::SourcesOf(const std::string& printer) const {
    constexpr std::size_t kTrayName = 24, kKindName = 64;
    const OpenedPrinter opened(printer);
    return {Named<WORD, kTrayName>(opened, DC_BINS, DC_BINNAMES),
            Named<DWORD, kKindName>(opened, DC_MEDIATYPES, DC_MEDIATYPENAMES)};
}

PrinterState WindowsPrinters::StateOf(const std::string& printer) const {
    constexpr DWORD kLevel = 2;
    const OpenedPrinter opened(printer);
    const auto bytes = Filled([&](BYTE* buffer, DWORD size, DWORD* needed) {
        return ::GetPrinterW(opened.Handle(), kLevel, buffer, size, needed);
    });
    if (bytes.empty())
        return {};
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2W*>(bytes.data());
    const bool isSetOffline = (info.Attributes & PRINTER_ATTRIBUTE_WORK_OFFLINE) != 0;
    const DWORD status = info.Status | (isSetOffline ? PRINTER_STATUS_OFFLINE : 0U);
    std::string words;
    for (const auto& [flag, word] : kStates)
        if ((status & flag) != 0)
            words += (words.empty() ? "" : ", ") + std::string(word);
    return words.empty() ? PrinterState{} : PrinterState{Readiness::Waiting, words};
}

std::unique_ptr<PrintSurface> WindowsPrinters::StartJob(const std::string& printer, const PrintJob& job) {
    const OpenedPrinter opened(printer);
    if (!opened.IsThere())
        RaiseUnknown(printer);
    if (const int most = opened.Capability(DC_COPIES); job.options.copies > std::max(1, most))
        throw PrinterError("The printer \"" + printer + "\" makes at most " + std::to_string(std::max(1, most)) +
                           " copies of a job.");
    PrinterSettings settings(opened, job.widthMm, job.heightMm);
    settings.PrepareFor(job.options);
    DeviceContext context = settings.Context();
    if (!context)
        throw PrinterError("The printer \"" + printer + "\" cannot be used.", kPrinterErrorNumber);
    return std::make_unique<GdiJob>(std::move(context), job.title);
}

std::optional<std::string> WindowsPrinters::Print(const std::string& printer, const PrintJob&) {
    throw PrinterError("\"" + printer + "\" takes no PDF.", kPrinterErrorNumber);
}

} // namespace velmora
