#include "platform/linux/CupsPassword.h"

#include "platform/PrintSystem.h"

#include <algorithm>
#include <utility>

namespace velmora {

CupsPassword::CupsPassword(std::string printer, const AskCredentials& ask) : printer_(std::move(printer)), ask_(ask) {
    VELMORA_CUPS_CALL(cupsSetPasswordCB2)(Answer, this);
}

CupsPassword::~CupsPassword() {
    VELMORA_CUPS_CALL(cupsSetPasswordCB2)
    ([](const char*, http_t*, const char*, const char*, void*) -> const char* { return nullptr; }, nullptr);
    VELMORA_CUPS_CALL(cupsSetUser)(nullptr);
    Forget();
}

void CupsPassword::Forget() {
    std::fill(given_.password.begin(), given_.password.end(), '\0');
    given_ = {};
}

const Credentials* CupsPassword::Ask() {
    const std::string user = given_.user.empty() ? VELMORA_CUPS_CALL(cupsUser)() : given_.user;
    Forget();
    const bool again = asked_++ > 0;
    if (!ask_)
        return nullptr;
    auto answer = ask_({printer_, user, again});
    cancelled_ = !answer;
    if (!answer)
        return nullptr;
    given_ = std::move(*answer);
    return &given_;
}

/// No error may pass through the library.
const char* CupsPassword::Answer(const char*, http_t*, const char*, const char*, void* self) {
    auto& desk = *static_cast<CupsPassword*>(self);
    try {
        const Credentials* given = desk.Ask();
        if (!given)
            return nullptr;
        VELMORA_CUPS_CALL(cupsSetUser)(given->user.c_str());
        return given->password.c_str();
    } catch (...) {
        desk.error_ = std::current_exception();
        return nullptr;
    }
}

void CupsPassword::RaiseOwnError() const {
    if (error_)
        std::rethrow_exception(error_);
    if (asked_ == 0)
        return;
    const ipp_status_t status = VELMORA_CUPS_CALL(cupsLastError)();
    if (!ask_)
        throw PrinterError("The print server asks for a user and a password before it prints on \"" + printer_ +
                           "\".  Print from Velmora's window, which asks for them, or let the server's administrator "
                           "open the printer for you.");
    if (status == IPP_STATUS_ERROR_NOT_AUTHORIZED || status == IPP_STATUS_ERROR_NOT_AUTHENTICATED ||
        status == IPP_STATUS_ERROR_FORBIDDEN)
        throw PrinterError("The print server did not accept the user and the password for \"" + printer_ + "\".");
}

} // namespace velmora
