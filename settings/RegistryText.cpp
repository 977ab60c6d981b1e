#include "settings/RegistryText.h"

#include "base/Encoding.h"
#include "base/Error.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <set>
#include <string_view>

namespace velmora {
namespace {

using ItemKind = RegistryItem::Kind;

constexpr std::string_view kSpaces = " \t";
constexpr std::string_view kHive = "HKEY_LOCAL_MACHINE";
constexpr std::string_view kShortHive = "HKLM";

void Require(bool isFine) {
    if (!isFine)
        throw Error("not the text of a registry editor");
}

/// Nothing but blanks or a comment.
bool IsLineEnd(std::string_view rest) {
    const std::string_view trimmed = Trim(rest);
    return trimmed.empty() || trimmed[0] == ';';
}

/// The path below the hive, without the part for 32-bit programs; empty for a key of another hive.
std::string BelowHive(std::string_view path) {
    constexpr std::string_view kFor32Bit = "SOFTWARE\\WOW6432NODE\\";
    constexpr std::size_t kSoftware = std::string_view("SOFTWARE\\").size();
    const std::size_t end = path.find('\\');
    const std::string_view hive = path.substr(0, end);
    if (end == std::string_view::npos || (!EqualsNoCase(hive, kHive) && !EqualsNoCase(hive, kShortHive)))
        return {};
    std::string rest(path.substr(end + 1));
    if (EqualsNoCase(std::string_view(rest).substr(0, kFor32Bit.size()), kFor32Bit))
        rest.erase(kSoftware, kFor32Bit.size() - kSoftware);
    return rest;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '\\' || c == '"')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

std::string Rendered(const std::string& name, const RegistryValue& value) {
    std::string line = (name.empty() ? "@" : Quoted(name)) + '=';
    if (const auto* text = std::get_if<std::string>(&value)) {
        line += Quoted(*text);
    } else {
        char number[16];
        std::snprintf(number, sizeof number, "dword:%08x", std::get<std::uint32_t>(value));
        line += number;
    }
    return line.append(kLineEnd);
}

/// nullopt for UTF-16.
std::optional<Encoding> EncodingOf(const std::string& bytes) {
    if (bytes.starts_with(kUtf16Mark))
        return std::nullopt;
    // Plain letters are of either kind; what is added to them comes in the encoding of their time.
    const bool isPlain = std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
    return isPlain || !IsValidUtf8(bytes) ? Encoding::Windows1252 : Encoding::Utf8;
}

/// With the byte order mark, so that it comes back by itself.
std::string Decoded(std::string bytes) {
    const auto encoding = EncodingOf(bytes);
    if (encoding == Encoding::Utf8)
        return bytes;
    auto text = encoding ? Decode(std::move(bytes)).text : FromUtf16(bytes);
    Require(text.has_value());
    return std::move(*text);
}

void EndLine(std::string& raw) {
    if (!raw.ends_with('\n') && !raw.ends_with('\r'))
        raw += kLineEnd;
}

/// Reads the entries one after the other.
class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    std::vector<RegistryItem> Parse() {
        Take(kUtf8Mark);
        const std::string_view version = Trim(RestOfLine());
        Require(version == "REGEDIT4" || version == "Windows Registry Editor Version 5.00");
        SkipLine();
        std::vector<RegistryItem> items(1);
        items[0].raw = text_.substr(0, at_);
        while (at_ < text_.size()) {
            const std::size_t begin = at_;
            items.push_back(ParseItem());
            SkipLine();
            items.back().raw = text_.substr(begin, at_ - begin);
            items.back().section = section_;
        }
        return items;
    }

private:
    RegistryItem ParseItem() {
        Skip(kSpaces);
        const std::string_view line = RestOfLine();
        if (line.starts_with('['))
            return ParseKey(line);
        if (line.starts_with('"') || line.starts_with('@'))
            return ParseValue();
        Require(IsLineEnd(line));
        return {line.empty() ? ItemKind::Blank : ItemKind::Comment};
    }

