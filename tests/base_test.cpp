#include "base/Encoding.h"
#include "base/Error.h"
#include "base/NaturalOrder.h"
#include "base/Numbers.h"
#include "base/Terminal.h"
#include "base/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace velmora {
namespace {

TEST(Numbers, AHalfGoesToTheEvenNeighbour) {
    const std::pair<double, int> cases[] = {{0.5, 0},    {1.5, 2},         {2.5, 2},  {-0.5, 0},
                                            {-1.5, -2},  {-2.5, -2},       {2.49, 2}, {2.51, 3},
                                            {-2.51, -3}, {1.02 + 0.49, 2}, {1.49, 1}, {32766.5, 32766}};
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(ToInt16(value), rounded) << value;
}

TEST(Numbers, WhatLeavesItsRangeIsAnOverflow) {
    EXPECT_EQ(ToInt16(32767.49) + ToInt16(-32768.5), -1);
    EXPECT_EQ(Multiply16(1365, 24), 32760);
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    for (const double value : {32767.5, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(ToInt16(value), OverflowError) << value;
    EXPECT_THROW(Multiply16(1366, 24), OverflowError);
    EXPECT_THROW(Add16(32767, 1), OverflowError);
    EXPECT_THROW(ToInt32(2147483647.5), OverflowError);
}

TEST(Numbers, NumbersInText) {
    const std::pair<const char*, double> numbers[] = {{"7", 7},       {" 7 ", 7},   {"-7", -7},        {"+7", 7},
                                                      {".5", 0.5},    {"5.", 5},    {"007", 7},        {"1e3", 1000},
                                                      {"1D-2", 0.01}, {"\t2\t", 2}, {"-1.5E+2", -150}, {"1e-400", 0}};
    for (const auto& [text, value] : numbers) {
        EXPECT_TRUE(IsNumeric(text)) << text;
        EXPECT_DOUBLE_EQ(ToDouble(text), value) << text;
    }
    for (const char* text :
         {"", " ", ".", "-", "abc", "1e", "1e+", "1 2", "0x10", "1.2.3", "nan", "inf", "7mm", "--1"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
        EXPECT_THROW(ToDouble(text), TypeMismatchError) << text;
    }
    EXPECT_FALSE(IsNumeric("1e400"));
    EXPECT_THROW(ToDouble("1e400"), OverflowError);
}

TEST(Numbers, FlagsInText) {
    for (const char* text : {"True", "TRUE", " true ", "1", "-1", "0.5"})
        EXPECT_TRUE(IsFlag(text) && ToFlag(text)) << text;
    for (const char* text : {"False", "false", "0", "0.0"})
        EXPECT_TRUE(IsFlag(text) && !ToFlag(text)) << text;
    for (const char* text : {"", "yes", "T", "True1"})
        EXPECT_FALSE(IsFlag(text)) << text;
}

TEST(Text, ATerminalGetsNoControlCharacters) {
    constexpr std::pair<const char*, const char*> kCases[] = {
        {"a\tb\r\nc\n", "a\tb\nc\n"},
        {"\x1B[2J\r\x7F", "?[2J??"},
        {"\xC2\x80\xC2\x9F\xC2\xA0\xC3\x89", "??\xC2\xA0\xC3\x89"},
        {"\x9B[2J", "\xE2\x80\xBA[2J"}, // no UTF-8, as those that follow
        {"\x81\xE9", "?\xC3\xA9"},
        {"\xC2", "\xC3\x82"}};
    for (const auto& [text, shown] : kCases)
        EXPECT_EQ(ForTerminal(text), shown);
}

TEST(Text, CharactersAreCountedNotBytes) {
    EXPECT_EQ(CharacterCount("Hoër"), 4u);
    EXPECT_EQ(LeftCharacters("Hoërskool", 4), "Hoër");
    EXPECT_EQ(LeftCharacters("ê", 0), "");
    EXPECT_EQ(LeftCharacters("ab", 5), "ab");
    EXPECT_EQ(Split(",a,", ','), (std::vector<std::string_view>{"", "a", ""}));
}

TEST(Encoding, OldFilesAreReadAsWindows1252AndSurviveUnchanged) {
    std::string allBytes;
    for (int byte = 1; byte < 256; ++byte)
        allBytes += static_cast<char>(byte);
    const DecodedText decoded = Decode(allBytes);
    EXPECT_EQ(decoded.encoding, Encoding::Windows1252);
    EXPECT_TRUE(IsValidUtf8(decoded.text));
    EXPECT_EQ(Encode(decoded.text, Encoding::Windows1252), allBytes);
    EXPECT_EQ(Decode("caf\xE9 \x80").text, "café €");
    EXPECT_EQ(Encode("Ω", Encoding::Windows1252), std::nullopt);
}

TEST(Encoding, OnlyWellFormedBytesAreUtf8) {
    for (const char* text : {"", "abc", "ë", "€", "\xF0\x9F\x93\x81", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF", "12345678ë"})
        EXPECT_TRUE(IsValidUtf8(text)) << text;
    for (const char* text : {"\x80", "\xC3", "a\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
                             "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "12345678\xE2\x82"})
        EXPECT_FALSE(IsValidUtf8(text)) << text;
    EXPECT_EQ(Decode("\xEF\xBB\xBFVersion 8").text, "Version 8");
}

TEST(Encoding, Utf16KeepsEveryCharacterOrRefuses) {
    const std::pair<std::string, std::string> texts[] = {
        {"aë€", std::string("a\0\xEB\0\xAC\x20", 6)},
        {"\xEF\xBB\xBF\xEF\xBF\xBF", "\xFF\xFE\xFF\xFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", std::string("\0\xD8\0\xDC\xFF\xDB\xFF\xDF", 8)}};
    for (const auto& [utf8, utf16] : texts) {
        EXPECT_EQ(ToUtf16(utf8), utf16);
        EXPECT_EQ(FromUtf16(utf16), utf8);
    }
    for (const std::string& bytes : {std::string("a"), std::string("\0\xD8", 2), std::string("\0\xDC", 2),
                                     std::string("\0\xD8\0\xD8", 4), std::string("\0\xD8x\0", 4)})
        EXPECT_EQ(FromUtf16(bytes), std::nullopt);
    EXPECT_EQ(ToUtf16("a\xED\xA0\x80"), std::nullopt);
}

/// Letters in any case, y before x.
struct OddLetters : std::collate<char> {
    std::string do_transform(const char* from, const char* to) const override {
        std::string key = FoldCase({from, to});
        for (char& c : key)
            c = c == 'x' ? 'y' : c == 'y' ? 'x' : c;
        return key;
    }
};

TEST(NaturalOrder, NumbersStandByTheirValueAndLettersAsTheLocaleHasThem) {
    const std::string nines(9, '9'), ten = "1" + std::string(9, '0');
    const std::vector<std::string> byCodes = {"",        "0",    "00",     "1",       "01",   "1a",  "2",   "007",
                                              "9",       "10",   "10 a 9", "10 a 10", "99",   "100", nines, ten,
                                              ten + "0", "No.9", "no.09",  "No.10",   "no.x", "x",   "Y"};
    const std::vector<std::string> byOddLetters = {"b", "B", "y1", "Y3", "X1", "x02"};
    const NaturalOrder codes(std::locale::classic()), odd(std::locale(std::locale::classic(), new OddLetters));
    const auto isSorted = [](const std::vector<std::string>& texts, const NaturalOrder& order) {
        return std::is_sorted(texts.begin(), texts.end(),
                              [&](const std::string& a, const std::string& b) { return order.Key(a) < order.Key(b); });
    };
    for (std::size_t i = 1; i < byCodes.size(); ++i)
        EXPECT_LT(codes.Key(byCodes[i - 1]), codes.Key(byCodes[i])) << byCodes[i];
    EXPECT_EQ(codes.Key("\u00c9A"), codes.Key("\u00e9a"));
    EXPECT_TRUE(isSorted(byOddLetters, odd) && !isSorted(byOddLetters, codes));
}

} // namespace
} // namespace velmora
