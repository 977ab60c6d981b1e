#include "base/Encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace velmora {
namespace {

// Bytes 0x80 to 0x9F of Windows-1252; all others are the code points of the same number.
constexpr std::array<char16_t, 32> kHighControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::size_t AsciiPrefix(std::string_view bytes) {
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= bytes.size(); at += sizeof word) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if (word & 0x8080808080808080u)
            break;
    }
    while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80)
        ++at;
    return at;
}

/// Length of the valid sequence at the front of `bytes` (not empty), 0 when it is not valid. Follows the
/// table of well-formed byte sequences of the Unicode standard: no overlong forms, no surrogates, nothing
/// above U+10FFFF.
std::size_t SequenceLength(std::string_view bytes) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((at(i) & 0xC0) != 0x80)
            return 0;
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    return at(1) >= low && at(1) <= high ? length : 0;
}

char32_t CodePoint(std::string_view sequence) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(sequence[i]); };
    if (sequence.size() == 1)
        return at(0);
    char32_t c = at(0) & (0xFFu >> (sequence.size() + 1));
    for (std::size_t i = 1; i < sequence.size(); ++i)
        c = (c << 6) | (at(i) & 0x3Fu);
    return c;
}

std::optional<char> Windows1252Byte(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    const auto found = std::find(kHighControls.begin(), kHighControls.end(), c);
    if (found == kHighControls.end())
        return std::nullopt;
    return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

char32_t UnitAt(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    return static_cast<char32_t>(byte(at) | (byte(at + 1) << 8));
}

void AppendUnit(std::string& bytes, char32_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
}

} // namespace

void AppendUtf8(std::string& text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
        return;
    }
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    text += static_cast<char>(kLead[more] | (c >> (6 * more)));
    for (int i = more - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

std::string_view EncodingName(Encoding encoding) {
    return encoding == Encoding::Utf8 ? "UTF-8" : "Windows-1252";
}

bool IsValidUtf8(std::string_view bytes) {
    for (bytes.remove_prefix(AsciiPrefix(bytes)); !bytes.empty(); bytes.remove_prefix(AsciiPrefix(bytes))) {
        const std::size_t length = SequenceLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        AppendUtf8(text, code >= 0x80 && code < 0xA0 ? kHighControls[code - 0x80u] : code);
    }
    return text;
}

DecodedText Decode(std::string bytes) {
    if (!IsValidUtf8(bytes))
        return {FromWindows1252(bytes), Encoding::Windows1252};
    if (bytes.starts_with(kUtf8Mark))
        bytes.erase(0, kUtf8Mark.size());
    return {std::move(bytes), Encoding::Utf8};
}

std::optional<std::string> Encode(std::string_view utf8, Encoding encoding) {
    if (encoding == Encoding::Utf8 || AsciiPrefix(utf8) == utf8.size())
        return std::string(utf8);
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::size_t length = SequenceLength(utf8);
        const auto byte = length == 0 ? std::nullopt : Windows1252Byte(CodePoint(utf8.substr(0, length)));
        if (!byte)
            return std::nullopt;
        bytes += *byte;
        utf8.remove_prefix(length);
    }
    return bytes;
}

std::optional<std::string> FromUtf16(std::string_view bytes) {
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        char32_t c = UnitAt(bytes, at);
        if (c >= 0xD800 && c < 0xDC00 && at + 2 < bytes.size()) {
            const char32_t low = UnitAt(bytes, at += 2);
            if (low < 0xDC00 || low > 0xDFFF)
                return std::nullopt;
            c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            return std::nullopt;
        }
        AppendUtf8(text, c);
    }
    return text;
}

std::optional<std::string> ToUtf16(std::string_view utf8) {
    std::string bytes;
    while (!utf8.empty()) {
        const std::size_t length = SequenceLength(utf8);
        if (length == 0)
            return std::nullopt;
        const char32_t c = CodePoint(utf8.substr(0, length));
        if (c >= 0x10000)
            AppendUnit(bytes, 0xD800 + ((c - 0x10000) >> 10));
        AppendUnit(bytes, c >= 0x10000 ? 0xDC00 + ((c - 0x10000) & 0x3FF) : c);
        utf8.remove_prefix(length);
    }
    return bytes;
}

} // namespace velmora
