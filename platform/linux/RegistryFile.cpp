#include "platform/linux/RegistryFile.h"

#include "base/AtomicFile.h"
#include "base/Encoding.h"
#include "base/Text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>

namespace velmora {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kVersion4 = "REGEDIT4";
constexpr std::string_view kVersion5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kHive = "HKEY_LOCAL_MACHINE";
constexpr std::string_view kShortHive = "HKLM";

// ---- Encodings

void AppendUtf8(std::string& text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
        return;
    }
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kLead[more] | (c >> (6 * more)));
    for (int i = more - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

char32_t UnitAt(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    return static_cast<char32_t>(byte(at) | (byte(at + 1) << 8));
}

/// Nothing for bytes that could not be written back as they were.
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

/// `utf8` is valid.
char32_t TakeCharacter(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t c = length == 1 ? lead : lead & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i)
        c = (c << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3Fu);
    utf8.remove_prefix(length);
    return c;
}

std::string ToUtf16(std::string_view utf8) {
    std::string bytes;
    const auto append = [&](char32_t unit) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    };
    while (!utf8.empty()) {
        const char32_t c = TakeCharacter(utf8);
        if (c >= 0x10000)
            append(0xD800 + ((c - 0x10000) >> 10));
        append(c >= 0x10000 ? 0xDC00 + ((c - 0x10000) & 0x3FF) : c);
    }
    return bytes;
}

enum class Form { Windows1252, Utf8, MarkedUtf8, Utf16 };

std::optional<std::pair<std::string, Form>> DecodeFile(std::string bytes) {
    if (bytes.starts_with(kUtf16Mark)) {
        auto text = FromUtf16(std::string_view(bytes).substr(kUtf16Mark.size()));
        return text ? std::optional(std::pair(std::move(*text), Form::Utf16)) : std::nullopt;
    }
    // A text of plain letters is of either kind; what is added to it comes in the encoding of its time.
    const bool isPlain =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) > 0; });
    const bool isMarked = bytes.starts_with(kUtf8Mark);
    DecodedText decoded = Decode(std::move(bytes));
    if (isPlain || decoded.encoding == Encoding::Windows1252)
        return std::pair(std::move(decoded.text), Form::Windows1252);
    return std::pair(std::move(decoded.text), isMarked ? Form::MarkedUtf8 : Form::Utf8);
}

/// Nothing for a text that would not be read back as it is.
std::optional<std::string> EncodeFile(const std::string& text, Form form) {
    if (!IsValidUtf8(text))
        return std::nullopt;
    std::string bytes;
    if (form == Form::Utf16)
        bytes = std::string(kUtf16Mark) + ToUtf16(text);
    else if (form == Form::Windows1252)
        bytes = Encode(text, Encoding::Windows1252).value_or("");
    else
        bytes = form == Form::MarkedUtf8 ? std::string(kUtf8Mark) + text : text;
    const auto back = DecodeFile(bytes);
    return back && back->first == text ? std::optional(bytes) : std::nullopt;
}

// ---- The parts of the text

enum class Kind { Other, Key, DeletedKey, Value, DeletedValue };

/// One entry of the text, with all its lines.
struct Item {
    Kind kind = Kind::Other;
    std::string raw;
    std::string name;                   ///< path of a key as it stands, or name of a value
    std::optional<RegistryValue> value; ///< nothing for a type that is only kept
    std::size_t header = 0;             ///< of a value: index of its key's item
};

bool IsKey(const Item& item) {
    return item.kind == Kind::Key || item.kind == Kind::DeletedKey;
}

