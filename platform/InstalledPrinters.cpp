#include "platform/InstalledPrinters.h"

namespace velmora {

std::vector<std::string> InstalledPrinters::Printers() const {
    std::vector<std::string> names = server_ ? server_->Printers() : std::vector<std::string>{};
    for (std::string& name : builtIn_.Printers())
        names.push_back(std::move(name));
    return names;
}

std::optional<std::string> InstalledPrinters::DefaultPrinter() const {
    const auto name = server_ ? server_->DefaultPrinter() : std::nullopt;
    return name ? name : builtIn_.DefaultPrinter();
}

const PrintSystem& InstalledPrinters::KeeperOf(const std::string& printer) const {
    if (server_ && printer != kPdfPrinter)
        return *server_;
    return builtIn_;
}

PrintSystem& InstalledPrinters::KeeperOf(const std::string& printer) {
    if (server_ && printer != kPdfPrinter)
        return *server_;
    return builtIn_;
}

PaperSupport InstalledPrinters::PaperOf(const std::string& printer, double widthMm, double heightMm) const {
    return KeeperOf(printer).PaperOf(printer, widthMm, heightMm);
}

PaperSources InstalledPrinters::SourcesOf(const std::string& printer) const {
    return KeeperOf(printer).SourcesOf(printer);
}

PrinterState InstalledPrinters::StateOf(const std::string& printer) const {
    return KeeperOf(printer).StateOf(printer);
}

std::unique_ptr<PrintSurface> InstalledPrinters::StartJob(const std::string& printer, const PrintJob& job) {
    return KeeperOf(printer).StartJob(printer, job);
}

std::optional<std::string> InstalledPrinters::Print(const std::string& printer, const PrintJob& job) {
    return KeeperOf(printer).Print(printer, job);
}

} // namespace velmora
