#include "settings/IniFile.h"
#include "base/Error.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

ino_t Number(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

TEST(IniFile, KeepsTheEncodingWhileItHoldsTheTexts) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"[s]\r\nk=caf\xE9\r\n", "\xC3\xBC \xE2\x82\xAC", "[s]\r\nk=\xFC \x80\r\n"},
        {"[s]\r\na=\xE9\r\nk=1\r\n", "\xC5\x82", "[s]\r\na=\xC3\xA9\r\nk=\xC5\x82\r\n"},
        {"\xEF\xBB\xBF[s]\r\nk=1\r\n", "\xC3\xA9", "\xEF\xBB\xBF[s]\r\nk=\xC3\xA9\r\n"},
        {"[s]\r\nk=1\r\n", "\xC3\xA9", "[s]\r\nk=\xC3\xA9\r\n"},
        // As Windows-1252 these two letters would read as one letter of UTF-8.
        {"[s]\r\nk=\xE9\r\n", "\xC3\x83\xC2\xA9", "[s]\r\nk=\xC3\x83\xC2\xA9\r\n"},
        // A value that is no UTF-8 must not turn all others of the file to another encoding.
        {"[s]\r\na=\xC3\xA9\r\nk=1\r\n", "\xFC", "[s]\r\na=\xC3\xA9\r\nk=\xC3\xBC\r\n"}};
    const TemporaryFolder folder;
    for (const auto& [before, value, after] : cases) {
        ReplaceFile(folder / "a.ini", before);
        IniFile file(folder / "a.ini");
        file.Write("s", "k", value);
        EXPECT_EQ(Content(folder / "a.ini"), after);
    }
}

TEST(IniFile, LeavesAFileAloneThatWouldNotChange) {
    const TemporaryFolder folder;
    ReplaceFile(folder / "a.ini", "[s]\nk=1\n");
    const ino_t number = Number(folder / "a.ini");
    IniFile file(folder / "a.ini");
    file.Write("s", "k", "1");
    file.Write("s", "missing", std::nullopt);
    file.WriteDefault("s", "k", "1");
    EXPECT_EQ(Number(folder / "a.ini"), number);
    IniFile none(folder / "none.ini");
    none.Write("s", "k", std::nullopt);
    EXPECT_FALSE(fs::exists(folder / "none.ini"));
}

TEST(IniFile, SeesEachChangeOfAnotherProgramAtOnce) {
    const TemporaryFolder folder;
    IniFile file(folder / "a.ini");
    for (int i = 0; i < 200; ++i) {
        // The same size and inode; before Linux 6.13 mostly the same time stamp too.
        std::ofstream(folder / "a.ini") << "[s]\nk=" << i % 10 << "\n";
        ASSERT_EQ(file.Text().ReadInt("s", "k", -1), i % 10) << i;
    }
    fs::remove(folder / "a.ini");
    EXPECT_EQ(file.Text().ReadInt("s", "k", -1), -1);
}

TEST(IniFile, TellsWhatCanNotBeWritten) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder.ini");
    const std::string utf16("\xFF\xFE[\0s\0]\0", 8);
    ReplaceFile(folder / "utf16.ini", utf16);
    ReplaceFile(folder / "large.ini", "[s]\r\nk=1\r\n" + std::string(kMostIniBytes, ';'));
    for (const char* name : {"folder.ini", "missing/a.ini", "utf16.ini", "large.ini"}) {
        IniFile file(folder / name);
        EXPECT_EQ(file.Text().ReadString("s", "k", "none"), "none");
        EXPECT_THROW(file.Write("s", "k", "1"), Error) << name;
        EXPECT_NO_THROW(file.WriteDefault("s", "k", "none"));
        file.BeginBatch();
        file.Write("s", "k", "1");
        EXPECT_THROW(file.EndBatch(), Error) << name;
        EXPECT_EQ(file.Text().ReadString("s", "k", "none"), "none") << "a lost change is still shown";
    }
    EXPECT_EQ(Content(folder / "utf16.ini"), utf16);
    EXPECT_EQ(Content(folder / "large.ini").size(), kMostIniBytes + 10u);
}

TEST(IniFile, BatchReplacesTheFileOnceAndKeepsOthersChanges) {
    const TemporaryFolder folder;
    IniFile file(folder / "a.ini");
    file.BeginBatch();
    file.Write("s", "a", "1");
    file.WriteDefault("s", "b", "a default never replaces another's value");
    const std::size_t inner = file.BeginBatch();
    file.Write("s", "lost", "1");
    file.AbandonBatch(inner);
    IniFile(folder / "a.ini").Write("s", "b", "other");
    file.Write("s", "a", "2");
    file.WriteDefault("s", "c", "0");
    EXPECT_EQ(Content(folder / "a.ini"), "[s]\r\nb=other\r\n");
    EXPECT_EQ(file.Text().Bytes(), "[s]\r\nb=other\r\na=2\r\nc=0\r\n");
    file.EndBatch();
    EXPECT_EQ(Content(folder / "a.ini"), "[s]\r\nb=other\r\na=2\r\nc=0\r\n");
}

} // namespace
} // namespace velmora
