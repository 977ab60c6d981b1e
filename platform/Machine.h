// What this machine has: each system's folder defines these functions once, so that no program names a class of
// a system.
#pragma once

#include "platform/Desktop.h"
#include "platform/Drives.h"
#include "platform/FontCatalogue.h"
#include "platform/PrintSystem.h"
#include "platform/Registry.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmora {

/// Value of an environment variable, or nullopt when it is not set or empty.
using Environment = std::function<std::optional<std::string>(const char* name)>;
Environment SystemEnvironment();

/// The language that the desktop speaks, such as "de-CH"; "und" where it names none.
std::string DesktopLanguage(const Environment& environment);

/// VELMORA_HOME where it is set; else the executable's own folder when this is a portable copy or a build tree (a
/// person may write there, and it is no installation: no ../share/velmora, on Windows no uninstall.exe beside it); else
/// $XDG_CONFIG_HOME/velmora, by default ~/.config/velmora, on Windows %APPDATA%\Velmora. The folder need not exist yet.
std::filesystem::path FindProgramFolder(const std::filesystem::path& executableFolder, const Environment& environment);
/// The same for the program that runs.
std::filesystem::path FindProgramFolder(const Environment& environment);
/// The same, made where it is missing. A new one, and the one below ~/.config, are open to their owner alone. Raises
/// FileAccessError.
std::filesystem::path MakeProgramFolder(const Environment& environment);

/// The machine's print server; null where the program was built without one.
std::unique_ptr<PrintSystem> MakePrintServer();
/// The fonts installed. Costs nothing before the first question.
std::unique_ptr<FontCatalogue> MakeFontCatalogue();
/// The programs that open files.
std::unique_ptr<Desktop> MakeDesktop(Environment environment);
std::unique_ptr<Drives> MakeDrives();

/// Opens the keys in a file that a registry editor exported.
using ExportReader = std::function<std::unique_ptr<Registry>(const std::filesystem::path& file)>;
/// The machine's own registry; null on a system without one.
std::unique_ptr<Registry> MakeMachineRegistry(const ExportReader& openExport);

} // namespace velmora
