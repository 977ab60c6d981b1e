// The settings editor, the options, the import of old settings and the way to other programs.
#include "app/Options.h"
#include "app/SettingsEditor.h"
#include "app/SystemInformation.h"
#include "tests/support/FakePrinters.h"
#include "tests/support/ProgramTest.h"
#include "workspace/ReplaceDocument.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
const std::string kKey = "SOFTWARE\\Corvane Series\\Velmora\\";

struct OptionsTest : ProgramTest {
    SettingsEditor editor{main};
    SettingsEntry entry{"Sect", "Key", "1", "abc", false};
    fs::path ini = program.folder / "Velmora.ini";

    std::string Line(int button) {
        editor.Press(button, entry);
        std::string lines;
        for (const ListedSetting& row : editor.Listing())
            lines += row.line + "|";
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
        EXPECT_EQ(fs::exists(program.folder / "Velmora.reg"), !iniFile);
    }
    editor.UseIniFile(true);
    entry.section = "None";
    EXPECT_EQ(Line(4), "");
    entry.section = "";
    EXPECT_EQ(Line(4), "") << "the sections were listed as keys";
    for (const int button : {5, -1}) {
        Tell("Unrecognized button value: " + std::to_string(button), Icon::None);
        editor.Press(button, entry);
    }
    program.Store("Settings", "OptType", "1");
    ReplaceFile(ini, "[Settings]\r\nOptType=2\r\n");
    entry = {"Settings", "OptType", "0", "", false};
    editor.Press(1, entry);
    EXPECT_EQ(entry.value, "2") << "what is stored, not what the program remembers";
}

TEST_F(OptionsTest, ANumberTooLargeChangesNothing) {
    entry = {"Sect", "Key", "x", "abc", true};
    for (const int button : {0, 1}) {
        Fail(std::string("Overflow\r\nError") + (button == 0 ? " saving " : " getting ") + "[Sect] Key");
        entry.value = entry.fallback = "99999999999";
        editor.Press(button, entry);
    }
    EXPECT_FALSE(fs::exists(ini));
}

TEST_F(OptionsTest, NoTextThatIsTypedCanHarmTheStore) {
    program.Store("Safe", "Key", "kept");
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
                    program.ui.Expect(fault + "\r\nNothing was changed.", Icon::Exclamation);
                entry = {text, text, text, text, false};
                editor.Press(button, entry);
            }
    EXPECT_EQ(program.Stored("Safe", "Key"), "kept");
    editor.UseIniFile(false);
    entry = {"a]b", "a=b", "1", "abc", false};
    editor.Press(0, entry);
    EXPECT_EQ(Line(4), "a=b=abc|") << "the registry can hold them";
}

TEST_F(OptionsTest, TheEditorsStateSurvivesItsRegistryMode) {
    SettingsEditor::Place place;
    program.registry.Set(kKey + "Paths", "Application", std::string("C:\\Velmora\\"));
    editor.LoadState(place);
    editor.SaveState(entry, place);
    EXPECT_FALSE(fs::exists(ini)) << "which would shut the old settings out";
    fs::remove(program.folder / "Velmora.reg");
    editor.UseIniFile(false);
    editor.SaveState({"S", "K", "D", "V", true}, {30, -4});
    EXPECT_FALSE(fs::exists(program.folder / "Velmora.reg"));
    const SettingsEntry loaded = editor.LoadState(place);
    EXPECT_EQ(loaded.section + loaded.key + loaded.fallback + loaded.value, "SKDV");
    EXPECT_TRUE(loaded.numeric && place.left == 30 && place.top == -4 && !editor.UsesIniFile());
    program.settings.SaveMode = 1;
    program.Store("Settings", "MainLeft", "1e300");
    Fail("Overflow\r\nCalled from Sub: frmSettings");
    EXPECT_EQ(editor.LoadState(place).section, "Section");
}

TEST_F(OptionsTest, AResetForgetsPositionsAndLeavesTheHabitsStored) {
    LoadGlobals(main);
    document.setup.LayoutName = "A4_8";
    SaveOptions(main, false, false);
    EXPECT_EQ(program.Stored("Settings", "Ask before delete"), "False");
    for (const char* key : {"PrtWiz", "Font Settings", "mdiVelmora", "frmOther"})
        program.Store("Form Position", key, "1,2,3,4");
    program.Store("Margin Settings", "Default Left Margin - A4_8", "7");
    EXPECT_EQ(ResetOptions(main), LoadOutcome::Loaded);
    EXPECT_EQ(program.Stored("Settings", "Margin Value Left"), "7");
    EXPECT_FALSE(main.globals.AskBeforeDelete) << "read again, as stored";
    EnumerateSettings(program.settings, "Form Position");
    EXPECT_TRUE(program.settings.KeyValues.empty());
}

struct SettingsImportTest : OptionsTest {
    fs::path reg = program.folder / "old.reg";