/// The path without its hive and the part for 32-bit programs; nothing for a key of another hive.
std::optional<std::string> Stripped(std::string_view path) {
    constexpr std::string_view kSoftware = "SOFTWARE\\";
    constexpr std::string_view kFor32Bit = "WOW6432NODE";
    const std::size_t hiveEnd = std::min(path.find('\\'), path.size());
    const std::string_view hive = path.substr(0, hiveEnd);
    if (!EqualsNoCase(hive, kHive) && !EqualsNoCase(hive, kShortHive))
        return std::nullopt;
    std::string rest(path.substr(hiveEnd));
    rest.erase(0, rest.find_first_not_of('\\'));
    rest.erase(rest.find_last_not_of('\\') + 1);
    const std::string_view part = std::string_view(rest).substr(0, rest.find('\\', kSoftware.size()));
    if (EqualsNoCase(part, std::string(kSoftware).append(kFor32Bit)))
        rest.erase(kSoftware.size() - 1, kFor32Bit.size() + 1);
    return rest;
}

/// The same in capitals, by which paths are compared.
std::optional<std::string> Normalised(std::string_view path) {
    const auto stripped = Stripped(path);
    return stripped ? std::optional(ToUpper(*stripped)) : std::nullopt;
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\' || c == '"')
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Rendered(const std::string& name, const RegistryValue& value) {
    std::string text = name.empty() ? "@=" : "\"" + Escaped(name) + "\"=";
    if (const auto* string = std::get_if<std::string>(&value)) {
        text += "\"" + Escaped(*string) + "\"";
    } else {
        char number[16];
        std::snprintf(number, sizeof number, "dword:%08x", std::get<std::uint32_t>(value));
        text += number;
    }
    return text.append(kLineEnd);
}

/// Reads the entries of an exported text one after the other. Every operation that can't go on gives nothing.
class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    std::optional<std::vector<Item>> Parse() {
        if (!ParseVersion())
            return std::nullopt;
        while (at_ < text_.size()) {
            const std::size_t begin = at_;
            auto item = ParseItem();
            if (!item)
                return std::nullopt;
            item->raw = text_.substr(begin, at_ - begin);
            items_.push_back(std::move(*item));
        }
        return std::move(items_);
    }

private:
    bool ParseVersion() {
        while (at_ < text_.size() && Trim(RestOfLine()).empty())
            SkipLine();
        const std::string_view version = Trim(RestOfLine());
        isVersion5_ = version == kVersion5;
        if (!isVersion5_ && version != kVersion4)
            return false;
        SkipLine();
        items_.push_back({Kind::Other, std::string(text_.substr(0, at_)), {}, {}, 0});
        return true;
    }

    std::optional<Item> ParseItem() {
        Skip(kBlanks);
        const char first = Peek();
        if (first == '[')
            return ParseKey();
        if (first == '"' || first == '@')
            return ParseValue();
        const bool isKept = first == ';' || Trim(RestOfLine()).empty();
        SkipLine();
        return isKept ? std::optional<Item>(Item()) : std::nullopt;
    }

    /// A key's name may hold "]" itself: the last one of the line ends it.
    std::optional<Item> ParseKey() {
        const std::string_view line = RestOfLine();
        const std::size_t end = line.rfind(']');
        if (end == std::string_view::npos || !IsLineEnd(line.substr(end + 1)))
            return std::nullopt;
        const bool isDeleted = line.starts_with("[-");
        const std::size_t begin = isDeleted ? 2 : 1;
        if (begin > end)
            return std::nullopt;
        header_ = items_.size();
        SkipLine();
        return Item{isDeleted ? Kind::DeletedKey : Kind::Key,
                    {},
                    std::string(line.substr(begin, end - begin)),
                    {},
                    0};
    }

    std::optional<Item> ParseValue() {
        std::optional<std::string> name = "";
        if (Peek() == '@')
            ++at_;
        else
            name = ParseString();
        Skip(kBlanks);
        if (!name || !header_ || !Take("="))
            return std::nullopt;
        Skip(kBlanks);
        Item item{Kind::Value, {}, std::move(*name), {}, *header_};
        if (Take("-"))
            item.kind = Kind::DeletedValue;
        else if (!ParseData(item))
            return std::nullopt;
        if (!IsLineEnd(RestOfLine()))
            return std::nullopt;
        SkipLine();
        return item;
    }

    bool ParseData(Item& item) {
        if (Peek() == '"') {
            auto text = ParseString();
            if (text)
                item.value = std::move(*text);
            return text.has_value();
        }
        if (Take("dword:"))
            return ParseNumber(item);
        return Take("hex") && ParseBytes(item);
    }

    bool ParseNumber(Item& item) {
        std::uint32_t number = 0;
        const char* begin = text_.data() + at_;
        const auto result = std::from_chars(begin, text_.data() + text_.size(), number, 16);
        at_ += static_cast<std::size_t>(result.ptr - begin);
        item.value = number;
        return result.ec == std::errc();
    }

    /// Bytes between commas, over several lines where a line ends in a backslash.
    bool ParseBytes(Item& item) {
        int type = 3;
        if (Take("(")) {
            const auto result = std::from_chars(text_.data() + at_, text_.data() + text_.size(), type, 16);
            at_ = static_cast<std::size_t>(result.ptr - text_.data());
            if (result.ec != std::errc() || !Take(")"))
                return false;
        }
        if (!Take(":"))
            return false;
        std::string bytes;
        do
            SkipContinuation();
        while (TakeByte(bytes) && TakeComma());
        if (type == 1 || type == 2)
            item.value = BytesAsText(bytes);
        return true;
    }

    bool TakeComma() {
        SkipContinuation();
        return Take(",");
    }

    bool TakeByte(std::string& bytes) {
        unsigned byte = 0;
        const char* begin = text_.data() + at_;
        const auto result = std::from_chars(begin, text_.data() + std::min(at_ + 2, text_.size()), byte, 16);
        if (result.ec != std::errc())
            return false;
        at_ += static_cast<std::size_t>(result.ptr - begin);
        bytes += static_cast<char>(byte);
        return true;
    }

    /// Nothing for bytes that are no text; they are only kept then.
    std::optional<RegistryValue> BytesAsText(std::string bytes) const {
        auto text = isVersion5_ ? FromUtf16(bytes) : Decode(std::move(bytes)).text;
        if (!text)
            return std::nullopt;
        return text->substr(0, text->find('\0'));
    }

    /// A text in quotes may run over several lines.
    std::optional<std::string> ParseString() {
        std::string text;
        for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
            const bool isEscape = text_[at_] == '\\' && at_ + 1 < text_.size() &&
                                  (text_[at_ + 1] == '\\' || text_[at_ + 1] == '"');
            text += text_[isEscape ? ++at_ : at_];
        }
        return Take("\"") ? std::optional(std::move(text)) : std::nullopt;
    }

    /// Nothing but blanks or a comment.
    static bool IsLineEnd(std::string_view rest) {
        const std::string_view trimmed = Trim(rest);
        return trimmed.empty() || trimmed[0] == ';';
    }

    char Peek() const { return at_ < text_.size() ? text_[at_] : '\n'; }

    bool Take(std::string_view expected) {
        if (!text_.substr(at_).starts_with(expected))
            return false;
        at_ += expected.size();
        return true;
    }

    void Skip(std::string_view characters) {
        at_ = std::min(text_.find_first_not_of(characters, at_), text_.size());
    }

    void SkipContinuation() {
        Skip(kBlanks);
        while (Peek() == '\\' && IsLineEnd(RestOfLine().substr(1))) {
            SkipLine();
            Skip(kBlanks);
        }
    }

    std::string_view RestOfLine() const {
        const std::size_t end = std::min(text_.find_first_of(kLineEnd, at_), text_.size());
        return text_.substr(at_, end - at_);
    }

    void SkipLine() {
        at_ = std::min(text_.find_first_of(kLineEnd, at_), text_.size());
        if (!Take(kLineEnd) && at_ < text_.size())
            ++at_;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool isVersion5_ = false;
    std::optional<std::size_t> header_; ///< index of the item of the key that is being read
    std::vector<Item> items_;
};

