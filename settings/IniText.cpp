#include "settings/IniText.h"

#include "base/Encoding.h"
#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kBlanks = " \t\v\f";

enum class LineKind { Other, Header, Key };

/// What one line says; the views lie in the line.
struct Line {
    LineKind kind = LineKind::Other;
    std::string_view name;   ///< of a header or a key
    std::string_view value;  ///< of a key, without blanks around
    std::string_view prefix; ///< of a key: all up to the value
};

std::string_view TrimOf(std::string_view text, std::string_view characters) {
    const std::size_t first = text.find_first_not_of(characters);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

/// Names come from callers with any blanks around; only spaces are dropped, as the functions do.
std::string_view TrimSpaces(std::string_view name) {
    return TrimOf(name, " ");
}

std::string_view WithoutLineEnd(std::string_view line) {
    return line.substr(0, std::min(line.find_first_of(kLineEnd), line.size()));
}

Line ParseKey(std::string_view line, std::size_t equals) {
    const std::size_t value = std::min(line.find_first_not_of(kBlanks, equals + 1), line.size());
    return {LineKind::Key, TrimOf(line.substr(0, equals), kBlanks), TrimOf(line.substr(value), kBlanks),
            line.substr(0, value)};
}

Line ParseLine(std::string_view lineWithEnd) {
    const std::string_view line = WithoutLineEnd(lineWithEnd);
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos || line[first] == ';')
        return {};
    if (line[first] == '[') {
        const std::string_view rest = line.substr(first + 1);
        return {LineKind::Header, TrimOf(rest.substr(0, rest.find(']')), kBlanks), {}, {}};
    }
    const std::size_t equals = line.find('=');
    return equals == std::string_view::npos ? Line() : ParseKey(line, equals);
}

/// As a default is handed out.
std::string WithoutSpacesAtEnd(std::string_view fallback) {
    return std::string(fallback.substr(0, fallback.find_last_not_of(' ') + 1));
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// Length of the first line with its end: LF, or any number of CR, also followed by LF.
std::size_t LineLength(std::string_view text) {
    const std::size_t end = text.find_first_of(kLineEnd);
    if (end == std::string_view::npos)
        return text.size();
    const std::size_t next = std::min(text.find_first_not_of('\r', end), text.size());
    return next < text.size() && text[next] == '\n' ? next + 1 : next;
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t length = LineLength(text);
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

/// An empty name would read as the end of the list.
void AppendName(std::string& list, std::string_view name) {
    if (!name.empty())
        list.append(name).push_back('\0');
}

int TakeBase(std::string_view& digits) {
    static constexpr std::pair<std::string_view, int> kBases[] = {{"0x", 16}, {"0o", 8}, {"0b", 2}};
    for (const auto& [prefix, base] : kBases)
        if (digits.starts_with(prefix)) {
            digits.remove_prefix(prefix.size());
            return base;
        }
    return 10;
}

/// 99 for a character that is no digit in any base.
int DigitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : 99;
}

} // namespace

std::int32_t ProfileInteger(std::string_view text) {
    text = TrimOf(text, kBlanks);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const int base = TakeBase(text);
    std::uint32_t value = 0;
    for (const char c : text) {
        const int digit = DigitValue(c);
        if (digit >= base)
            break;
        value = value * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    return static_cast<std::int32_t>(negative ? 0u - value : value);
}

IniText::IniText(std::string_view bytes) : lines_(SplitLines(bytes)) {}

std::string IniText::Bytes() const {
    std::string bytes;
    for (const std::string& line : lines_)
        bytes += line;
    return bytes;
}

std::optional<IniText::Section> IniText::FindSection(std::string_view name) const {
    std::optional<Section> found;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const Line line = ParseLine(lines_[i]);
        if (line.kind != LineKind::Header)
            continue;
        if (found)
            return Section{found->header, i};
        if (EqualsNoCase(line.name, TrimSpaces(name)))
            found = Section{i, lines_.size()};
    }
    return found;
}

std::optional<std::size_t> IniText::FindKey(const Section& section, std::string_view key) const {
    for (std::size_t i = section.header + 1; i < section.end; ++i) {
        const Line line = ParseLine(lines_[i]);
        if (line.kind == LineKind::Key && EqualsNoCase(line.name, TrimSpaces(key)))
            return i;
    }
    return std::nullopt;
}

std::optional<std::string_view> IniText::FindValue(std::string_view section, std::string_view key) const {
    const auto found = FindSection(section);
    const auto line = found ? FindKey(*found, key) : std::nullopt;
    if (!line)
        return std::nullopt;
    return WithoutQuotes(ParseLine(lines_[*line]).value);
}

std::string IniText::ReadString(std::string_view section, std::string_view key, std::string_view fallback) const {
    const auto value = FindValue(section, key);
    return value ? std::string(*value) : WithoutSpacesAtEnd(fallback);
}

std::int32_t IniText::ReadInt(std::string_view section, std::string_view key, std::int32_t fallback) const {
    const auto value = FindValue(section, key);
    return !value || value->empty() ? fallback : ProfileInteger(*value);
}

std::string IniText::ListKeys(std::string_view section, std::string_view fallback) const {
    std::string list;
    if (const auto found = FindSection(section))
        for (std::size_t i = found->header + 1; i < found->end; ++i)
            AppendName(list, ParseLine(lines_[i]).name);
    return list.empty() ? WithoutSpacesAtEnd(fallback) : list;
}

std::string IniText::ListSections() const {
    std::string list;
    for (const std::string& text : lines_)
        if (const Line line = ParseLine(text); line.kind == LineKind::Header)
            AppendName(list, line.name);
    return list;
}

bool IniText::Write(std::string_view section, std::string_view key, std::optional<std::string_view> value) {
    if (value)
        value = WithoutLineEnd(*value);
    const auto found = FindSection(section);
    const auto line = found ? FindKey(*found, key) : std::nullopt;
    if (line && value)
        return Replace(*line, *value);
    if (line)
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*line));
    if (!value)
        return line.has_value();
    const std::string entry = std::string(TrimSpaces(key)) + "=" + std::string(*value) + std::string(kLineEnd);
    if (!found) {
        Insert(lines_.size(), "[" + std::string(TrimSpaces(section)) + "]" + std::string(kLineEnd) + entry);
        return true;
    }
    std::size_t at = found->end;
    while (at > found->header + 1 && ParseLine(lines_[at - 1]).kind != LineKind::Key)
        --at;
    Insert(at, entry);
    return true;
}

void IniText::Insert(std::size_t at, std::string_view text) {
    if (at > 0 && WithoutLineEnd(lines_[at - 1]).size() == lines_[at - 1].size())
        lines_[at - 1] += kLineEnd;
    const std::vector<std::string> added = SplitLines(text);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
}

bool IniText::Replace(std::size_t line, std::string_view value) {
    const std::string& old = lines_[line];
    const std::string_view content = WithoutLineEnd(old);
    const std::string_view end = content.size() == old.size() ? kLineEnd : std::string_view(old).substr(content.size());
    std::string text = std::string(ParseLine(old).prefix) + std::string(value) + std::string(end);
    if (text == old)
        return false;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
    Insert(line, text);
    return true;
}

} // namespace velmora
