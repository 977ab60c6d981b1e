// The shared state of a program in a folder of its own, with a scripted person.
#pragma once

#include "platform/BuiltInPrinters.h"
#include "settings/RegistryFile.h"
#include "tests/support/ScriptedInterface.h"
#include "tests/support/TemporaryFolder.h"
#include "workbook/LibraryWorkbooks.h"
#include "workspace/mdlMain.h"

namespace velmora {

struct TestProgram {
    explicit TestProgram(ScriptedInterface::Fail fail, bool printer = true) : ui(std::move(fail)), printers(printer) {
        settings.SettingsAppName = "Velmora";
        settings.ProgramFolder = folder.Path();
        settings.IniFile = folder / "Velmora.ini";
    }

    /// "(none)": there is no such key.
    std::string Stored(const std::string& section, const std::string& key) {
        return Probe(settings, {section, key}).value_or("(none)");
    }
    void Store(const std::string& section, const std::string& key, const std::string& value) {
        SaveSetting(settings, section, key, value);
    }

    TemporaryFolder folder;
    ScriptedInterface ui;
    RegistryFile registry{folder / "Velmora.reg"};
    BuiltInPrinters printers;
    LibraryWorkbooks workbooks;
    SettingsStore settings{registry, ui};
    MainModule main{settings, ui, printers, workbooks};
};

} // namespace velmora