// ---- What the text means

struct Value {
    std::size_t first = 0;  ///< the item that gives the name its letter case and its place
    std::size_t latest = 0; ///< the item that holds
};

struct Key {
    std::size_t header = 0;              ///< its latest item
    std::size_t order = 0;               ///< its first item
    std::map<std::string, Value> values; ///< by name in capitals
};

/// The registry that stands after all entries of the text, by path in capitals: the keys below a key follow
/// it, so that they are one range.
using Tree = std::map<std::string, Key>;

using Range = std::pair<Tree::const_iterator, Tree::const_iterator>;

/// The keys below a key; an empty path stands for the whole hive.
Range Below(const Tree& tree, const std::string& path) {
    if (path.empty())
        return {tree.upper_bound(""), tree.end()};
    // "]" is the character behind the backslash.
    return {tree.lower_bound(path + "\\"), tree.lower_bound(path + "]")};
}

void Enter(Tree& tree, const std::vector<Item>& items, std::size_t index) {
    const Item& item = items[index];
    const bool isKey = IsKey(item);
    const Item& header = isKey ? item : items[item.header];
    const auto path = Normalised(header.name);
    if (!path || (!isKey && header.kind == Kind::DeletedKey))
        return;
    if (item.kind == Kind::DeletedKey) {
        const auto [begin, end] = Below(tree, *path);
        tree.erase(begin, end);
        tree.erase(*path);
        return;
    }
    Key& key = tree.try_emplace(*path, Key{index, index, {}}).first->second;
    if (item.kind == Kind::Key)
        key.header = index;
    else if (item.kind == Kind::Value)
        key.values.try_emplace(ToUpper(item.name), Value{index, index}).first->second.latest = index;
    else
        key.values.erase(ToUpper(item.name));
}

