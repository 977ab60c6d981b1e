#include "base/Text.h"

#include <algorithm>

namespace velmora {
namespace {

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool StartsCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

/// Of capitals with two bytes in UTF-8, by the blocks of the Unicode tables in which capital and small letter alternate
/// or stand at a fixed distance.
char32_t SmallForm(char32_t c) {
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    const bool even = c % 2 == 0;
    if (within(0xC0, 0xDE) && c != 0xD7)
        return c + 0x20;
    if (c == 0x178)
        return 0xFF;
    if ((within(0x100, 0x12F) || within(0x132, 0x137) || within(0x14A, 0x177) || within(0x460, 0x481)) && even)
        return c + 1;
    if ((within(0x139, 0x148) || within(0x179, 0x17E)) && !even)
        return c + 1;
    if (c == 0x386)
        return 0x3AC;
    if (within(0x388, 0x38A))
        return c + 0x25;
    if (within(0x391, 0x3AB) || within(0x410, 0x42F))
        return c + 0x20;
    return within(0x400, 0x40F) ? c + 0x50 : c;
}

} // namespace

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string ToUpper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
    return upper;
}

std::string FoldCase(std::string_view utf8) {
    std::string folded(utf8);
    for (std::size_t at = 0; at < folded.size(); ++at) {
        const auto lead = static_cast<unsigned char>(folded[at]);
        if (lead < 0x80) {
            folded[at] = lead >= 'A' && lead <= 'Z' ? static_cast<char>(lead + 0x20) : folded[at];
        } else if (lead >= 0xC3 && lead <= 0xD2 && at + 1 < folded.size()) {
            const auto trail = static_cast<unsigned char>(folded[at + 1]);
            const char32_t small = SmallForm((lead & 0x1Fu) << 6 | (trail & 0x3Fu));
            folded[at] = static_cast<char>(0xC0 | small >> 6);
            folded[++at] = static_cast<char>(0x80 | (small & 0x3F));
        }
    }
    return folded;
}

std::string OneLine(std::string_view text) {
    std::string line;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto code = static_cast<unsigned char>(text[at]);
        if (code == '\n' && at > 0 && text[at - 1] == '\r')
            continue;
        line += code < 0x20 || code == 0x7F ? ' ' : text[at];
    }
    return line;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Upper(x) == Upper(y); });
}

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && EqualsNoCase(text.substr(text.size() - ending.size()), ending);
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    parts.push_back(text);
    return parts;
}

std::string Counted(std::size_t count, std::string_view one) {
    return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

std::size_t CharacterCount(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), StartsCharacter));
}

std::string_view LeftCharacters(std::string_view utf8, std::size_t count) {
    for (std::size_t at = 0; at < utf8.size(); ++at)
        if (StartsCharacter(utf8[at]) && count-- == 0)
            return utf8.substr(0, at);
    return utf8;
}

} // namespace velmora
