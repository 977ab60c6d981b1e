// What a start finds on Windows: the folder of the program, the registry, fonts and drives.
#include "base/Paths.h"
#include "platform/FontWidths.h"
#include "settings/RegistryFile.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>

namespace velmora {
namespace {

namespace fs = std::filesystem;

TEST(WindowsMachine, TheProgramFolderFollowsTheEnvironmentAndTheInstallation) {
    const TemporaryFolder root;
    for (const char* folder : {"portable", "installed"})
        fs::create_directories(root / folder);
    ReplaceFile(root / "installed/uninstall.exe", "");
    std::map<std::string, std::string> variables = {{"APPDATA", "C:\\users\\Zo\xC3\xAB"}};
    const Environment environment = [&](const char* name) {
        return variables.contains(name) ? std::optional(variables.at(name)) : std::nullopt;
    };
    EXPECT_EQ(FindProgramFolder(root / "portable", environment), root / "portable");
    EXPECT_EQ(FindProgramFolder(root / "installed", environment), PathOf("C:\\users\\Zo\xC3\xAB\\Velmora"));
    EXPECT_EQ(FindProgramFolder(root / "none", environment), PathOf("C:\\users\\Zo\xC3\xAB\\Velmora"));
    variables["VELMORA_HOME"] = "D:\\else";
    EXPECT_EQ(FindProgramFolder(root / "portable", environment), "D:\\else");
}

TEST(WindowsMachine, TheRegistryAnswersAsTheFileOfOneDoes) {
    const TemporaryFolder folder;
    const auto open = [](const fs::path& file) { return std::make_unique<RegistryFile>(file); };
    const auto machine = MakeMachineRegistry(open);
    RegistryFile file(folder / "a.reg");
    const std::string key = "SOFTWARE\\Corvane Series\\Test", name = "T\xC3\xABxt";
    for (Registry* registry : {machine.get(), static_cast<Registry*>(&file)}) {
        RegistryValue value = std::string("as before");
        EXPECT_EQ(registry->Query(key, name, value), RegistryCode::FileNotFound);
        EXPECT_EQ(registry->Set(key + "\\Inner", name, std::string("\xE2\x82\xAC")), RegistryCode::Success);
        EXPECT_EQ(registry->Set(key + "\\Inner", "Number", 7U), RegistryCode::Success);
        EXPECT_EQ(registry->Query(key + "\\INNER", name, value), RegistryCode::Success);
        EXPECT_EQ(std::get<std::string>(value), "\xE2\x82\xAC");
        std::vector<std::string> names;
        EXPECT_EQ(registry->EnumerateKeys(key, names), RegistryCode::Success);
        EXPECT_EQ(names, std::vector<std::string>{"Inner"});
        std::vector<std::pair<std::string, RegistryValue>> values;
        EXPECT_EQ(registry->EnumerateValues(key + "\\Inner", values), RegistryCode::Success);
        EXPECT_EQ(values.size(), 2U);
        EXPECT_NE(std::find(values.begin(), values.end(), std::pair(std::string("Number"), RegistryValue(7U))),
                  values.end());
        EXPECT_EQ(registry->DeleteKey(key), RegistryCode::AccessDenied) << "it has one within";
        EXPECT_EQ(registry->DeleteValue(key + "\\Inner", "none"), RegistryCode::FileNotFound);
        EXPECT_EQ(registry->DeleteKey(key + "\\Inner"), RegistryCode::Success);
        EXPECT_EQ(registry->DeleteKey(key), RegistryCode::Success);
        EXPECT_EQ(registry->EnumerateKeys(key, names), RegistryCode::FileNotFound);
    }
    file.Set(key, "a", std::string("exported"));
    RegistryValue exported;
    EXPECT_EQ(machine->OpenExport(folder / "a.reg")->Query(key, "a", exported), RegistryCode::Success);
}

TEST(WindowsMachine, FontsStandInForThoseOfTheirWidthsAndLackNoStyleUnsaid) {
    const InstalledFonts fonts;
    const auto families = fonts.Families();
    ASSERT_FALSE(families.empty());
    for (const char* family : {"Arial", "Times New Roman", "Courier New"}) {
        const auto file = fonts.Match({family});
        ASSERT_TRUE(file && fs::exists(file->path)) << family;
        EXPECT_EQ(WidthsOf(file->family), WidthsOf(family));
        const auto bold = fonts.Match({family, true, true});
        EXPECT_TRUE(bold && bold->path != file->path && !bold->embolden && !bold->slant) << family;
    }
    const auto oneFace = fonts.Match({"DejaVu Math TeX Gyre", true, true});
    ASSERT_TRUE(oneFace);
    EXPECT_TRUE(oneFace->family != "DejaVu Math TeX Gyre" || (oneFace->embolden && oneFace->slant));
    EXPECT_TRUE(fonts.Match({"No such family"}));
    EXPECT_FALSE(fonts.MatchCharacter({"Arial"}, 0x10FFFD)) << "which no font has";
}

TEST(WindowsMachine, HasADrive) {
    const std::vector<Drive> drives = MakeDrives()->List();
    EXPECT_NE(std::find(drives.begin(), drives.end(), Drive{"C:\\", DriveKind::Disk}), drives.end());
}

} // namespace
} // namespace velmora