    /// A key's name may hold "]" itself: the last one of the line ends it.
    RegistryItem ParseKey(std::string_view line) {
        const std::size_t end = line.rfind(']');
        Require(end != std::string_view::npos && IsLineEnd(line.substr(end + 1)));
        const std::size_t begin = line.starts_with("[-") ? 2 : 1;
        const std::string path = BelowHive(line.substr(begin, end - begin));
        isUnderKey_ = true;
        section_ = begin == 2 ? std::string() : ToUpper(path);
        return {begin == 2 ? ItemKind::DeletedKey : ItemKind::Key, path};
    }

    RegistryItem ParseValue() {
        RegistryItem item{ItemKind::Value, Take("@") ? std::string() : ParseString()};
        Skip(kSpaces);
        Require(isUnderKey_ && Take("="));
        Skip(kSpaces);
        if (Take("-"))
            item.kind = ItemKind::DeletedValue;
        else
            item.value = ParseData();
        Require(IsLineEnd(RestOfLine()));
        return item;
    }

    std::optional<RegistryValue> ParseData() {
        if (RestOfLine().starts_with('"'))
            return ParseString();
        if (Take("dword:"))
            return ParseNumber();
        Require(Take("hex"));
        SkipBytes();
        return std::nullopt;
    }

    std::uint32_t ParseNumber() {
        std::uint32_t number = 0;
        const std::string_view line = RestOfLine();
        const auto result = std::from_chars(line.data(), line.data() + line.size(), number, 16);
        Require(result.ec == std::errc());
        at_ += static_cast<std::size_t>(result.ptr - line.data());
        return number;
    }

    /// They run over several lines where a line ends in a backslash.
    void SkipBytes() {
        constexpr std::string_view kOfBytes = "0123456789abcdefABCDEF(),: \t";
        Skip(kOfBytes);
        while (Take("\\")) {
            Require(IsLineEnd(RestOfLine()));
            SkipLine();
            Skip(kOfBytes);
        }
    }

    /// A text in quotes may run over several lines.
    std::string ParseString() {
        std::string text;
        for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
            const std::string_view rest = text_.substr(at_);
            const bool isEscape = rest.starts_with("\\\\") || rest.starts_with("\\\"");
            text += text_[isEscape ? ++at_ : at_];
        }
        Require(Take("\""));
        return text;
    }

    bool Take(std::string_view expected) {
        if (!text_.substr(at_).starts_with(expected))
            return false;
        at_ += expected.size();
        return true;
    }

    void Skip(std::string_view characters) { at_ = std::min(text_.find_first_not_of(characters, at_), text_.size()); }

    std::string_view RestOfLine() const { return text_.substr(at_, text_.find_first_of(kLineEnd, at_) - at_); }

    void SkipLine() {
        at_ += RestOfLine().size();
        if (!Take(kLineEnd) && at_ < text_.size())
            ++at_;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool isUnderKey_ = false;
    std::string section_;
};

} // namespace

RegistryExport::RegistryExport(std::string bytes)
    : encoding_(EncodingOf(bytes)), items_(Parser(Decoded(std::move(bytes))).Parse()) {}

std::optional<std::string> RegistryExport::Bytes() const {
    std::string text;
    for (const RegistryItem& item : items_)
        text += item.raw;
    auto bytes = encoding_ ? Encode(text, *encoding_) : ToUtf16(text);
    // Some Windows-1252 bytes would be read as UTF-8 the next time, so the way back is tried.
    return bytes && Decoded(*bytes) == text ? bytes : std::nullopt;
}

const RegistryItem* RegistryExport::Find(const std::string& path, const std::string& name) const {
    const auto index = IndexOf(path, name);
    return index ? &items_[*index] : nullptr;
}

std::vector<std::pair<std::string, RegistryValue>> RegistryExport::Values(const std::string& path) const {
    std::set<std::size_t> places;
    const Keys keys = Living();
    if (const auto key = keys.find(ToUpper(path)); key != keys.end())
        for (const auto& [name, place] : key->second.values)
            places.insert(place);
    std::vector<std::pair<std::string, RegistryValue>> values;
    for (const std::size_t place : places)
        if (items_[place].value)
            values.emplace_back(items_[place].name, *items_[place].value);
    return values;
}

