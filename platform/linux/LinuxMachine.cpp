#include "platform/Machine.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "platform/linux/FontconfigCatalogue.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/LinuxDrives.h"
#ifdef VELMORA_CUPS
#include "platform/linux/CupsPrinters.h"
#endif

#include <algorithm>
#include <cctype>
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

std::string DesktopLanguage(const Environment& environment) {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const auto locale = environment(name)) {
            std::string language = locale->substr(0, locale->find_first_of(".@"));
            std::replace(language.begin(), language.end(), '_', '-');
            const bool isTag = std::all_of(language.begin(), language.end(), [](char c) {
                return std::isalnum(static_cast<unsigned char>(c)) || c == '-';
            });
            return !isTag || language == "C" || language == "POSIX" ? "und" : language;
        }
    return "und";
}

namespace {

fs::path ConfigurationFolder(const Environment& environment) {
    if (const auto config = environment("XDG_CONFIG_HOME"))
        return PathOf(*config) / "velmora";
    return PathOf(environment("HOME").value_or("/")) / ".config" / "velmora";
}

} // namespace

fs::path FindProgramFolder(const fs::path& executableFolder, const Environment& environment) {
    if (const auto home = environment("VELMORA_HOME"))
        return fs::absolute(PathOf(*home));
    std::error_code error;
    const bool installed = fs::exists(executableFolder.parent_path() / "share" / "velmora", error);
    if (!installed && ::access(executableFolder.c_str(), W_OK) == 0)
        return executableFolder;
    return ConfigurationFolder(environment);
}

fs::path FindProgramFolder(const Environment& environment) {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error); // empty where the system does not tell
    return FindProgramFolder(executable.parent_path(), environment);
}

fs::path MakeProgramFolder(const Environment& environment) {
    fs::path folder = FindProgramFolder(environment);
    std::error_code error;
    if (folder == ConfigurationFolder(environment) || !fs::exists(folder, error))
        MakePrivateFolder(folder);
    return folder;
}

std::unique_ptr<PrintSystem> MakePrintServer() {
#ifdef VELMORA_CUPS
    return std::make_unique<CupsPrinters>();
#else
    return nullptr;
#endif
}

std::unique_ptr<FontCatalogue> MakeFontCatalogue() {
    return std::make_unique<FontconfigCatalogue>();
}

std::unique_ptr<Desktop> MakeDesktop(Environment environment) {
    return std::make_unique<LinuxDesktop>(std::move(environment));
}

std::unique_ptr<Drives> MakeDrives() {
    return std::make_unique<LinuxDrives>();
}

std::unique_ptr<Registry> MakeMachineRegistry(const ExportReader&) {
    return nullptr;
}

} // namespace velmora
