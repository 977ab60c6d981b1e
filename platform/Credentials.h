// Who prints, where a print server wants to know: asked for each time, and never stored.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace velmora {

struct Credentials {
    std::string user;
    std::string password;
};

struct CredentialsRequest {
    std::string printer;
    std::string user;   ///< offered first
    bool again = false; ///< what was given was not accepted
};

/// nullopt when the person cancelled. An empty function: there is nobody who could be asked.
using AskCredentials = std::function<std::optional<Credentials>(const CredentialsRequest&)>;

} // namespace velmora