bool Exists(const Tree& tree, const std::string& path) {
    const auto [begin, end] = Below(tree, path);
    return tree.contains(path) || begin != end || path.empty();
}

/// The text of a registry file with its meaning.
struct Export {
    std::vector<Item> items;
    Form form = Form::Windows1252;
    Tree tree;

    std::optional<std::size_t> FindValue(const std::string& path, const std::string& name) const {
        const auto key = tree.find(path);
        if (key == tree.end())
            return std::nullopt;
        const auto value = key->second.values.find(ToUpper(name));
        return value == key->second.values.end() ? std::nullopt : std::optional(value->second.latest);
    }

    std::string Text() const {
        std::string text;
        for (const Item& item : items)
            text += item.raw;
        return text;
    }
};

RegistryCode Load(const std::filesystem::path& path, Export& result) {
    std::string bytes;
    try {
        bytes = ReadFile(path);
    } catch (const FileAccessError& error) {
        if (error.Number() != ENOENT)
            return kRegistryUnreadable;
        bytes = std::string(kVersion4).append(kLineEnd);
    }
    auto decoded = DecodeFile(std::move(bytes));
    auto items = decoded ? Parser(decoded->first).Parse() : std::nullopt;
    if (!items)
        return kRegistryCorrupt;
    result.items = std::move(*items);
    result.form = decoded->second;
    for (std::size_t i = 0; i < result.items.size(); ++i)
        if (result.items[i].kind != Kind::Other)
            Enter(result.tree, result.items, i);
    return RegistryCode::Success;
}

RegistryCode Store(const std::filesystem::path& path, const Export& changed) {
    const auto bytes = EncodeFile(changed.Text(), changed.form);
    if (!bytes)
        return RegistryCode::WriteFault;
    try {
        ReplaceFile(path, *bytes);
        return RegistryCode::Success;
    } catch (const FileAccessError&) {
        return RegistryCode::WriteFault;
    }
}

bool IsBlank(const Item& item) {
    return item.raw.find_first_not_of(" \t\r\n") == std::string::npos;
}

