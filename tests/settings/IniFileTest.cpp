#include "settings/IniFile.h"
#include "base/Error.h"
#include "settings/IniText.h"
#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

namespace velmora {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

/// Settings are kept in UTF-8 or Windows-1252, a caller can't leave the section's name out, and a value's further lines
/// are no lines of the file.
const std::set<std::string> kLeftOut = {"encoding/utf16le_read", "write/null_section_missing_file",
                                        "write/value_with_newline"};

/// Each character of the table stands for the byte of its number.
std::string Bytes(const json& text) {
    std::string bytes;
    if (text.is_null())
        return bytes;
    const std::string utf8 = text.get<std::string>();
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        bytes += lead < 0x80 ? utf8[i] : static_cast<char>((lead << 6) | (utf8[++i] & 0x3F));
    }
    return bytes;
}

std::string Read(const IniText& text, const json& op) {
    if (op["op"] == "list_sections")
        return text.ListSections();
    if (op["op"] == "list_keys")
        return text.ListKeys(Bytes(op["section"]), Bytes(op.value("default", json())));
    return text.ReadString(Bytes(op["section"]), Bytes(op["key"]), Bytes(op["default"]));
}

void Perform(IniText& text, const json& op) {
    SCOPED_TRACE(op.dump());
    if (op["op"] == "write")
        text.Write(Bytes(op["section"]), Bytes(op["key"]),
                   op["value"].is_null() ? std::nullopt : std::optional(Bytes(op["value"])));
    else if (op["op"] == "snapshot")
        EXPECT_EQ(text.Bytes(), Bytes(op["bytes"]));
    else if (op.contains("result") && op["op"] == "read_int")
        EXPECT_EQ(text.ReadInt(Bytes(op["section"]), Bytes(op["key"]), op["default"]), op["result"]);
    else if (op.contains("result")) {
        EXPECT_EQ(Read(text, op), Bytes(op["result"]));
    }
}

TEST(IniText, DoesAsThePrivateProfileFunctions) {
    std::size_t met = 0;
    for (const json& test : json::parse(ReadFile(VELMORA_TEST_DATA "/ini_vectors.json"))) {
        if (kLeftOut.contains(test["name"]))
            continue;
        SCOPED_TRACE(test["name"].get<std::string>());
        IniText text(Bytes(test["initial"]));
        for (const json& op : test["ops"])
            Perform(text, op);
        if (test.contains("final")) {
            EXPECT_EQ(text.Bytes(), Bytes(test["final"]));
        }
        ++met;
    }
    EXPECT_EQ(met, 160u);
}

TEST(IniText, ChangesNothingButTheValue) {
    const std::pair<const char*, const char*> cases[] = {
        // without and with b=9 in section s
        {"[s]\n  b = 1 \na=1\n", "[s]\n  b = 9\na=1\n"},
        {"[s]\rb=1\r\r[t]\rb=2\r", "[s]\rb=9\r\r[t]\rb=2\r"},
        {"[s]\r\na=1\r\n\r\n; of t\r\n[t]\r\n", "[s]\r\na=1\r\nb=9\r\n\r\n; of t\r\n[t]\r\n"},
        {"[s]\r\na=1\r\n\x1a", "[s]\r\na=1\r\nb=9\r\n\x1a"},
        {"[s]\r\nb\r\n", "[s]\r\nb=9\r\nb\r\n"},
        {"[\ts\t]\r\nb=1\r\n", "[\ts\t]\r\nb=9\r\n"},
    };
    for (const auto& [before, after] : cases) {
        IniText text(before);
        EXPECT_TRUE(text.Write("s", "b", "9"));
        EXPECT_EQ(text.Bytes(), after);
        EXPECT_FALSE(text.Write("s", "b", "9")) << "written a second time: " << before;
    }
}

TEST(IniText, AValueEndsAtItsFirstLineBreak) {
    for (const char* value : {"9\r\n[t]\r\nk=1", "9\nc=2", "9\rc=2", "9"}) {
        IniText text("[s]\r\na=1\r\n");
        text.Write("s", "b", value);
        text.Write("s", "a", value);
        EXPECT_EQ(text.Bytes(), "[s]\r\na=9\r\nb=9\r\n") << value;
    }
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
    const FileIdentity before = IdentityOf(folder / "a.ini");
    IniFile file(folder / "a.ini");
    file.Write("s", "k", "1");
    file.Write("s", "missing", std::nullopt);
    file.WriteDefault("s", "k", "1");
    EXPECT_EQ(IdentityOf(folder / "a.ini"), before);
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