std::optional<std::vector<std::string>> RegistryExport::SubKeys(const std::string& path) const {
    const Keys keys = Living();
    const std::string above = ToUpper(path) + '\\';
    std::map<std::size_t, std::string> shown; // by place in the text
    for (auto key = keys.lower_bound(above); key != keys.end() && key->first.starts_with(above); ++key) {
        const std::string& name = items_[key->second.item].name;
        shown[key->second.item] = name.substr(above.size(), name.find('\\', above.size()) - above.size());
    }
    if (shown.empty() && !keys.contains(ToUpper(path)))
        return std::nullopt;
    std::vector<std::string> names;
    std::set<std::string> seen;
    for (const auto& [place, name] : shown)
        if (seen.insert(ToUpper(name)).second)
            names.push_back(name);
    return names;
}

void RegistryExport::Set(const std::string& path, const std::string& name, const RegistryValue& value) {
    if (const auto index = IndexOf(path, name)) {
        items_[*index].value = value;
        items_[*index].raw = Rendered(items_[*index].name, value);
        return;
    }
    const std::string section = ToUpper(path);
    if (!Living().contains(section))
        AppendKey(path);
    const auto last = std::find_if(items_.rbegin(), items_.rend(), [&](const RegistryItem& item) {
        return item.section == section && item.kind != ItemKind::Blank && item.kind != ItemKind::Comment;
    });
    EndLine(last->raw);
    items_.insert(last.base(), {ItemKind::Value, name, value, Rendered(name, value), section});
}

/// From all places in the text, since an earlier one would come to life again.
void RegistryExport::RemoveValue(const std::string& path, const std::string& name) {
    std::erase_if(items_, [&](const RegistryItem& item) {
        return item.section == ToUpper(path) && item.kind == ItemKind::Value && EqualsNoCase(item.name, name);
    });
}

void RegistryExport::RemoveKey(const std::string& path) {
    const std::string section = ToUpper(path);
    const std::string shown = items_[Living().at(section).item].name;
    std::erase_if(items_,
                  [&](const RegistryItem& item) { return item.section == section && item.kind != ItemKind::Comment; });
    // A key above that no entry names was there by what lies below it, and must not vanish with it.
    const std::size_t end = shown.rfind('\\');
    if (end != std::string::npos && !SubKeys(shown.substr(0, end)))
        AppendKey(shown.substr(0, end));
}

/// What stands after all entries of the text.
RegistryExport::Keys RegistryExport::Living() const {
    Keys keys;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const RegistryItem& item = items_[i];
        if (item.kind == ItemKind::DeletedKey)
            std::erase_if(keys, [above = ToUpper(item.name) + '\\'](const auto& key) {
                return (key.first + '\\').starts_with(above);
            });
        if (item.section.empty())
            continue;
        if (item.kind == ItemKind::Key)
            keys.try_emplace(item.section, Key{i, {}});
        else if (item.kind == ItemKind::Value)
            keys.at(item.section).values[ToUpper(item.name)] = i;
        else if (item.kind == ItemKind::DeletedValue)
            keys.at(item.section).values.erase(ToUpper(item.name));
    }
    return keys;
}

std::optional<std::size_t> RegistryExport::IndexOf(const std::string& path, const std::string& name) const {
    const Keys keys = Living();
    const auto key = keys.find(ToUpper(path));
    if (key == keys.end())
        return std::nullopt;
    const auto value = key->second.values.find(ToUpper(name));
    return value == key->second.values.end() ? std::nullopt : std::optional(value->second);
}

void RegistryExport::AppendKey(const std::string& path) {
    EndLine(items_.back().raw);
    RegistryItem key{ItemKind::Key, path};
    key.raw = items_.back().kind == ItemKind::Blank ? "" : kLineEnd;
    key.raw.append("[").append(kHive).append("\\").append(path).append("]").append(kLineEnd);
    key.section = ToUpper(path);
    items_.push_back(std::move(key));
}

} // namespace velmora