void EndLine(Item& item) {
    if (!item.raw.ends_with('\n') && !item.raw.ends_with('\r'))
        item.raw += kLineEnd;
}

void AppendKey(std::vector<Item>& items, const std::string& path) {
    EndLine(items.back());
    const std::string_view gap = IsBlank(items.back()) ? "" : kLineEnd;
    std::string raw(gap);
    raw.append("[").append(kHive).append("\\").append(path).append("]").append(kLineEnd);
    items.push_back({Kind::Key, std::move(raw), {}, {}, 0});
}

/// Behind the last value of the key whose item is at `header`.
void InsertValue(std::vector<Item>& items, std::size_t header, std::string raw) {
    std::size_t last = header;
    for (std::size_t i = header + 1; i < items.size() && !IsKey(items[i]); ++i)
        if (items[i].kind != Kind::Other)
            last = i;
    EndLine(items[last]);
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(last + 1),
                 {Kind::Value, std::move(raw), {}, {}, header});
}

/// Takes out what `leaves` chooses among the items of the key, its own ones included. All of its places in
/// the text are looked through, since an earlier one would come to life again.
template <typename Leaves> void Remove(std::vector<Item>& items, const std::string& path, Leaves leaves) {
    bool inKey = false;
    std::erase_if(items, [&](const Item& item) {
        if (IsKey(item))
            inKey = item.kind == Kind::Key && Normalised(item.name) == path;
        return inKey && leaves(item);
    });
}

/// The path of the key above; empty for one right below the hive.
std::string Parent(const std::string& path) {
    const std::size_t at = path.rfind('\\');
    return at == std::string::npos ? std::string() : path.substr(0, at);
}

/// Comments stay. A key above that no entry names exists by what lies below it, and must not vanish with it.
void RemoveKey(Export& registry, const std::string& path) {
    const std::string parent = Parent(path);
    const auto [begin, end] = Below(registry.tree, parent);
    const bool isOnlyTrace =
        !parent.empty() && !registry.tree.contains(parent) && std::distance(begin, end) == 1;
    const std::string shown = Stripped(registry.items[registry.tree.at(path).header].name).value_or("");
    Remove(registry.items, path, [](const Item& item) { return item.kind != Kind::Other || IsBlank(item); });
    if (isOnlyTrace)
        AppendKey(registry.items, shown.substr(0, parent.size()));
}

/// Names of the keys right below a key, in the order of the text.
std::vector<std::string> Children(const Export& registry, const std::string& path) {
    const std::size_t start = path.empty() ? 0 : path.size() + 1;
    std::map<std::string, std::pair<std::size_t, std::string>> found; // order and shown name
    const auto [begin, end] = Below(registry.tree, path);
    for (auto key = begin; key != end; ++key) {
        const std::size_t length = std::min(key->first.find('\\', start), key->first.size()) - start;
        const std::size_t order = key->second.order;
        const std::string shown = Stripped(registry.items[order].name).value_or("").substr(start, length);
        auto& child = found.try_emplace(key->first.substr(start, length), order, shown).first->second;
        child = std::min(child, std::pair(order, shown));
    }
    std::vector<std::pair<std::size_t, std::string>> ordered;
    std::transform(found.begin(), found.end(), std::back_inserter(ordered),
                   [](const auto& child) { return child.second; });
    std::sort(ordered.begin(), ordered.end());
    std::vector<std::string> names;
    std::transform(ordered.begin(), ordered.end(), std::back_inserter(names),
                   [](const auto& child) { return child.second; });
    return names;
}

std::vector<Value> ValuesOf(const Tree& tree, const std::string& path) {
    std::vector<Value> values;
    if (const auto key = tree.find(path); key != tree.end())
        for (const auto& [name, value] : key->second.values)
            values.push_back(value);
    std::sort(values.begin(), values.end(), [](const Value& a, const Value& b) { return a.first < b.first; });
    return values;
}

