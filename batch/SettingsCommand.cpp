#include "batch/Commands.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "batch/BatchProgram.h"
#include "platform/Machine.h"

#include <iostream>

namespace velmora {
namespace {

/// The INI file of the person's own program, which the batch program only reads.
std::filesystem::path OwnIniFile() {
    return FindProgramFolder(SystemEnvironment()) / "Velmora.ini";
}

/// Raises why the file cannot be read, also for one in UTF-16.
void CheckIsIniFile(const std::string& file) {
    const std::string start = ReadFile(PathOf(file), 4);
    if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF") || start.find('\0') != std::string::npos)
        throw Error(file + ": neither UTF-8 nor Windows-1252");
}

bool HoldsControl(const std::string& text) {
    return OneLine(text) != text;
}

/// An INI file could not give these back under their name.
void CheckNames(const SettingsArguments& arguments) {
    const std::string& key = arguments.key;
    if (Trim(arguments.section).empty() || arguments.section.find(']') != std::string::npos ||
        HoldsControl(arguments.section))
        throw UsageError("\"" + arguments.section + "\" cannot be a section");
    if (Trim(key).empty() || key.find('=') != std::string::npos || Trim(key)[0] == ';' || Trim(key)[0] == '[' ||
        HoldsControl(key))
        throw UsageError("\"" + key + "\" cannot be a key");
    if (HoldsControl(arguments.value))
        throw UsageError("a value is one line");
}

void ChooseFile(BatchProgram& program, const SettingsArguments& arguments) {
    const bool changes = arguments.action == SettingsAction::Set || arguments.action == SettingsAction::Delete;
    if (!arguments.ini.empty()) {
        program.Settings().InMemory = false;
        program.Settings().IniFile = PathOf(arguments.ini);
    } else if (changes) {
        throw UsageError("name the file to change with --ini");
    } else if (FileExists(OwnIniFile())) {
        program.UseSettings(OwnIniFile());
    }
    std::error_code error;
    if (!arguments.ini.empty() &&
        ((!changes && !arguments.fallback) || std::filesystem::exists(PathOf(arguments.ini), error)))
        CheckIsIniFile(arguments.ini);
}

int Get(SettingsStore& store, const SettingsArguments& arguments) {
    const std::string value = GetSetting(store, store.SettingsAppName, arguments.section, arguments.key,
                                         arguments.fallback.value_or(std::string(kProbe)));
    if (!arguments.fallback && value == kProbe)
        throw Error("no key \"" + arguments.key + "\" in section \"" + arguments.section + "\"");
    std::cout << value << '\n';
    return kDone;
}

int ListSections(SettingsStore& store) {
    EnumerateSettings(store, store.SettingsAppName, "");
    for (const std::string& name : store.SectionNames)
        std::cout << name << '\n';
    return kDone;
}

int ListKeys(SettingsStore& store, const std::string& section) {
    EnumerateSettings(store, store.SettingsAppName, section);
    for (const auto& [key, value] : store.KeyValues)
        std::cout << key << '=' << value << '\n';
    return kDone;
}

int Done(bool done, const std::string& file) {
    if (!done)
        throw Error(file + ": cannot be changed");
    return kDone;
}

} // namespace

int RunSettings(const SettingsArguments& arguments) {
    BatchProgram program;
    if (arguments.action == SettingsAction::Set)
        CheckNames(arguments);
    ChooseFile(program, arguments);
    SettingsStore& store = program.Settings();
    const std::string& application = store.SettingsAppName;
    switch (arguments.action) {
    case SettingsAction::Sections: return ListSections(store);
    case SettingsAction::Keys: return ListKeys(store, arguments.section);
    case SettingsAction::Set:
        return Done(SaveSetting(store, application, arguments.section, arguments.key, arguments.value), arguments.ini);
    case SettingsAction::Delete:
        return Done(DeleteSetting(store, application, arguments.section, arguments.key), arguments.ini);
    case SettingsAction::Get: break;
    }
    return Get(store, arguments);
}

} // namespace velmora
