#include "settings/IniText.h"
#include "base/AtomicFile.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

namespace velmora {
namespace {

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

} // namespace
} // namespace velmora