/// The path of a caller, which names no hive.
std::string Wanted(const std::string& path) {
    return Normalised(std::string(kHive) + "\\" + path).value_or("");
}

bool HoldsLineEnd(const std::string& text) {
    return text.find_first_of(kLineEnd) != std::string::npos;
}

} // namespace

RegistryCode RegistryFile::Query(const std::string& path, const std::string& name,
                                 RegistryValue& value) const {
    Export registry;
    if (const RegistryCode code = Load(path_, registry); code != RegistryCode::Success)
        return code;
    const auto found = registry.FindValue(Wanted(path), name);
    if (!found)
        return RegistryCode::FileNotFound;
    const auto& stored = registry.items[*found].value;
    if (!stored)
        return RegistryCode::AccessDenied;
    value = *stored;
    return RegistryCode::Success;
}

RegistryCode RegistryFile::Set(const std::string& path, const std::string& name, const RegistryValue& value) {
    if (HoldsLineEnd(path) || HoldsLineEnd(name))
        return RegistryCode::WriteFault;
    Export registry;
    if (const RegistryCode code = Load(path_, registry); code != RegistryCode::Success)
        return code;
    const std::string raw = Rendered(name, value);
    const std::string wanted = Wanted(path);
    const auto key = registry.tree.find(wanted);
    if (const auto found = registry.FindValue(wanted, name)) {
        Item& item = registry.items[*found];
        if (item.value == value)
            return RegistryCode::Success;
        item.raw = Rendered(item.name, value);
    } else if (key != registry.tree.end()) {
        InsertValue(registry.items, key->second.header, raw);
    } else {
        AppendKey(registry.items, path);
        registry.items.push_back({Kind::Value, raw, {}, {}, 0});
    }
    return Store(path_, registry);
}

RegistryCode RegistryFile::DeleteValue(const std::string& path, const std::string& name) {
    Export registry;
    if (const RegistryCode code = Load(path_, registry); code != RegistryCode::Success)
        return code;
    const std::string wanted = Wanted(path);
    if (!registry.FindValue(wanted, name))
        return RegistryCode::FileNotFound;
    Remove(registry.items, wanted,
           [&](const Item& item) { return item.kind == Kind::Value && EqualsNoCase(item.name, name); });
    return Store(path_, registry);
}

RegistryCode RegistryFile::DeleteKey(const std::string& path) {
    Export registry;
    if (const RegistryCode code = Load(path_, registry); code != RegistryCode::Success)
        return code;
    const std::string wanted = Wanted(path);
    if (!Exists(registry.tree, wanted))
        return RegistryCode::FileNotFound;
    if (const auto [begin, end] = Below(registry.tree, wanted); begin != end)
        return RegistryCode::AccessDenied;
    RemoveKey(registry, wanted);
    return Store(path_, registry);
}

RegistryCode RegistryFile::EnumerateKeys(const std::string& path, std::vector<std::string>& names) const {
    names.clear();
    Export registry;
    if (const RegistryCode code = Load(path_, registry); code != RegistryCode::Success)
        return code;
    const std::string wanted = Wanted(path);
    if (!Exists(registry.tree, wanted))
        return RegistryCode::FileNotFound;
    names = Children(registry, wanted);
    return RegistryCode::Success;
}

RegistryCode RegistryFile::EnumerateValues(const std::string& path,
                                           std::vector<std::pair<std::string, RegistryValue>>& values) const {
    values.clear();
    Export registry;
    if (const RegistryCode code = Load(path_, registry); code != RegistryCode::Success)
        return code;
    const std::string wanted = Wanted(path);
    if (!Exists(registry.tree, wanted))
        return RegistryCode::FileNotFound;
    for (const Value& value : ValuesOf(registry.tree, wanted))
        if (const auto& content = registry.items[value.latest].value)
            values.emplace_back(registry.items[value.first].name, *content);
    return RegistryCode::Success;
}

} // namespace velmora
