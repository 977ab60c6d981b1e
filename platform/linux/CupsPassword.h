// A person's answer to a print server that asks who prints, in place of the library's prompt in the terminal.
#pragma once

#include "platform/Credentials.h"
#include "platform/linux/CupsLibrary.h"

#include <exception>
#include <string>

namespace velmora {

/// While it lives, the library asks here. What was answered goes with it.
class CupsPassword {
public:
    CupsPassword(std::string printer, const AskCredentials& ask);
    ~CupsPassword();
    CupsPassword(const CupsPassword&) = delete;
    CupsPassword& operator=(const CupsPassword&) = delete;

    /// The answer, asked for now; null when there is none.
    const Credentials* Ask();
    bool Cancelled() const { return cancelled_; }
    /// After a call that failed. Raises what asking raised, and PrinterError where nobody could be asked or no
    /// answer was accepted.
    void RaiseOwnError() const;

private:
    static const char* Answer(const char* prompt, http_t* connection, const char* method, const char* resource,
                              void* self);
    void Forget();

    std::string printer_;
    const AskCredentials& ask_;
    Credentials given_;
    int asked_ = 0;
    bool cancelled_ = false;
    std::exception_ptr error_;
};

} // namespace velmora