    void Import(const std::string& bytes, const std::string& message, Icon icon = Icon::Information) {
        ReplaceFile(reg, bytes);
        program.ui.ExpectChooser("Import old settings", reg, "OPEN|Registry export (*.reg)|*.reg|Velmora.reg");
        Tell(message, icon);
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
    document.FieldA(1) = "typed";
    const std::string text =
        Export("Settings", "\"OptType\"=\"3\"\r\n\"Ask before delete\"=\"False\"\r\n\"N\"=dword:00000007\r\n"
                           "\"Margin Value Left\"=\"2.5\"\r\n") +
        "[HKEY_LOCAL_MACHINE\\" + kKey + "Paths]\r\n\"Images\"=\"C:\\\\Velmora\\\\\"\r\n" + "[HKEY_LOCAL_MACHINE\\" +
        kKey + "Form Position]\r\n\"frmFind\"=\"9,9,9,9\"\r\n"; // of another unit
    const std::string done = "Settings imported: 4.\r\nAn open document keeps its own tab type, margins and fonts.";
    Import(text, done);
    EXPECT_EQ(std::to_string(document.setup.OptType) + document.FieldA(1), "0typed");
    EXPECT_FALSE(main.globals.AskBeforeDelete);
    EXPECT_EQ(program.Stored("Settings", "N"), "7");
    EXPECT_EQ(program.Stored("Paths", "Images") + program.Stored("Form Position", "frmFind"), "(none)(none)");
    NewDocument(main);
    Import(text, done);
    EXPECT_EQ(document.setup.OptType, 3);
    EXPECT_EQ(document.TabCount, 54);
    EXPECT_EQ(program.Stored("Settings", "Margin Value Left"), "2.5");
}

TEST_F(SettingsImportTest, APrinterThatIsNotHereGivesWayToTheDefault) {
    FakePrinters printers;
    MainModule here{program.settings, program.ui, printers, program.workbooks, {}, {}, {}};
    const auto load = [&] {
        program.settings.Own.clear();
        LoadGlobals(here);
        return here.globals.PrinterName;
    };
    program.registry.Set(kKey + "Paths", "Application", std::string("C:\\Velmora\\"));
    program.registry.Set(kKey + "Settings", "Printer", std::string("Gone"));
    program.registry.Set(kKey + "Form Position", "frmFind", std::string("9,9,9,9"));
    EXPECT_EQ(load(), "Hall") << "moved in at the first start";
    EXPECT_EQ(program.Stored("Form Position", "frmFind"), "(none)");
    for (const auto& [name, taken] : {std::pair("Office", "Office"), {"Gone", "Hall"}}) {
        Put("old.reg", Export("Settings", "\"Printer\"=\"" + std::string(name) + "\"\r\n"));
        program.ui.ExpectChooser("Import old settings", reg);
        Tell("Settings imported: 1.\r\nAn open document keeps its own tab type, margins and fonts.");
        ImportOldSettings(here);
        EXPECT_EQ(load(), taken);
    }
}

TEST_F(SettingsImportTest, AFileThatIsNoneChangesNothing) {
    LoadGlobals(main);
    const std::string before = ReadFile(ini), named = "The file '" + reg.string() + "' ";
    for (const std::string& bytes : {std::string("broken"), Export("Settings", "\"OptType\"=\"3\"\r\n\"A\"=open\r\n")})
        Import(bytes, named + "is damaged, or no export of a registry.\r\nNothing was changed.", Icon::Exclamation);
    Import("REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n\"A\"=\"1\"\r\n",
           named + "holds no settings of Velmora. Nothing was changed.");
    program.ui.ExpectChooser("Import old settings", program.folder / "none.reg");
    Tell("The file '" + (program.folder / "none.reg").string() + "' cannot be read.\r\nNothing was changed.",
         Icon::Exclamation);
    ImportOldSettings(main);
    EXPECT_EQ(ReadFile(ini), before);
    fs::remove(ini);
    fs::create_directory(ini);
    Import(Export("Settings", "\"OptType\"=\"3\"\r\n"), (ini).string() + ": Is a directory\r\nNothing was changed.",
           Icon::Exclamation);
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
        program.registry.Set(path, "V", value);
        EXPECT_TRUE(GetKeyValue(program.registry, path, "V", result));
        EXPECT_EQ(result, text);
    }
    program.registry.Set(path, "V", longest + "x");
    EXPECT_FALSE(GetKeyValue(program.registry, path, "V", result) ||
                 GetKeyValue(program.registry, path, "None", result));
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
    program.registry.Set(shared + " Location", "MSINFO", program.folder.Path().string());
    StartSysInfo(main, desktop); // the file that it names is not there
    const fs::path tool = program.folder.Path().string() + "\\MSINFO32.EXE";
    ReplaceFile(tool, "");
    StartSysInfo(main, desktop);
    program.registry.Set(shared + "\\MSINFO", "PATH", std::string("tool"));
    StartSysInfo(main, desktop);
    EXPECT_EQ(desktop.calls, "own own " + tool.string() + " tool ");
    desktop.starts = desktop.has = false;
    Desktop none;
    for (Desktop* bare : {static_cast<Desktop*>(&desktop), &none}) {
        Tell("System Information Is Unavailable At This Time", Icon::None);
        StartSysInfo(main, *bare);
    }
}

TEST(ProgramDetails, NameWhatSupportAsksFor) {
    TestProgram program([](const std::string& text) { ADD_FAILURE() << text; });
    FakePrinters printers;
    printers.paperWidth = 210;
    printers.state = {Readiness::Waiting, "No toner"};
    MainModule main{program.settings, program.ui, printers, program.workbooks};
    main.globals.TabsPath = "/docs";
    const std::string details = ProgramDetails(main, {"Qt 6", "X"});
    EXPECT_TRUE(details.starts_with("Qt 6\nX\nPrinter: Office, A4, no DL. "
                                    "The printer \"Office\" is not ready: the job will wait. It says: No toner\n"))
        << details;
    EXPECT_NE(details.find("\nDocuments: /docs\n"), std::string::npos) << details;
    printers.listing = PrinterError("The print server does not answer.");
    EXPECT_NE(ProgramDetails(main, {""}).find("\nPrinters: The print server does not answer.\n"), std::string::npos);
}

} // namespace
} // namespace velmora
