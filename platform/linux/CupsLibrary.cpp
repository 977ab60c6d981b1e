#include "platform/linux/CupsLibrary.h"

#include "platform/PrintSystem.h"

#include <cmath>
#include <string_view>

namespace velmora {
namespace {

constexpr int kConnectMs = 1000;
constexpr double kAnswerSeconds = 3;
constexpr std::chrono::seconds kSilence{10};

bool Answers(http_t* connection) {
    const CupsMessage answer(
        VELMORA_CUPS_CALL(cupsDoRequest)(connection, VELMORA_CUPS_CALL(ippNewRequest)(IPP_OP_CUPS_GET_DEFAULT), "/"));
    const ipp_status_t status = VELMORA_CUPS_CALL(cupsLastError)();
    return status < IPP_STATUS_REDIRECTION_OTHER_SITE || status == IPP_STATUS_ERROR_NOT_FOUND;
}

/// In place of the library's own way to a password, which is a prompt in the terminal.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
    return nullptr;
}

} // namespace

const LateLibrary& CupsLibrary() {
    static const LateLibrary library(VELMORA_CUPS);
    return library;
}

CupsConnection ConnectToCups(Moment& silentUntil) {
    if (std::chrono::steady_clock::now() < silentUntil || !CupsLibrary().IsThere())
        return nullptr;
    VELMORA_CUPS_CALL(cupsSetPasswordCB2)(NoPassword, nullptr);
    CupsConnection connection(
        VELMORA_CUPS_CALL(httpConnect2)(VELMORA_CUPS_CALL(cupsServer)(), VELMORA_CUPS_CALL(ippPort)(), nullptr,
                                        AF_UNSPEC, VELMORA_CUPS_CALL(cupsEncryption)(), 1, kConnectMs, nullptr));
    if (!connection)
        return nullptr;
    VELMORA_CUPS_CALL(httpSetTimeout)
    (
        connection.get(), kAnswerSeconds, [](http_t*, void*) { return 0; }, nullptr);
    if (Answers(connection.get()))
        return connection;
    silentUntil = std::chrono::steady_clock::now() + kSilence; // one wait is enough for a whole print run
    return nullptr;
}

bool HasCupsServer(const Moment& silentUntil) {
    return CupsLibrary().IsThere() && (std::chrono::steady_clock::now() < silentUntil ||
                                       std::string_view(VELMORA_CUPS_CALL(cupsServer)()) != "localhost");
}

std::string OptionOf(const cups_dest_t& destination, const char* name) {
    const char* value = VELMORA_CUPS_CALL(cupsGetOption)(name, destination.num_options, destination.options);
    return value ? value : "";
}

std::string TextOf(ipp_attribute_t* attribute, int place) {
    const char* text = attribute ? VELMORA_CUPS_CALL(ippGetString)(attribute, place, nullptr) : nullptr;
    return text ? text : "";
}

int PwgUnits(double millimetres) {
    return static_cast<int>(std::lround(millimetres * kPwgUnitsPerMm));
}

void RaiseCupsError() {
    const std::string text = VELMORA_CUPS_CALL(cupsLastErrorString)();
    switch (VELMORA_CUPS_CALL(cupsLastError)()) {
    case IPP_STATUS_ERROR_NOT_FOUND: throw PrinterError(text, kPrinterNotValidNumber);
    case IPP_STATUS_ERROR_DEVICE:
    case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
    case IPP_STATUS_ERROR_BUSY:
    case IPP_STATUS_ERROR_PRINTER_IS_DEACTIVATED:
    case IPP_STATUS_ERROR_SERVICE_UNAVAILABLE: throw PrinterError(text, kPrinterErrorNumber);
    default: throw PrinterError(text);
    }
}

} // namespace velmora
