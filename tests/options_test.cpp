// The settings editor, the options, the import of old settings and the way to other programs.
#include "app/Options.h"
#include "app/SettingsEditor.h"
#include "app/SystemInformation.h"
#include "base/AtomicFile.h"
#include "platform/linux/LinuxDesktop.h"
#include "tests/support/FakePrinters.h"
#include "tests/support/TestProgram.h"
#include "workspace/ReplaceDocument.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace velmora {
namespace {

namespace fs = std::filesystem;
const std::string kKey = "SOFTWARE\\Corvane Series\\Velmora\\";

struct OptionsTest : testing::Test {
    TestProgram test{[](const std::string& text) { ADD_FAILURE() << text; }};
    MainModule& main = test.main;
    SettingsEditor editor{main};
    SettingsEntry entry{"Sect", "Key", "1", "abc", false};

    std::string Line(int button) {
        editor.Press(button, entry);
        std::string lines;
        for (const std::string& line : editor.Listing())
            lines += line + "|";
        return lines;
    }
};

TEST_F(OptionsTest, TheEditorWorksOnTheIniFileOrTheRegistry) {
    for (const bool iniFile : {true, false}) {
        editor.UseIniFile(iniFile);
        entry = {"Sect", "Key", "1", "abc", false};
        editor.Press(0, entry);
        entry.value.clear();
        editor.Press(1, entry);
        EXPECT_EQ(entry.value, "abc");
        EXPECT_EQ(Line(3), "Sect|");
        EXPECT_EQ(Line(4), "Key=abc|");
        editor.Press(2, entry);
        EXPECT_EQ(Line(4), "");
        EXPECT_EQ(fs::exists(test.folder / "Velmora.reg"), !iniFile);
    }
    editor.UseIniFile(true);
    entry.section = "None";
    EXPECT_EQ(Line(4), "");
    entry.section = "";
    EXPECT_EQ(Line(4), "") << "the sections were listed as keys";
    for (const int button : {5, -1}) {
        test.ui.Expect("Unrecognized button value: " + std::to_string(button), Icon::None);
        editor.Press(button, entry);
    }
    test.Store("Settings", "OptType", "1");
    ReplaceFile(test.folder / "Velmora.ini", "[Settings]\r\nOptType=2\r\n");
    entry = {"Settings", "OptType", "0", "", false};
    editor.Press(1, entry);
    EXPECT_EQ(entry.value, "2") << "what is stored, not what the program remembers";
}

TEST_F(OptionsTest, ANumberTooLargeChangesNothing) {
    entry = {"Sect", "Key", "x", "abc", true};
    for (const int button : {0, 1}) {
        test.ui.Expect(std::string("Overflow\r\nError") + (button == 0 ? " saving " : " getting ") + "[Sect] Key",
                       Icon::Critical);
        entry.value = entry.fallback = "99999999999";
        editor.Press(button, entry);
    }
    EXPECT_FALSE(fs::exists(test.folder / "Velmora.ini"));
}

TEST_F(OptionsTest, NoTextThatIsTypedCanHarmTheStore) {
    test.Store("Safe", "Key", "kept");
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"", {"", " ", "\t", "\xF0\x9F\x96\xA8", "\\", "\"", std::string(70000, 'x'), std::string(kProbe)}},
        {"A section's name cannot hold a ']'.", {"]", "\r\n[Safe]\r\nKey=lost", "a]b=c;d"}},
        {"A key's name cannot start with ';' or '['.", {"[a", ";", " ;a"}},
        {"A key's name cannot hold a '='.", {"a=b"}},
        {"A name cannot go over more than one line.", {"a\r\nb"}}};
    for (const auto& [fault, texts] : rows)
        for (const std::string& text : texts)
            for (const int button : {0, 1, 3, 4, 2}) {
                if (!fault.empty() && button < 2)
                    test.ui.Expect(fault + "\r\nNothing was changed.", Icon::Exclamation);
                entry = {text, text, text, text, false};
                editor.Press(button, entry);
            }
    EXPECT_EQ(test.Stored("Safe", "Key"), "kept");
    editor.UseIniFile(false);
    entry = {"a]b", "a=b", "1", "abc", false};
    editor.Press(0, entry);
    EXPECT_EQ(Line(4), "a=b=abc|") << "the registry can hold them";
}

