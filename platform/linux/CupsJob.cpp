#include "platform/linux/CupsJob.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <span>
#include <string_view>

namespace velmora {
namespace {

/// What a saved option would spoil a sheet of tabs with, in the standard's words and in those of drivers.
constexpr std::array<std::string_view, 31> kSpoiling = {"sides",
                                                        "Duplex",
                                                        "KDDuplex",
                                                        "JCLDuplex",
                                                        "EFDuplex",
                                                        "number-up",
                                                        "number-up-layout",
                                                        "copies",
                                                        "job-sheets",
                                                        "media",
                                                        "media-col",
                                                        "media-size",
                                                        "PageSize",
                                                        "PageRegion",
                                                        "print-quality",
                                                        "print-scaling",
                                                        "cupsPrintQuality",
                                                        "fit-to-page",
                                                        "fitplot",
                                                        "scaling",
                                                        "natural-scaling",
                                                        "ppi",
                                                        "position",
                                                        "page-ranges",
                                                        "page-set",
                                                        "page-border",
                                                        "landscape",
                                                        "mirror",
                                                        "outputorder",
                                                        "orientation-requested",
                                                        "auth-info"};
/// The queue's own, which are no options of a job.
constexpr std::array<std::string_view, 5> kOfTheQueue = {"printer-", "marker-", "device-", "auth-info", "job-sheets"};
constexpr const char* kTray = "media-source";
constexpr const char* kKind = "media-type";
constexpr const char* kDriversTray = "InputSlot";
constexpr const char* kDriversKind = "MediaType";

bool MayStay(std::string_view name) {
    const auto isName = [&](std::string_view other) { return EqualsNoCase(name, other); };
    const auto isStart = [&](std::string_view start) { return name.starts_with(start); };
    return std::none_of(kSpoiling.begin(), kSpoiling.end(), isName) &&
           std::none_of(kOfTheQueue.begin(), kOfTheQueue.end(), isStart) && !isName(kTray) && !isName(kKind);
}

/// The paper with its tray and its kind, which one attribute alone can name together.
std::string MediumWith(const std::string& tray, const std::string& kind, const PrintJob& job) {
    std::string medium = "{media-size={x-dimension=" + std::to_string(PwgUnits(job.widthMm)) +
                         " y-dimension=" + std::to_string(PwgUnits(job.heightMm)) + "}";
    if (!tray.empty())
        medium += std::string(" ") + kTray + "=" + tray;
    if (!kind.empty())
        medium += std::string(" ") + kKind + "=" + kind;
    return medium + "}";
}

/// What was chosen for the job, else what was saved.
std::string ChosenOr(const std::string& chosen, const cups_dest_t& destination, const char* name) {
    return chosen.empty() ? OptionOf(destination, name) : chosen;
}

} // namespace

CupsOptions::~CupsOptions() {
    VELMORA_CUPS_CALL(cupsFreeOptions)(count_, all_);
}

void CupsOptions::Add(const char* name, const std::string& value) {
    count_ = VELMORA_CUPS_CALL(cupsAddOption)(name, value.c_str(), count_, &all_);
}

void AddJobOptions(CupsOptions& options, const cups_dest_t& destination, const PrintJob& job,
                   const std::string& medium) {
    const JobOptions& chosen = job.options;
    for (const cups_option_t& saved : std::span(destination.options, static_cast<std::size_t>(destination.num_options)))
        if (MayStay(saved.name) && (chosen.tray.empty() || !EqualsNoCase(saved.name, kDriversTray)) &&
            (chosen.kind.empty() || !EqualsNoCase(saved.name, kDriversKind)))
            options.Add(saved.name, saved.value);
    const std::string tray = ChosenOr(chosen.tray, destination, kTray);
    const std::string kind = ChosenOr(chosen.kind, destination, kKind);
    if (tray.empty() && kind.empty())
        options.Add(CUPS_MEDIA, medium);
    else
        options.Add("media-col", MediumWith(tray, kind, job));
    options.Add(CUPS_COPIES, std::to_string(chosen.copies));
    options.Add(CUPS_SIDES, CUPS_SIDES_ONE_SIDED);
    options.Add(CUPS_NUMBER_UP, "1");
    options.Add("job-sheets", "none,none");
    options.Add(CUPS_PRINT_QUALITY, CUPS_PRINT_QUALITY_HIGH);
    options.Add("print-scaling", "none");
    // The pages lie as they go through the printer; the server's filters turn a PDF once more for landscape
    // (seen with cups-filters).
    options.Add(CUPS_ORIENTATION, CUPS_ORIENTATION_PORTRAIT);
}

SpooledJob::SpooledJob(http_t* connection, cups_dest_t* destination, cups_dinfo_t* info, const std::string& title,
                       const CupsOptions& options)
    : connection_(connection), destination_(destination), info_(info) {
    if (VELMORA_CUPS_CALL(cupsCreateDestJob)(connection, destination, info, &id_, title.c_str(), options.Count(),
                                             options.All()) != IPP_STATUS_OK)
        RaiseCupsError();
}

SpooledJob::~SpooledJob() {
    if (!sent_)
        VELMORA_CUPS_CALL(cupsCancelDestJob)(connection_, destination_, id_);
}

void SpooledJob::Send(const std::filesystem::path& pdf) {
    std::ifstream file(pdf, std::ios::binary);
    if (!file)
        throw FileAccessError(pdf, errno);
    if (VELMORA_CUPS_CALL(cupsStartDestDocument)(connection_, destination_, info_, id_,
                                                 PathText(pdf.filename()).c_str(), CUPS_FORMAT_PDF, 0, nullptr,
                                                 1) != HTTP_STATUS_CONTINUE)
        RaiseCupsError();
    std::array<char, 65536> buffer;
    while (file.read(buffer.data(), buffer.size()), file.gcount() > 0)
        if (VELMORA_CUPS_CALL(cupsWriteRequestData)(connection_, buffer.data(),
                                                    static_cast<std::size_t>(file.gcount())) != HTTP_STATUS_CONTINUE)
            RaiseCupsError();
    if (VELMORA_CUPS_CALL(cupsFinishDestDocument)(connection_, destination_, info_) > IPP_STATUS_OK_CONFLICTING)
        RaiseCupsError();
    sent_ = true;
}

} // namespace velmora
