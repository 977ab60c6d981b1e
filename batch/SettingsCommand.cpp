#include "batch/Commands.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "batch/BatchProgram.h"

#include <iostream>

namespace velmora {
namespace {

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
    SettingsStore& store = program.Settings();
    const bool changes = arguments.action == SettingsAction::Set || arguments.action == SettingsAction::Delete;
    if (!arguments.ini.empty()) {
        store.InMemory = false;
        store.IniFile = PathOf(arguments.ini);
    } else if (changes) {
        throw UsageError("name the file to change with --ini");
    } else {
        program.UseOwnSettings("");
    }
    std::error_code error;
    if (!arguments.ini.empty() &&
        ((!changes && !arguments.fallback) || std::filesystem::exists(PathOf(arguments.ini), error)))
        CheckIsIniFile(PathOf(arguments.ini));
}

int Get(SettingsStore& store, const SettingsArguments& arguments) {
    const SettingKey row = {arguments.section, arguments.key};
    const auto value = arguments.fallback ? Read(store, row.WithFallback(*arguments.fallback)) : Probe(store, row);
    if (!value)
        throw Error("no key \"" + arguments.key + "\" in section \"" + arguments.section + "\"");
    std::cout << *value << '\n';
    return kDone;
}

int ListSections(SettingsStore& store) {
    EnumerateSettings(store, "");
    for (const std::string& name : store.SectionNames)
        std::cout << name << '\n';
    return kDone;
}

int ListKeys(SettingsStore& store, const std::string& section) {
    EnumerateSettings(store, section);
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
    switch (arguments.action) {
    case SettingsAction::Sections: return ListSections(store);
    case SettingsAction::Keys: return ListKeys(store, arguments.section);
    case SettingsAction::Set:
        return Done(SaveSetting(store, arguments.section, arguments.key, arguments.value), arguments.ini);
    case SettingsAction::Delete: return Done(DeleteSetting(store, arguments.section, arguments.key), arguments.ini);
    case SettingsAction::Get: break;
    }
    return Get(store, arguments);
}

} // namespace velmora