TEST_F(OptionsTest, TheEditorsStateSurvivesItsRegistryMode) {
    SettingsEditor::Place place;
    test.registry.Set(kKey + "Paths", "Application", std::string("C:\\Velmora\\"));
    editor.LoadState(place);
    editor.SaveState(entry, place);
    EXPECT_FALSE(fs::exists(test.folder / "Velmora.ini")) << "which would shut the old settings out";
    fs::remove(test.folder / "Velmora.reg");
    editor.UseIniFile(false);
    editor.SaveState({"S", "K", "D", "V", true}, {30, -4});
    EXPECT_FALSE(fs::exists(test.folder / "Velmora.reg"));
    const SettingsEntry loaded = editor.LoadState(place);
    EXPECT_EQ(loaded.section + loaded.key + loaded.fallback + loaded.value, "SKDV");
    EXPECT_TRUE(loaded.numeric && place.left == 30 && place.top == -4 && !editor.UsesIniFile());
    test.settings.SaveMode = 1;
    test.Store("Settings", "MainLeft", "1e300");
    test.ui.Expect("Overflow\r\nCalled from Sub: frmSettings", Icon::Critical);
    EXPECT_EQ(editor.LoadState(place).section, "Section");
}

TEST_F(OptionsTest, AResetForgetsPositionsAndLeavesTheHabitsStored) {
    LoadGlobals(main);
    main.document.setup.LayoutName = "A4_8";
    SaveOptions(main, false, false);
    EXPECT_EQ(test.Stored("Settings", "Ask before delete"), "False");
    for (const char* key : {"PrtWiz", "Font Settings", "mdiVelmora", "frmOther"})
        test.Store("Form Position", key, "1,2,3,4");
    test.Store("Margin Settings", "Default Left Margin - A4_8", "7");
    EXPECT_EQ(ResetOptions(main), LoadOutcome::Loaded);
    EXPECT_EQ(test.Stored("Settings", "Margin Value Left"), "7");
    EXPECT_FALSE(main.globals.AskBeforeDelete) << "read again, as stored";
    EnumerateSettings(test.settings, "Form Position");
    EXPECT_TRUE(test.settings.KeyValues.empty());
}

struct SettingsImportTest : OptionsTest {
    fs::path reg = test.folder / "old.reg";

    void Import(const std::string& bytes, const std::string& message, Icon icon) {
        ReplaceFile(reg, bytes);
        test.ui.ExpectChooser("Import old settings", reg, "OPEN|Registry export (*.reg)|*.reg|Velmora.reg");
        test.ui.Expect(message, icon);
        ImportOldSettings(main);
        EXPECT_EQ(ReadFile(reg), bytes) << "the person's own file was changed";
    }
    static std::string Export(const std::string& section, const std::string& lines) {
        return "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\" + kKey + section + "]\r\n" + lines;
    }
};

TEST_F(SettingsImportTest, SettingsOfAnOldMachineComeLater) {
    LoadGlobals(main);
    NewDocument(main);
    main.document.FieldA(1) = "typed";
    const std::string text =
        Export("Settings", "\"OptType\"=\"3\"\r\n\"Ask before delete\"=\"False\"\r\n\"N\"=dword:00000007\r\n") +
        "[HKEY_LOCAL_MACHINE\\" + kKey + "Paths]\r\n\"Images\"=\"C:\\\\Velmora\\\\\"\r\n";
    const std::string done = "Settings imported: 3.\r\nAn open document keeps its own tab type, margins and fonts.";
    Import(text, done, Icon::Information);
    EXPECT_EQ(main.document.setup.OptType, 0);
    EXPECT_EQ(main.document.FieldA(1), "typed");
    EXPECT_FALSE(main.globals.AskBeforeDelete);
    EXPECT_EQ(test.Stored("Settings", "N"), "7");
    EXPECT_EQ(test.Stored("Paths", "Images"), "(none)");
    NewDocument(main);
    Import(text, done, Icon::Information);
    EXPECT_EQ(main.document.setup.OptType, 3);
    EXPECT_EQ(main.document.TabCount, 54);
}

TEST_F(SettingsImportTest, APrinterThatIsNotHereGivesWayToTheDefault) {
    FakePrinters printers;
    MainModule here{test.settings, test.ui, printers, test.workbooks, {}, {}, {}};
    const auto load = [&] {
        test.settings.Own.clear();
        LoadGlobals(here);
        return here.globals.PrinterName;
    };
    test.registry.Set(kKey + "Paths", "Application", std::string("C:\\Velmora\\"));
    test.registry.Set(kKey + "Settings", "Printer", std::string("Gone"));
    EXPECT_EQ(load(), "Hall") << "moved in at the first start";
    for (const auto& [name, taken] : {std::pair("Office", "Office"), {"Gone", "Hall"}}) {
        ReplaceFile(reg, Export("Settings", "\"Printer\"=\"" + std::string(name) + "\"\r\n"));
        test.ui.ExpectChooser("Import old settings", reg);
        test.ui.Expect("Settings imported: 1.\r\nAn open document keeps its own tab type, margins and fonts.",
                       Icon::Information);
        ImportOldSettings(here);
        EXPECT_EQ(load(), taken);
    }
}

