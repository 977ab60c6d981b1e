#include "platform/linux/RegistryFile.h"
#include "tests/settings/Support.h"

#include <gtest/gtest.h>
#include <random>

namespace velmora {
namespace {

using Values = std::vector<std::pair<std::string, RegistryValue>>;
constexpr const char* kPath = "SOFTWARE\\Maker\\Program\\Sect";

std::string Utf16(std::string_view ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii)
        bytes.append(1, c).append(1, '\0');
    return bytes;
}

/// An export with one section that holds `lines`.
std::string Exported(const std::string& lines) {
    return "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program\\Sect]\r\n" + lines;
}

class RegistryFileTest : public testing::Test {
protected:
    std::vector<std::string> Keys(const std::string& path) {
        std::vector<std::string> names;
        registry_.EnumerateKeys(path, names);
        return names;
    }
    Values ValuesOf(const std::string& path) {
        Values values;
        registry_.EnumerateValues(path, values);
        return values;
    }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "Velmora.reg";
    RegistryFile registry_{path_};
};

TEST_F(RegistryFileTest, ReadsWhatAnEditorExports) {
    const std::string version5 =
        "Windows Registry Editor Version 5.00\r\n\r\n[HKLM\\software\\maker\\program\\sect]\r\n";
    struct {
        std::string text;
        Values values;
    } const cases[] = {
        {Exported("\"A\"=\"C:\\\\Tabs\\\\\"\r\n\"say \\\"b\\\"\"=\"\\\"x\\\"\"\r\n@=\"main\"\r\n"),
         {{"A", "C:\\Tabs\\"}, {"say \"b\"", "\"x\""}, {"", "main"}}},
        {Exported("; old\r\n\"N\"=dword:fffffffb\r\n\"T\"=\"caf\xE9 \x80\""),
         {{"N", 0xFFFFFFFBu}, {"T", "caf\xC3\xA9 \xE2\x82\xAC"}}},
        {Exported(
             "\"B\"=hex:01,02,\\\r\n  03\r\n\"E\"=hex(2):25,41,\\\r\n  25,00\r\n\"M\"=hex(7):41,00,00\r\n"),
         {{"E", "%A%"}}},
        {Exported("\"L\"=\"one\r\ntwo\"\r\n"), {{"L", "one\r\ntwo"}}},
        {Exported("\"A\"=\"1\"\r\n\"B\"=\"1\"\r\n\"a\"=\"2\"\r\n\"B\"=-\r\n"), {{"A", "2"}}},
        {Exported("\"A\"=\"1\"\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program]\r\n"
                  "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\Maker\\Program\\Sect]\r\n\"C\"=\"3\"\r\n"),
         {{"C", "3"}}},
        {Exported("[HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Program\\Sect]\r\n\"A\"=\"1\"\r\n"), {}},
        {Utf16(version5 + "\"E\"=hex(2):25,00,41,00,00,00\r\n\"A\"=\"1\"\r\n"), {{"E", "%A"}, {"A", "1"}}},
        {"\xEF\xBB\xBF" + version5 + "\"A\"=\"\xC5\x82\"\n", {{"A", "\xC5\x82"}}},
    };
    for (const auto& [text, values] : cases) {
        ReplaceFile(path_, text);
        Values read = ValuesOf(kPath);
        std::sort(read.begin(), read.end());
        Values wanted = values;
        std::sort(wanted.begin(), wanted.end());
        EXPECT_EQ(read, wanted) << text;
    }
}

TEST_F(RegistryFileTest, ListsKeysInTheOrderOfTheText) {
    ReplaceFile(path_, Exported("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program]\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\MAKER\\Program\\Font Settings\\Old]\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Programs\\Other]\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program\\Alpha]\r\n"));
    EXPECT_EQ(Keys("software\\maker\\program"), (std::vector<std::string>{"Sect", "Font Settings", "Alpha"}));
    EXPECT_EQ(Keys(""), (std::vector<std::string>{"SOFTWARE"}));
    std::vector<std::string> names;
    EXPECT_EQ(registry_.EnumerateKeys("SOFTWARE\\Make", names), RegistryCode::FileNotFound);
}

TEST_F(RegistryFileTest, ChangesOnlyWhatItIsToldTo) {
    const std::string kept = "; mine\r\n\"B\"=hex:01,\\\r\n  02\r\n\"A\"=\"1\" ; old\r\n";
    ReplaceFile(path_, Exported(kept + "\r\n[HKEY_LOCAL_MACHINE\\X]\r\n\"A\"=\"9\""));
    EXPECT_EQ(registry_.Set(kPath, "a", "C:\\\"\xC3\xA9"), RegistryCode::Success);
    EXPECT_EQ(registry_.Set(kPath, "New", 26u), RegistryCode::Success);
    EXPECT_EQ(registry_.Set("X\\Y", "", "v"), RegistryCode::Success);
    EXPECT_EQ(
        Content(path_),
        Exported(
            "; mine\r\n\"B\"=hex:01,\\\r\n  02\r\n\"A\"=\"C:\\\\\\\"\xE9\"\r\n\"New\"=dword:0000001a\r\n"
            "\r\n[HKEY_LOCAL_MACHINE\\X]\r\n\"A\"=\"9\"\r\n\r\n[HKEY_LOCAL_MACHINE\\X\\Y]\r\n@=\"v\"\r\n"));
    EXPECT_EQ(registry_.Set(kPath, "A", "\xC5\x82"), RegistryCode::WriteFault)
        << "not in the file's encoding";
    EXPECT_EQ(registry_.Set(kPath, "A\r\n", "1"), RegistryCode::WriteFault);
}

TEST_F(RegistryFileTest, WritesUtf16Back) {
    const std::string head = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\X]\r\n";
    ReplaceFile(path_, Utf16(head));
    EXPECT_EQ(registry_.Set("X", "A", "\xF0\x9F\x96\xA8"), RegistryCode::Success);
    EXPECT_EQ(Content(path_),
              Utf16(head + "\"A\"=\"") + std::string("\x3D\xD8\xA8\xDD", 4) + Utf16("\"\r\n").substr(2));
    EXPECT_EQ(ValuesOf("X"), (Values{{"A", "\xF0\x9F\x96\xA8"}}));
}

