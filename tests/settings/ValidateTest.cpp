#include "base/Validate.h"
#include "tests/settings/Support.h"

#include <array>
#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(Validate, TakesPathsApart) {
    const std::array<const char*, 5> cases[] = {
        // path, drive, file name, folder, folder without drive
        {"C:\\Tabs\\Old\\a.csv", "C:", "a.csv", "C:\\Tabs\\Old", "\\Tabs\\Old"},
        {"C:\\a.csv", "C:", "a.csv", "C:", ""},
        {"C:a.csv", "C:", "a.csv", "", "NO PATH"},
        {"C:\\Tabs\\", "C:", "NO FILE", "C:\\Tabs", "\\Tabs"},
        {"/home/me/a.csv", "NO DRIVE", "a.csv", "/home/me", "/home/me"},
        {"/home/me/", "NO DRIVE", "NO FILE", "/home/me", "/home/me"},
        {"/home/at 12:30/a\\b:c.csv", "NO DRIVE", "a\\b:c.csv", "/home/at 12:30", "/home/at 12:30"},
        {"a.csv", "NO DRIVE", "a.csv", "", "NO PATH"},
        {"", "NO DRIVE", "NO FILE", "", "NO PATH"},
    };
    for (const auto& [path, drive, name, folder, withoutDrive] : cases) {
        EXPECT_EQ(DriveOf(path), drive) << path;
        EXPECT_EQ(FileNameOf(path), name) << path;
        EXPECT_EQ(FolderOf(path), folder) << path;
        EXPECT_EQ(FolderWithoutDriveOf(path), withoutDrive) << path;
    }
}

TEST(Validate, MakesFoldersOnlyWhereAsked) {
    const TemporaryFolder folder;
    EXPECT_FALSE(FolderExists(folder / "a/b/"));
    EXPECT_TRUE(FolderExists(folder / "a/b/", true));
    ReplaceFile(folder / "a/file", "");
    EXPECT_FALSE(FolderExists(folder / "a/file/c", true));
    EXPECT_FALSE(FolderExists(folder / "a/file"));
    EXPECT_TRUE(FileExists(folder / "a/file"));
    EXPECT_FALSE(FileExists(folder / "a/b"));
    EXPECT_FALSE(FolderExists("Q:\\Velmora\\Tabs", true));
    EXPECT_FALSE(std::filesystem::exists("Q:\\Velmora\\Tabs"));
}

} // namespace
} // namespace velmora