TEST_F(SettingsImportTest, AFileThatIsNoneChangesNothing) {
    LoadGlobals(main);
    const std::string before = ReadFile(test.folder / "Velmora.ini");
    const std::string damaged =
        "The file '" + reg.string() + "' is damaged, or no export of a registry.\r\nNothing was changed.";
    for (const std::string& bytes : {std::string("broken"), Export("Settings", "\"OptType\"=\"3\"\r\n\"A\"=open\r\n")})
        Import(bytes, damaged, Icon::Exclamation);
    Import("REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n\"A\"=\"1\"\r\n",
           "The file '" + reg.string() + "' holds no settings of Velmora. Nothing was changed.", Icon::Information);
    test.ui.ExpectChooser("Import old settings", test.folder / "none.reg");
    test.ui.Expect("The file '" + (test.folder / "none.reg").string() + "' cannot be read.\r\nNothing was changed.",
                   Icon::Exclamation);
    ImportOldSettings(main);
    EXPECT_EQ(ReadFile(test.folder / "Velmora.ini"), before);
    fs::remove(test.folder / "Velmora.ini");
    fs::create_directory(test.folder / "Velmora.ini");
    Import(Export("Settings", "\"OptType\"=\"3\"\r\n"),
           (test.folder / "Velmora.ini").string() + ": Is a directory\r\nNothing was changed.", Icon::Exclamation);
}

TEST_F(OptionsTest, RegistryValuesAsText) {
    const std::string path = "SOFTWARE\\X", longest(1023, 'x');
    const std::pair<RegistryValue, std::string> cases[] = {{std::string("C:\\a"), "C:\\a"},
                                                           {26u, "26"},
                                                           {0x00010203u, "291"},
                                                           {0xFFFFFFFFu, "-1"},
                                                           {0x0A0Bu, "171"},
                                                           {longest, longest}};
    std::string result;
    for (const auto& [value, text] : cases) {
        test.registry.Set(path, "V", value);
        EXPECT_TRUE(GetKeyValue(test.registry, path, "V", result));
        EXPECT_EQ(result, text);
    }
    test.registry.Set(path, "V", longest + "x");
    EXPECT_FALSE(GetKeyValue(test.registry, path, "V", result) || GetKeyValue(test.registry, path, "None", result));
    EXPECT_EQ(result, longest) << "kept";
}

/// A desktop that tells what it was asked to start.
struct FakeDesktop : Desktop {
    bool OpenFile(const fs::path&) override { return false; }
    bool StartProgram(const fs::path& program) override { return (calls += program.string() + " ", starts); }
    bool StartSystemInformation() override { return (calls += "own ", has); }
    std::string calls;
    bool starts = true;
    bool has = true;
};

TEST_F(OptionsTest, SystemInformationIsTheNamedToolOrTheDesktops) {
    FakeDesktop desktop;
    StartSysInfo(main, desktop);
    const std::string shared = "SOFTWARE\\Microsoft\\Shared Tools";
    test.registry.Set(shared + " Location", "MSINFO", test.folder.Path().string());
    StartSysInfo(main, desktop); // the file that it names is not there
    const fs::path tool = test.folder.Path().string() + "\\MSINFO32.EXE";
    ReplaceFile(tool, "");
    StartSysInfo(main, desktop);
    test.registry.Set(shared + "\\MSINFO", "PATH", std::string("tool"));
    StartSysInfo(main, desktop);
    EXPECT_EQ(desktop.calls, "own own " + tool.string() + " tool ");
    desktop.starts = desktop.has = false;
    Desktop none;
    for (Desktop* bare : {static_cast<Desktop*>(&desktop), &none}) {
        test.ui.Expect("System Information Is Unavailable At This Time", Icon::None);
        StartSysInfo(main, *bare);
    }
}

TEST_F(OptionsTest, ProgramsAreStartedWithoutAShell) {
    const fs::path bin = test.folder / "bin";
    fs::create_directory(bin);
    LinuxDesktop desktop([&](const char* name) {
        return std::string(name) == "PATH" ? std::optional("/nowhere:" + bin.string()) : std::nullopt;
    });
    EXPECT_FALSE(desktop.OpenFile(test.folder / "a.chm"));
    EXPECT_FALSE(desktop.StartSystemInformation());
    const std::string opened = (test.folder / "opened").string();
    ReplaceFile(bin / "xdg-open",
                "#!/bin/sh\nprintf %s \"$1\" >" + opened + ".part\nmv " + opened + ".part " + opened + "\n");
    ReplaceFile(bin / "broken", "#!/nowhere/at/all\n");
    for (const char* name : {"xdg-open", "broken"})
        fs::permissions(bin / name, fs::perms::owner_all);
    const fs::path odd = test.folder / "a; touch b $(x) .chm";
    EXPECT_TRUE(desktop.OpenFile(odd));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!fs::exists(opened) && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(ReadFile(opened), odd.string());
    EXPECT_FALSE(desktop.StartProgram(bin / "broken"));
    EXPECT_FALSE(desktop.StartProgram("xdg-open"));
}

} // namespace
} // namespace velmora