TEST_F(RegistryFileTest, MissingFileIsAnEmptyRegistry) {
    RegistryValue value;
    EXPECT_EQ(registry_.Query(kPath, "A", value), RegistryCode::FileNotFound);
    EXPECT_EQ(registry_.DeleteKey(kPath), RegistryCode::FileNotFound);
    EXPECT_EQ(Content(path_), "(none)");
    EXPECT_EQ(registry_.Set(kPath, "A", "1"), RegistryCode::Success);
    EXPECT_EQ(Content(path_), Exported("\"A\"=\"1\"\r\n"));
}

TEST_F(RegistryFileTest, DeletesForGood) {
    ReplaceFile(path_, Exported("\"A\"=\"1\"\r\n\"B\"=\"1\"\r\n\"A\"=\"2\"\r\n; note\r\n"));
    EXPECT_EQ(registry_.DeleteValue(kPath, "A"), RegistryCode::Success);
    EXPECT_EQ(Content(path_), Exported("\"B\"=\"1\"\r\n; note\r\n"));
    EXPECT_EQ(registry_.DeleteValue(kPath, "A"), RegistryCode::FileNotFound);
    EXPECT_EQ(registry_.DeleteKey("SOFTWARE\\Maker\\Program"), RegistryCode::AccessDenied);
    EXPECT_EQ(registry_.DeleteKey(kPath), RegistryCode::Success);
    EXPECT_EQ(Keys("SOFTWARE\\Maker"), (std::vector<std::string>{"Program"})) << "the key above went with it";
    EXPECT_EQ(registry_.DeleteKey("SOFTWARE\\Maker\\Program"), RegistryCode::Success);
    EXPECT_NE(Content(path_).find("; note"), std::string::npos);
}

TEST_F(RegistryFileTest, NeverChangesABrokenFile) {
    const std::string broken[] = {
        "",
        "REGEDIT5\r\n",
        "REGEDIT4\r\n\"A\"=\"before any key\"\r\n",
        Exported("\"A\"=\"open\r\n"),
        Exported("\"A\"=dword:xyz\r\n"),
        Exported("\"A\"=\"1\"2\r\n"),
        Exported("A=1\r\n"),
        "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\X\r\n",
        Utf16("Windows Registry Editor Version 5.00\r\n") + "x",
        Utf16("Windows Registry Editor Version 5.00\r\n;") + std::string("\0\xD8;\0", 4),
    };
    for (const std::string& text : broken) {
        ReplaceFile(path_, text);
        RegistryValue value;
        EXPECT_EQ(registry_.Query(kPath, "A", value), kRegistryCorrupt) << text;
        EXPECT_EQ(registry_.Set(kPath, "A", "1"), kRegistryCorrupt);
        EXPECT_EQ(registry_.DeleteValue(kPath, "A"), kRegistryCorrupt);
        EXPECT_EQ(registry_.DeleteKey(kPath), kRegistryCorrupt);
        EXPECT_EQ(Content(path_), text);
    }
}

TEST_F(RegistryFileTest, StandsAnyBytes) {
    const std::string pieces[] = {
        "[", "]",      "[-", "\"a\"=", "\"", "\\", "\r\n",   "\n", "=",   "hex:", "hex(2):",  "41,",
        "0", "dword:", "@",  ";",      " ",  "-",  "HKLM\\", "X",  "\\Y", "\xE9", "\xC3\xA9", "[HKLM\\X]\n"};
    std::mt19937 random(8102);
    int changed = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text = "REGEDIT4\n[HKLM\\X]\n";
        for (auto count = random() % 8; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        const bool isUtf16 = random() % 4 == 0;
        ReplaceFile(path_, isUtf16 ? Utf16(text) : text);
        const std::string before = Content(path_);
        RegistryValue value;
        if (registry_.Set("X\\Y", "k", "v") != RegistryCode::Success) {
            ASSERT_EQ(Content(path_), before);
            continue;
        }
        ++changed;
        ASSERT_EQ(registry_.Query("X\\Y", "k", value), RegistryCode::Success) << before;
        ASSERT_EQ(registry_.DeleteValue("X\\Y", "k"), RegistryCode::Success) << before;
        ASSERT_EQ(registry_.Query("X\\Y", "k", value), RegistryCode::FileNotFound) << before;
    }
    EXPECT_GT(changed, 300) << "most of the texts are broken; the test says little";
}

} // namespace
} // namespace velmora
