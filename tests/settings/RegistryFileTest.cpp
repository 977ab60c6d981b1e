#include "settings/RegistryFile.h"
#include "base/Encoding.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Values = std::vector<std::pair<std::string, RegistryValue>>;
constexpr const char* kPath = "SOFTWARE\\Maker\\Program\\Sect";

constexpr RegistryCode kSuccess = RegistryCode::Success;
const std::string kVersion5 = "Windows Registry Editor Version 5.00\r\n";

std::string Utf16(const std::string& text) {
    return ToUtf16("\xEF\xBB\xBF" + text).value();
}

/// An export with one section that holds `lines`.
std::string Exported(const std::string& lines) {
    return "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program\\Sect]\r\n" + lines;
}

struct RegistryFileTest : testing::Test {
    std::vector<std::string> Keys(const std::string& path) {
        std::vector<std::string> names;
        registry_.EnumerateKeys(path, names);
        return names;
    }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "Velmora.reg";
    RegistryFile registry_{path_};
    RegistryValue value_;
};

TEST_F(RegistryFileTest, ReadsWhatAnEditorExports) {
    const std::string version5 = kVersion5 + "\r\n[HKLM\\software\\maker\\program\\sect]\r\n";
    const std::pair<std::string, Values> cases[] = {
        {Exported("\"A\"=\"C:\\\\Tabs\\\\\"\r\n\"say \\\"b\\\"\"=\"\\\"x\\\"\"\r\n@=\"main\"\r\n"),
         {{"A", "C:\\Tabs\\"}, {"say \"b\"", "\"x\""}, {"", "main"}}},
        {Exported("; old\r\n\"N\"=dword:fffffffb\r\n\"T\"=\"caf\xE9 \x80\""),
         {{"N", 0xFFFFFFFBu}, {"T", "caf\xC3\xA9 \xE2\x82\xAC"}}},
        {Exported("\"B\"=hex:01,02,\\\r\n  03\r\n\"E\"=hex(2):25,\\\r\n  00\r\n\"L\"=\"one\r\ntwo\"\r\n"),
         {{"L", "one\r\ntwo"}}},
        {Exported("\"A\"=\"1\"\r\n\"B\"=\"1\"\r\n\"a\"=\"2\"\r\n\"B\"=-\r\n"), {{"a", "2"}}},
        {Exported("\"A\"=\"1\"\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program]\r\n"
                  "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\Maker\\Program\\Sect]\r\n\"C\"=\"3\"\r\n"
                  "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Prog]\r\n"),
         {{"C", "3"}}},
        {Exported("[HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Program\\Sect]\r\n\"A\"=\"1\"\r\n"), {}},
        {Utf16(version5 + "\"say \\\"b\\\"\"=\"C:\\\\\\\"x\\\"\"\r\n\"N\"=dword:80000000\r\n\"G\"=\"1\"\r\n\"G\"=-\r\n"
                          "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program\\Sect\\Sub]\r\n"),
         {{"say \"b\"", "C:\\\"x\""}, {"N", 0x80000000u}}},
        {Utf16(version5 + "\"Z\"=\"\xC5\x82\"\r\n\"A\"=\"1\"\r\n"), {{"Z", "\xC5\x82"}, {"A", "1"}}},
        {"\xEF\xBB\xBF" + version5 + "\"A\"=\"\xC5\x82\"\n", {{"A", "\xC5\x82"}}},
    };
    for (const auto& [text, wanted] : cases) {
        ReplaceFile(path_, text);
        Values values;
        EXPECT_EQ(registry_.EnumerateValues(kPath, values), kSuccess);
        EXPECT_EQ(values, wanted) << text;
    }
}

TEST_F(RegistryFileTest, ListsKeysInTheOrderOfTheText) {
    ReplaceFile(path_, Exported("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program]\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\MAKER\\Program\\Font Settings\\Old]\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Programs\\Other]\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Program\\Alpha]\r\n"));
    EXPECT_EQ(Keys("software\\maker\\program"), (std::vector<std::string>{"Sect", "Font Settings", "Alpha"}));
    std::vector<std::string> names;
    EXPECT_EQ(registry_.EnumerateKeys("SOFTWARE\\Make", names), RegistryCode::FileNotFound);
}

