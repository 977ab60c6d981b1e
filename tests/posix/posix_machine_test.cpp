// What a start finds on Linux: the folder of the program, the desktop's language and tools, and the drives.
#include "platform/Machine.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/LinuxDrives.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <thread>

namespace velmora {
namespace {

namespace fs = std::filesystem;

TEST(ProgramFolder, FollowsTheEnvironmentAndTheInstallation) {
    const TemporaryFolder root;
    for (const char* folder : {"portable", "usr/bin", "usr/share/velmora"})
        fs::create_directories(root / folder);
    std::map<std::string, std::string> variables = {{"HOME", "/home/x"}};
    const Environment environment = [&](const char* name) {
        return variables.contains(name) ? std::optional(variables.at(name)) : std::nullopt;
    };
    EXPECT_EQ(FindProgramFolder(root / "portable", environment), root / "portable");
    EXPECT_EQ(FindProgramFolder(root / "usr/bin", environment), "/home/x/.config/velmora");
    variables["XDG_CONFIG_HOME"] = "/config";
    EXPECT_EQ(FindProgramFolder(root / "usr/bin", environment), "/config/velmora");
    variables["VELMORA_HOME"] = "/else";
    EXPECT_EQ(FindProgramFolder(root / "portable", environment), "/else");
}

TEST(DesktopLanguage, IsATagOrNotKnown) {
    const std::pair<const char*, const char*> cases[] = {
        {"de_CH.UTF-8", "de-CH"}, {"sr_RS@latin", "sr-RS"}, {"C.UTF-8", "und"}, {"POSIX", "und"}, {"a)b", "und"}};
    for (const auto& [locale, tag] : cases)
        EXPECT_EQ(DesktopLanguage([text = locale](const char*) { return std::optional<std::string>(text); }), tag);
    EXPECT_EQ(DesktopLanguage([](const char*) { return std::nullopt; }), "und");
}

TEST(LinuxDrives, TellsDisksFromWhatNobodyStoresOn) {
    const std::vector<Drive> drives =
        ReadMounts("22 1 8:1 / / rw,relatime shared:1 master:2 - ext4 /dev/sda1 rw\n"
                   "23 22 0:5 / /proc rw - proc proc rw\n24 22 0:9 / /mnt/my\\040disk\\134x rw - ntfs3 /dev/sdb1 rw\n"
                   "25 22 0:6 / /net rw shared:9 - nfs4 host:/x rw\n26 22 0:7 / /cloud rw - fuse.rclone r rw\n"
                   "27 22 0:8 / /run rw - tmpfs tmpfs rw\n28 22 7:1 / /snap/a rw - squashfs /dev/loop1 ro\nnonsense\n");
    const std::vector<Drive> wanted = {
        {"/", DriveKind::Disk},         {"/proc", DriveKind::Virtual},  {"/mnt/my disk\\x", DriveKind::Disk},
        {"/net", DriveKind::Network},   {"/cloud", DriveKind::Network}, {"/run", DriveKind::Virtual},
        {"/snap/a", DriveKind::Virtual}};
    EXPECT_EQ(drives, wanted);
    EXPECT_FALSE(LinuxDrives().List().empty());
}

TEST(LinuxDesktopTest, ProgramsAreStartedWithoutAShell) {
    const TemporaryFolder folder;
    const fs::path bin = folder / "bin";
    fs::create_directory(bin);
    LinuxDesktop desktop([&](const char* name) {
        return std::string(name) == "PATH" ? std::optional("/nowhere:" + bin.string()) : std::nullopt;
    });
    EXPECT_FALSE(desktop.OpenFile(folder / "a.chm") || desktop.StartSystemInformation());
    const std::string opened = (folder / "opened").string();
    ReplaceFile(bin / "xdg-open",
                "#!/bin/sh\nprintf %s \"$1\" >" + opened + ".part\nmv " + opened + ".part " + opened + "\n");
    ReplaceFile(bin / "broken", "#!/nowhere/at/all\n");
    for (const char* name : {"xdg-open", "broken"})
        fs::permissions(bin / name, fs::perms::owner_all);
    const fs::path odd = folder / "a; touch b $(x) .chm";
    EXPECT_TRUE(desktop.OpenFile(odd));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!fs::exists(opened) && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(ReadFile(opened), odd.string());
    EXPECT_FALSE(desktop.StartProgram(bin / "broken") || desktop.StartProgram("xdg-open"));
    fs::rename(bin / "broken", bin / "xdg-open");
    EXPECT_FALSE(desktop.OpenFile(odd)) << "nothing opened it";
}

} // namespace
} // namespace velmora
