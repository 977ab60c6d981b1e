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
