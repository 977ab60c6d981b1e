#include "platform/linux/CupsPrinters.h"

#include "base/Text.h"
#include "platform/linux/CupsJob.h"
#include "platform/linux/CupsPassword.h"
#include "platform/linux/WaitingJob.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

constexpr int kHalfAPoint = 18; // in the same units

class Destinations {
public:
    explicit Destinations(http_t* connection) : count_(VELMORA_CUPS_CALL(cupsGetDests2)(connection, &all_)) {}
    ~Destinations() { VELMORA_CUPS_CALL(cupsFreeDests)(count_, all_); }
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
CupsDestination Find(http_t* connection, const std::string& printer) {
    const std::size_t slash = printer.find('/');
    const std::string instance = slash == std::string::npos ? "" : printer.substr(slash + 1);
    return CupsDestination(VELMORA_CUPS_CALL(cupsGetNamedDest)(
        connection, printer.substr(0, slash).c_str(), slash == std::string::npos ? nullptr : instance.c_str()));
}

bool IsOfSize(const cups_size_t& size, double widthMm, double heightMm, int tolerance) {
    return std::abs(size.width - PwgUnits(widthMm)) <= tolerance &&
           std::abs(size.length - PwgUnits(heightMm)) <= tolerance;
}

/// The library takes a size within a few tenths of a millimetre for the same, but does not find those of drivers, which
/// count in whole points. Of two alike, the one without borders has no margins: the other is taken.
std::optional<cups_size_t> FindMedium(http_t* connection, cups_dest_t* destination, cups_dinfo_t* info, double widthMm,
                                      double heightMm) {
    cups_size_t size;
    if (VELMORA_CUPS_CALL(cupsGetDestMediaBySize)(connection, destination, info, PwgUnits(widthMm), PwgUnits(heightMm),
                                                  CUPS_MEDIA_FLAGS_EXACT, &size) &&
        IsOfSize(size, widthMm, heightMm, 0))
        return size;
    std::optional<cups_size_t> found;
    const int count = VELMORA_CUPS_CALL(cupsGetDestMediaCount)(connection, destination, info, CUPS_MEDIA_FLAGS_DEFAULT);
    for (int i = 0; i < count; ++i)
        if (VELMORA_CUPS_CALL(cupsGetDestMediaByIndex)(connection, destination, info, i, CUPS_MEDIA_FLAGS_DEFAULT,
                                                       &size) &&
            IsOfSize(size, widthMm, heightMm, kHalfAPoint) && (!found || found->top < size.top))
            found = size;
    return found;
}

/// The standard's name of a size, or "custom_220x110mm_220x110mm".
std::string MediumName(double widthMm, double heightMm) {
    const pwg_media_t* known = VELMORA_CUPS_CALL(pwgMediaForSize)(PwgUnits(widthMm), PwgUnits(heightMm));
    if (known && known->width == PwgUnits(widthMm) && known->length == PwgUnits(heightMm) && known->legacy)
        return known->pwg;
    std::array<char, 128> name{};
    VELMORA_CUPS_CALL(pwgFormatSizeName)
    (name.data(), name.size(), "custom", nullptr, PwgUnits(widthMm), PwgUnits(heightMm), "mm");
    return name.data();
}

/// A printer as it was found, with what it says of itself. For one call.
class FoundPrinter {
public:
    FoundPrinter(Moment& silentUntil, const std::string& printer)
        : connection_(ConnectToCups(silentUntil)),
          destination_(connection_ ? Find(connection_.get(), printer) : nullptr),
          info_(destination_ ? VELMORA_CUPS_CALL(cupsCopyDestInfo)(connection_.get(), destination_.get()) : nullptr) {}

