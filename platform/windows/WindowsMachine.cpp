#include "platform/Machine.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/windows/SystemFile.h"
#include "platform/windows/DirectWriteCatalogue.h"
#include "platform/windows/WindowsDesktop.h"
#include "platform/windows/WindowsDrives.h"
#include "platform/windows/WindowsPrinters.h"
#include "platform/windows/WindowsRegistry.h"

#include <array>
#include <cstdlib>

namespace velmora {
namespace {

namespace fs = std::filesystem;

fs::path ConfigurationFolder(const Environment& environment) {
    return PathOf(environment("APPDATA").value_or("C:\\")) / "Velmora";
}

bool TakesNewFiles(const fs::path& folder) {
    return SystemFile(OpenFile(folder, FILE_ADD_FILE, kShareAll, FILE_FLAG_BACKUP_SEMANTICS)).IsOpen();
}

} // namespace

Environment SystemEnvironment() {
    return [](const char* name) -> std::optional<std::string> {
        const wchar_t* value = ::_wgetenv(Wide(name).c_str());
        return value && *value ? std::optional(Narrow(value)) : std::nullopt;
    };
}

std::string DesktopLanguage(const Environment&) {
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    const int length = ::GetUserDefaultLocaleName(name.data(), static_cast<int>(name.size()));
    return length > 1 ? Narrow(name.data()) : "und";
}

fs::path FindProgramFolder(const fs::path& executableFolder, const Environment& environment) {
    if (const auto home = environment("VELMORA_HOME"))
        return fs::absolute(PathOf(*home));
    std::error_code error;
    const bool installed = fs::exists(executableFolder / "uninstall.exe", error);
    return !installed && TakesNewFiles(executableFolder) ? executableFolder : ConfigurationFolder(environment);
}

fs::path FindProgramFolder(const Environment& environment) {
    return FindProgramFolder(RunningProgram().parent_path(), environment);
}

fs::path MakeProgramFolder(const Environment& environment) {
    fs::path folder = FindProgramFolder(environment);
    MakePrivateFolder(folder);
    return folder;
}

std::unique_ptr<PrintSystem> MakePrintServer() {
    return std::make_unique<WindowsPrinters>();
}

std::unique_ptr<FontCatalogue> MakeFontCatalogue() {
    return std::make_unique<DirectWriteCatalogue>();
}

std::unique_ptr<Desktop> MakeDesktop(Environment) {
    return std::make_unique<WindowsDesktop>();
}

std::unique_ptr<Drives> MakeDrives() {
    return std::make_unique<WindowsDrives>();
}

std::unique_ptr<Registry> MakeMachineRegistry(const ExportReader& openExport) {
    return std::make_unique<WindowsRegistry>(openExport);
}

} // namespace velmora
