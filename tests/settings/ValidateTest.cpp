#include "base/Validate.h"
#include "tests/settings/Support.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(Validate, FindsTheDrive) {
    const std::pair<const char*, const char*> cases[] = {
        {"C:\\Tabs\\a.csv", "C:"}, {"C:a.csv", "C:"}, {"/home/me/", "NO DRIVE"}, {"/home/at 12:30/a:c.csv", "NO DRIVE"},
        {"a.csv", "NO DRIVE"},     {"", "NO DRIVE"},
    };
    for (const auto& [path, drive] : cases)
        EXPECT_EQ(DriveOf(path), drive) << path;
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
