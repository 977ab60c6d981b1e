// Files: replaced, refused and looked for, on every system.
#include "base/AtomicFile.h"
#include "base/Sibling.h"
#include "base/SystemLock.h"
#include "base/Validate.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct FilesTest : testing::Test {
    TemporaryFolder folder;
    fs::path path = folder / "a.csv";
    std::ptrdiff_t Files() { return std::distance(fs::directory_iterator(folder.Path()), {}); }
};

TEST_F(FilesTest, RefusalsNameThePathAndTheCause) {
    EXPECT_THROW(ReplaceFile(folder.Path(), "x"), FileAccessError);
    EXPECT_THROW(ReadFile(folder.Path()), FileAccessError);
    EXPECT_THROW(ReplaceFile(folder / "none/a.csv", "x"), FileAccessError);
    try {
        ReadFile(folder / "none.csv");
        FAIL();
    } catch (const FileAccessError& error) {
        EXPECT_EQ(error.Number(), ENOENT);
        EXPECT_EQ(error.what(), (folder / "none.csv").string() + ": No such file or directory");
    }
}

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
    EXPECT_FALSE(fs::exists("Q:\\Velmora\\Tabs"));
}

TEST_F(FilesTest, TheWholeCopyOfARunningProgramIsItsOwn) {
    ReplaceFile(path, "old");
    const fs::path copy = folder / (SiblingStart(path) + "1-1.whole");
    {
        const SystemLock held = SystemLock::MakeFile(copy);
        EXPECT_FALSE(InterruptedSave(path));
        ReplaceFile(path, "new");
        EXPECT_TRUE(fs::exists(copy));
    }
    EXPECT_TRUE(InterruptedSave(path)) << "it has ended";
}

} // namespace
} // namespace velmora
