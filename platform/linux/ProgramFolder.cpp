#include "platform/linux/ProgramFolder.h"

#include <cstdlib>
#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

Environment SystemEnvironment() {
    return [](const char* name) -> std::optional<std::string> {
        const char* value = std::getenv(name);
        return value && *value ? std::optional<std::string>(value) : std::nullopt;
    };
}

fs::path FindProgramFolder(const fs::path& executableFolder, const Environment& environment) {
    if (const auto home = environment("VELMORA_HOME"))
        return fs::absolute(*home);
    std::error_code error;
    const bool installed = fs::exists(executableFolder.parent_path() / "share" / "velmora", error);
    if (!installed && ::access(executableFolder.c_str(), W_OK) == 0)
        return executableFolder;
    if (const auto config = environment("XDG_CONFIG_HOME"))
        return fs::path(*config) / "velmora";
    return fs::path(environment("HOME").value_or("/")) / ".config" / "velmora";
}

} // namespace velmora