TEST_F(RegistryFileTest, ChangesOnlyWhatItIsToldTo) {
    const std::string kept = "; mine\r\n\"B\"=hex:01,\\\r\n  02\r\n";
    ReplaceFile(path_, Exported(kept + "\"A\"=\"1\" ; old\r\n\r\n[HKEY_LOCAL_MACHINE\\X]\r\n\"A\"=\"9\""));
    EXPECT_EQ(registry_.Query(kPath, "B", value_), RegistryCode::AccessDenied);
    EXPECT_EQ(registry_.Set(kPath, "a", "C:\\\"\xC3\xA9"), kSuccess);
    EXPECT_EQ(registry_.Set(kPath, "New", 26u), kSuccess);
    EXPECT_EQ(registry_.Set("X\\Y", "", "v"), kSuccess);
    EXPECT_EQ(registry_.Set(kPath, "A", "\xC5\x82"), RegistryCode::WriteFault) << "not in the encoding";
    EXPECT_EQ(registry_.Set(kPath, "A\r\n", "1"), RegistryCode::WriteFault);
    EXPECT_EQ(Content(path_),
              Exported(kept + "\"A\"=\"C:\\\\\\\"\xE9\"\r\n\"New\"=dword:0000001a\r\n\r\n[HKEY_LOCAL_MACHINE\\X]\r\n"
                              "\"A\"=\"9\"\r\n\r\n[HKEY_LOCAL_MACHINE\\X\\Y]\r\n@=\"v\"\r\n"));
}

TEST_F(RegistryFileTest, WritesTheFormThatWasRead) {
    const std::string text = kVersion5 + "\r\n[HKEY_LOCAL_MACHINE\\X]\r\n";
    const std::string line = "\"A\"=\"\xF0\x9F\x96\xA8\"\r\n";
    ReplaceFile(path_, Utf16(text));
    EXPECT_EQ(registry_.Set("X", "A", "\xF0\x9F\x96\xA8"), kSuccess);
    EXPECT_EQ(Content(path_), Utf16(text + line));
    ReplaceFile(path_, "\xEF\xBB\xBF" + text);
    EXPECT_EQ(registry_.Set("X", "A", "\xF0\x9F\x96\xA8"), kSuccess);
    EXPECT_EQ(Content(path_), "\xEF\xBB\xBF" + text + line);
    // In Windows-1252 these two letters would read as one letter of UTF-8.
    ReplaceFile(path_, Exported(""));
    EXPECT_EQ(registry_.Set(kPath, "A", "\xC3\x83\xC2\xA9"), RegistryCode::WriteFault);
}

TEST_F(RegistryFileTest, AMissingFileIsAnEmptyRegistryAndDeletesAreForGood) {
    EXPECT_EQ(registry_.Query(kPath, "A", value_), RegistryCode::FileNotFound);
    EXPECT_EQ(registry_.DeleteKey(kPath), RegistryCode::FileNotFound);
    EXPECT_EQ(Content(path_), "(none)");
    EXPECT_EQ(registry_.Set(kPath, "A", "1"), kSuccess);
    EXPECT_EQ(Content(path_), Exported("\"A\"=\"1\"\r\n"));
    ReplaceFile(path_, Exported("\"A\"=\"1\"\r\n\"B\"=\"1\"\r\n\"A\"=\"2\"\r\n; note\r\n"));
    EXPECT_EQ(registry_.DeleteValue(kPath, "A"), kSuccess);
    EXPECT_EQ(Content(path_), Exported("\"B\"=\"1\"\r\n; note\r\n"));
    EXPECT_EQ(registry_.DeleteValue(kPath, "A"), RegistryCode::FileNotFound);
    EXPECT_EQ(registry_.DeleteKey("SOFTWARE\\Maker\\Program"), RegistryCode::AccessDenied);
    EXPECT_EQ(registry_.DeleteKey(kPath), kSuccess);
    EXPECT_EQ(Keys("SOFTWARE\\Maker"), (std::vector<std::string>{"Program"})) << "the key above went with it";
    EXPECT_EQ(registry_.DeleteKey("SOFTWARE\\Maker\\Program"), kSuccess);
    EXPECT_NE(Content(path_).find("; note"), std::string::npos);
}

TEST_F(RegistryFileTest, NeverChangesABrokenFile) {
    for (const std::string& text :
         {std::string(), std::string("REGEDIT5\r\n"), std::string("REGEDIT4\r\n\"A\"=\"before any key\"\r\n"),
          std::string("REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\X\r\n"), Exported("\"A\"=\"open\r\n"),
          Exported("\"A\"=dword:xyz\r\n"), Exported("\"A\"=hex:01,\\ 02\r\n"), Exported("\"A\"=\"1\"2\r\n"),
          Exported("A=1\r\n"), Utf16(kVersion5) + "x"}) {
        ReplaceFile(path_, text);
        EXPECT_EQ(registry_.Query(kPath, "A", value_), RegistryCode::Corrupt) << text;
        EXPECT_EQ(registry_.Set(kPath, "A", "1"), RegistryCode::Corrupt);
        EXPECT_EQ(registry_.DeleteValue(kPath, "A"), RegistryCode::Corrupt);
        EXPECT_EQ(registry_.DeleteKey(kPath), RegistryCode::Corrupt);
        EXPECT_EQ(Content(path_), text);
    }
    std::filesystem::remove(path_);
    std::filesystem::create_directory(path_);
    EXPECT_EQ(registry_.Query(kPath, "A", value_), RegistryCode::Unreadable);
}

} // namespace
} // namespace velmora
