#include "platform/linux/CupsPrinters.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "platform/linux/WaitingJob.h"

#include <cups/cups.h>
#include <cups/pwg.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <memory>

namespace velmora {
namespace {

constexpr int kConnectMs = 1000;
constexpr double kAnswerSeconds = 3;
constexpr std::chrono::seconds kSilence{10};
constexpr double kPwgUnitsPerMm = 100;

struct Close {
    void operator()(http_t* connection) const { httpClose(connection); }
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using Connection = std::unique_ptr<http_t, Close>;
using Destination = std::unique_ptr<cups_dest_t, Close>;
using DestinationInfo = std::unique_ptr<cups_dinfo_t, Close>;

bool Answers(http_t* connection) {
    ippDelete(cupsDoRequest(connection, ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"));
    const ipp_status_t status = cupsLastError();
    return status < IPP_STATUS_REDIRECTION_OTHER_SITE || status == IPP_STATUS_ERROR_NOT_FOUND;
}

/// Null where no server answers soon, and for a while after that.
Connection Connect(CupsPrinters::Moment& silentUntil) {
    if (std::chrono::steady_clock::now() < silentUntil)
        return nullptr;
    Connection connection(
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, kConnectMs, nullptr));
    if (!connection)
        return nullptr;
    httpSetTimeout(
        connection.get(), kAnswerSeconds, [](http_t*, void*) { return 0; }, nullptr);
    if (Answers(connection.get()))
        return connection;
    silentUntil = std::chrono::steady_clock::now() + kSilence; // one wait is enough for a whole print run
    return nullptr;
}

class Destinations {
public:
    explicit Destinations(http_t* connection) : count_(cupsGetDests2(connection, &all_)) {}
    ~Destinations() { cupsFreeDests(count_, all_); }
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    const cups_dest_t* begin() const { return all_; }
    const cups_dest_t* end() const { return all_ + count_; }

private:
    cups_dest_t* all_ = nullptr;
    int count_;
};

std::string NameOf(const cups_dest_t& destination) {
    return std::string(destination.name) + (destination.instance ? "/" + std::string(destination.instance) : "");
}

/// Null for a printer that the server does not have.
Destination Find(http_t* connection, const std::string& printer) {
    const std::size_t slash = printer.find('/');
    const std::string instance = slash == std::string::npos ? "" : printer.substr(slash + 1);
    return Destination(cupsGetNamedDest(connection, printer.substr(0, slash).c_str(),
                                        slash == std::string::npos ? nullptr : instance.c_str()));
}

int PwgUnits(double millimetres) {
    return static_cast<int>(std::lround(millimetres * kPwgUnitsPerMm));
}

std::optional<cups_size_t> FindMedium(http_t* connection, cups_dest_t* destination, cups_dinfo_t* info, double widthMm,
                                      double heightMm) {
    cups_size_t size;
    if (!cupsGetDestMediaBySize(connection, destination, info, PwgUnits(widthMm), PwgUnits(heightMm),
                                CUPS_MEDIA_FLAGS_EXACT, &size))
        return std::nullopt;
    // The library takes a size within a few tenths of a millimetre for the same.
    if (size.width != PwgUnits(widthMm) || size.length != PwgUnits(heightMm))
        return std::nullopt;
    return size;
}

/// The standard's name of a size, or "custom_220x110mm_220x110mm".
std::string MediumName(double widthMm, double heightMm) {
    const pwg_media_t* known = pwgMediaForSize(PwgUnits(widthMm), PwgUnits(heightMm));
    if (known && known->width == PwgUnits(widthMm) && known->length == PwgUnits(heightMm) && known->legacy)
        return known->pwg;
    std::array<char, 128> name{};
    pwgFormatSizeName(name.data(), name.size(), "custom", nullptr, PwgUnits(widthMm), PwgUnits(heightMm), "mm");
    return name.data();
}

/// What the library says of the call that failed last.
[[noreturn]] void Fail() {
    const std::string text = cupsLastErrorString();
    switch (cupsLastError()) {
    case IPP_STATUS_ERROR_NOT_FOUND: throw PrinterError(text, kPrinterNotValidNumber);
    case IPP_STATUS_ERROR_DEVICE:
    case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
    case IPP_STATUS_ERROR_BUSY:
    case IPP_STATUS_ERROR_PRINTER_IS_DEACTIVATED:
    case IPP_STATUS_ERROR_SERVICE_UNAVAILABLE: throw PrinterError(text, kPrinterErrorNumber);
    default: throw PrinterError(text);
    }
}

class Options {
public:
    ~Options() { cupsFreeOptions(count_, all_); }
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    void Add(const char* name, const std::string& value) { count_ = cupsAddOption(name, value.c_str(), count_, &all_); }
    int Count() const { return count_; }
    cups_option_t* All() const { return all_; }

private:
    cups_option_t* all_ = nullptr;
    int count_ = 0;
};

/// A job that is taken back unless its document was sent.
class SpooledJob {
public:
    SpooledJob(http_t* connection, cups_dest_t* destination, cups_dinfo_t* info, const std::string& title,
               const Options& options)
        : connection_(connection), destination_(destination), info_(info) {
        if (cupsCreateDestJob(connection, destination, info, &id_, title.c_str(), options.Count(), options.All()) !=
            IPP_STATUS_OK)
            Fail();
    }
    ~SpooledJob() {
        if (!sent_)
            cupsCancelDestJob(connection_, destination_, id_);
    }
    SpooledJob(const SpooledJob&) = delete;
    SpooledJob& operator=(const SpooledJob&) = delete;

    int Id() const { return id_; }
    void Send(const std::filesystem::path& pdf) {
        std::ifstream file(pdf, std::ios::binary);
        if (!file)
            throw FileAccessError(pdf, errno);
        if (cupsStartDestDocument(connection_, destination_, info_, id_, PathText(pdf.filename()).c_str(),
                                  CUPS_FORMAT_PDF, 0, nullptr, 1) != HTTP_STATUS_CONTINUE)
            Fail();
        std::array<char, 65536> buffer;
        while (file.read(buffer.data(), buffer.size()), file.gcount() > 0)
            if (cupsWriteRequestData(connection_, buffer.data(), static_cast<std::size_t>(file.gcount())) !=
                HTTP_STATUS_CONTINUE)
                Fail();
        if (cupsFinishDestDocument(connection_, destination_, info_) > IPP_STATUS_OK_CONFLICTING)
            Fail();
        sent_ = true;
    }

private:
    http_t* connection_;
    cups_dest_t* destination_;
    cups_dinfo_t* info_;
    int id_ = 0;
    bool sent_ = false;
};

} // namespace

std::vector<std::string> CupsPrinters::Printers() const {
    std::vector<std::string> names;
    if (const Connection connection = Connect(silentUntil_))
        for (const cups_dest_t& destination : Destinations(connection.get()))
            names.push_back(NameOf(destination));
    return names;
}

std::optional<std::string> CupsPrinters::DefaultPrinter() const {
    const Connection connection = Connect(silentUntil_);
    if (!connection)
        return std::nullopt;
    const Destination destination(cupsGetNamedDest(connection.get(), nullptr, nullptr));
    return destination ? std::optional(NameOf(*destination)) : std::nullopt;
}

PaperSupport CupsPrinters::PaperOf(const std::string& printer, double widthMm, double heightMm) const {
    const Connection connection = Connect(silentUntil_);
    const Destination destination = connection ? Find(connection.get(), printer) : nullptr;
    if (!destination)
        return {};
    const DestinationInfo info(cupsCopyDestInfo(connection.get(), destination.get()));
    const auto size = FindMedium(connection.get(), destination.get(), info.get(), widthMm, heightMm);
    if (!size)
        return {};
    return {true, UnprintableMargins{size->left / kPwgUnitsPerMm, size->top / kPwgUnitsPerMm,
                                     size->right / kPwgUnitsPerMm, size->bottom / kPwgUnitsPerMm}};
}

std::string CupsPrinters::Print(const std::string& printer, const PrintJob& job) {
    const Connection connection = Connect(silentUntil_);
    if (!connection)
        throw PrinterError("The print server does not answer.", kPrinterErrorNumber);
    const Destination destination = Find(connection.get(), printer);
    if (!destination)
        throw PrinterError("There is no printer \"" + printer + "\".", kPrinterNotValidNumber);
    const DestinationInfo info(cupsCopyDestInfo(connection.get(), destination.get()));
    if (!info)
        Fail();
    const auto medium = FindMedium(connection.get(), destination.get(), info.get(), job.widthMm, job.heightMm);
    Options options;
    options.Add(CUPS_MEDIA, medium ? medium->media : MediumName(job.widthMm, job.heightMm));
    options.Add(CUPS_PRINT_QUALITY, CUPS_PRINT_QUALITY_HIGH);
    options.Add("print-scaling", "none");
    // The pages lie as they go through the printer; the server's filters turn a PDF once more for landscape
    // (seen with cups-filters).
    options.Add(CUPS_ORIENTATION, CUPS_ORIENTATION_PORTRAIT);
    SpooledJob spooled(connection.get(), destination.get(), info.get(), job.title, options);
    spooled.Send(job.pdf);
    return WhyJobWaits(connection.get(), spooled.Id());
}

} // namespace velmora