    bool HasServer() const { return connection_ != nullptr; }
    bool IsThere() const { return destination_ != nullptr; }
    bool IsKnown() const { return info_ != nullptr; }
    http_t* Connection() const { return connection_.get(); }
    cups_dest_t* Destination() const { return destination_.get(); }
    cups_dinfo_t* Info() const { return info_.get(); }

private:
    CupsConnection connection_;
    CupsDestination destination_;
    CupsDestinationInfo info_;
};

std::vector<PaperSource> SourcesFor(const FoundPrinter& printer, const char* option) {
    ipp_attribute_t* names =
        VELMORA_CUPS_CALL(cupsFindDestSupported)(printer.Connection(), printer.Destination(), printer.Info(), option);
    std::vector<PaperSource> sources;
    for (int i = 0; names && i < VELMORA_CUPS_CALL(ippGetCount)(names); ++i) {
        const std::string name = TextOf(names, i);
        if (name.empty())
            continue;
        const char* label = VELMORA_CUPS_CALL(cupsLocalizeDestValue)(printer.Connection(), printer.Destination(),
                                                                     printer.Info(), option, name.c_str());
        sources.push_back({name, label ? label : name});
    }
    return sources;
}

/// What the queue says of itself now; null where it is not one of the server's own.
CupsMessage AskState(http_t* connection, const cups_dest_t& destination) {
    static constexpr std::array kWanted = {"printer-state", "printer-state-reasons", "printer-state-message",
                                           "printer-is-accepting-jobs"};
    const std::string uri = OptionOf(destination, "printer-uri-supported");
    if (uri.empty())
        return nullptr;
    ipp_t* request = VELMORA_CUPS_CALL(ippNewRequest)(IPP_OP_GET_PRINTER_ATTRIBUTES);
    VELMORA_CUPS_CALL(ippAddString)(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
    VELMORA_CUPS_CALL(ippAddStrings)
    (request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", static_cast<int>(kWanted.size()), nullptr,
     kWanted.data());
    return CupsMessage(VELMORA_CUPS_CALL(cupsDoRequest)(connection, request, "/"));
}

ipp_attribute_t* Attribute(const CupsMessage& message, const char* name) {
    return message ? VELMORA_CUPS_CALL(ippFindAttribute)(message.get(), name, IPP_TAG_ZERO) : nullptr;
}

/// What somebody must see to before the next sheet. A printer that is busy with a job, or about to run out of
/// something, keeps nobody waiting.
bool KeepsWaiting(std::string_view reason) {
    static constexpr std::array<std::string_view, 13> kNeeds = {
        "media-empty", "media-needed",        "media-jam",       "toner-empty", "marker-supply-empty",
        "cover-open",  "interlock-open",      "door-open",       "offline",     "input-tray-missing",
        "paused",      "output-tray-missing", "output-area-full"};
    const bool isNeed =
        std::any_of(kNeeds.begin(), kNeeds.end(), [&](std::string_view need) { return reason.starts_with(need); });
    return reason.ends_with("-error") || (isNeed && (!reason.ends_with("-report") || reason == "offline-report"));
}

/// "Out of paper (media empty)".
std::string WordsOf(const std::string& message, const std::vector<std::string>& reasons) {
    std::string words;
    for (const std::string& reason : reasons)
        words += (words.empty() ? "" : ", ") + reason;
    std::replace(words.begin(), words.end(), '-', ' ');
    if (message.empty() || words.empty())
        return message + words;
    return message + " (" + words + ")";
}

PrinterState StateIn(const CupsMessage& answer) {
    std::vector<std::string> reasons;
    ipp_attribute_t* given = Attribute(answer, "printer-state-reasons");
    for (int i = 0; given && i < VELMORA_CUPS_CALL(ippGetCount)(given); ++i)
        if (std::string reason = TextOf(given, i); KeepsWaiting(reason))
            reasons.push_back(std::move(reason));
    const std::string words = WordsOf(TextOf(Attribute(answer, "printer-state-message")), reasons);
    ipp_attribute_t* accepting = Attribute(answer, "printer-is-accepting-jobs");
    if (accepting && !VELMORA_CUPS_CALL(ippGetBoolean)(accepting, 0))
        return {Readiness::Refusing, words};
    ipp_attribute_t* state = Attribute(answer, "printer-state");
    const bool stopped = state && VELMORA_CUPS_CALL(ippGetInteger)(state, 0) == IPP_PSTATE_STOPPED;
    return stopped || !reasons.empty() ? PrinterState{Readiness::Waiting, words} : PrinterState{};
}

/// As one of several values of an option.
std::string Escaped(const std::string& value) {
    std::string escaped;
    for (const char c : value) {
        if (std::string_view(",\\'\"").find(c) != std::string_view::npos)
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

/// What the printer behind the queue wants to know of its user, which goes with the job.
void AddCredentials(CupsOptions& options, const cups_dest_t& destination, CupsPassword& password) {
    const std::string asked = OptionOf(destination, "auth-info-required");
    if (asked.find("username") == std::string::npos && asked.find("password") == std::string::npos)
        return;
    const Credentials* given = password.Ask();
    if (!given)
        throw PrinterError("No password was given.");
    std::string answers;
    for (const std::string_view question : Split(asked, ','))
        answers += (answers.empty() ? "" : ",") + Escaped(question == "username"   ? given->user
                                                          : question == "password" ? given->password
                                                                                   : "");
    options.Add("auth-info", answers);
}

/// The number of the job.
int Spool(const FoundPrinter& printer, const PrintJob& job, CupsPassword& password) {
    const auto medium =
        FindMedium(printer.Connection(), printer.Destination(), printer.Info(), job.widthMm, job.heightMm);
    CupsOptions options;
    AddJobOptions(options, *printer.Destination(), job, medium ? medium->media : MediumName(job.widthMm, job.heightMm));
    AddCredentials(options, *printer.Destination(), password);
    SpooledJob spooled(printer.Connection(), printer.Destination(), printer.Info(), job.title, options);
    spooled.Send(job.pdf);
    return spooled.Id();
}

} // namespace

std::vector<std::string> CupsPrinters::Printers() const {
    std::vector<std::string> names;
    if (const CupsConnection connection = ConnectToCups(silentUntil_))
        for (const cups_dest_t& destination : Destinations(connection.get()))
            names.push_back(NameOf(destination));
    return names;
}

std::optional<std::string> CupsPrinters::DefaultPrinter() const {
    const CupsConnection connection = ConnectToCups(silentUntil_);
    if (!connection)
        return std::nullopt;
    const CupsDestination destination(VELMORA_CUPS_CALL(cupsGetNamedDest)(connection.get(), nullptr, nullptr));
    return destination ? std::optional(NameOf(*destination)) : std::nullopt;
}

PaperSupport CupsPrinters::PaperOf(const std::string& printer, double widthMm, double heightMm) const {
    const FoundPrinter found(silentUntil_, printer);
    if (!found.IsKnown())
        return {};
    if (!VELMORA_CUPS_CALL(cupsFindDestSupported)(found.Connection(), found.Destination(), found.Info(), CUPS_MEDIA))
        return {true}; // a queue without a driver: whatever comes goes through
    const auto size = FindMedium(found.Connection(), found.Destination(), found.Info(), widthMm, heightMm);
    if (!size)
        return {};
    return {true, UnprintableMargins{size->left / kPwgUnitsPerMm, size->top / kPwgUnitsPerMm,
                                     size->right / kPwgUnitsPerMm, size->bottom / kPwgUnitsPerMm}};
}

PaperSources CupsPrinters::SourcesOf(const std::string& printer) const {
    const FoundPrinter found(silentUntil_, printer);
    if (!found.IsKnown())
        return {};
    return {SourcesFor(found, CUPS_MEDIA_SOURCE), SourcesFor(found, CUPS_MEDIA_TYPE)};
}

PrinterState CupsPrinters::StateOf(const std::string& printer) const {
    const CupsConnection connection = ConnectToCups(silentUntil_);
    if (!connection)
        return {HasCupsServer(silentUntil_) ? Readiness::Silent : Readiness::Ready};
    const CupsDestination destination = Find(connection.get(), printer);
    return destination ? StateIn(AskState(connection.get(), *destination)) : PrinterState{};
}

std::optional<std::string> CupsPrinters::Print(const std::string& printer, const PrintJob& job) {
    const FoundPrinter found(silentUntil_, printer);
    if (!found.HasServer())
        throw PrinterError(kServerSilent, kPrinterErrorNumber);
    if (!found.IsThere())
        throw PrinterError("There is no printer \"" + printer + "\".", kPrinterNotValidNumber);
    if (!found.IsKnown())
        RaiseCupsError();
    CupsPassword password(printer, job.askCredentials);
    try {
        return WhyJobWaits(found.Connection(), Spool(found, job, password));
    } catch (const PrinterError&) {
        if (password.Cancelled())
            return std::nullopt;
        password.RaiseOwnError();
        throw;
    }
}

} // namespace velmora
