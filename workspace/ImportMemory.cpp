#include "workspace/ImportMemory.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace velmora {
namespace {

constexpr std::string_view kLists = "Import Lists";
constexpr std::size_t kChoiceParts = 2 + kFieldsPerTab; ///< headings, columns of the fields, what joins them
constexpr int kHex = 16;

std::string KeyOf(std::size_t place) {
    return "List " + std::to_string(place + 1);
}

/// Stands for the headings, which are longer than a setting: FNV-1a of 64 bits.
std::string Mark(const std::vector<std::string>& headings) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const std::string& heading : headings)
        for (const unsigned char c : FoldCase(Trim(heading)) + '\n')
            hash = (hash ^ c) * 0x100000001b3U;
    char digits[kHex] = {};
    return {digits, std::to_chars(digits, digits + kHex, hash, kHex).ptr};
}

/// Blanks at the end of a setting are lost.
std::string ToHex(std::string_view text) {
    std::string hex;
    for (const unsigned char c : text)
        for (const unsigned digit : {c / unsigned{kHex}, c % unsigned{kHex}})
            hex += "0123456789abcdef"[digit];
    return hex;
}

std::string FromHex(std::string_view hex) {
    std::string text;
    for (; hex.size() >= 2; hex.remove_prefix(2)) {
        unsigned char c = 0;
        std::from_chars(hex.data(), hex.data() + 2, c, kHex);
        text += static_cast<char>(c);
    }
    return text;
}

std::string EntryOf(const std::string& mark, const WorksheetOptions& options) {
    std::string entry = mark;
    std::vector<int> columns = options.columns;
    columns.resize(kFieldsPerTab);
    for (std::size_t field = 0; field < columns.size(); ++field)
        entry += " " + std::to_string(columns[field]) + "+" + std::to_string(options.joined[field]);
    return entry + " " + ToHex(options.between);
}

std::optional<WorksheetOptions> OptionsOf(std::string_view entry) {
    const std::vector<std::string_view> parts = Split(entry, ' ');
    WorksheetOptions options;
    options.heading = true;
    for (std::size_t field = 0; parts.size() == kChoiceParts && field < kFieldsPerTab; ++field) {
        const auto columns = ParseColumns(parts[field + 1]);
        if (!columns)
            return std::nullopt;
        options.columns[field] = columns->first;
        options.joined[field] = columns->second;
    }
    options.between = FromHex(parts.back());
    return parts.size() == kChoiceParts ? std::optional(options) : std::nullopt;
}

/// `read` gives what a key holds, empty where there is none.
template <typename Read> std::vector<std::string> Entries(Read read) {
    std::vector<std::string> entries;
    for (std::size_t place = 0; place < kRememberedLists; ++place)
        if (std::string entry = read(KeyOf(place)); !entry.empty())
            entries.push_back(std::move(entry));
    return entries;
}

/// In the newest text: other running programs put theirs there too. An empty entry forgets the headings.
bool PutFirst(IniText& text, const std::string& mark, const std::string& entry) {
    std::vector<std::string> entries =
        Entries([&](const std::string& key) { return text.ReadString(kLists, key, ""); });
    const std::size_t before = entries.size();
    std::erase_if(entries, [&](const std::string& other) { return other.starts_with(mark + " "); });
    if (!entry.empty())
        entries.insert(entries.begin(), entry);
    entries.resize(std::clamp(before, entries.size(), kRememberedLists)); // an empty one takes a forgotten one's place
    bool changed = false;
    for (std::size_t place = 0; place < entries.size(); ++place)
        changed = text.Write(kLists, KeyOf(place), entries[place]) || changed;
    return changed;
}

} // namespace

std::optional<WorksheetOptions> RecallColumns(SettingsStore& store, const std::vector<std::string>& headings) {
    const std::string mark = Mark(headings) + " ";
    for (const std::string& entry : Entries([&](const std::string& key) {
             return Probe(store, {kLists, key}).value_or("");
         }))
        if (entry.starts_with(mark))
            return OptionsOf(entry);
    return std::nullopt;
}

void RememberColumns(SettingsStore& store, const std::vector<std::string>& headings, const WorksheetOptions& options) {
    const std::string mark = Mark(headings), entry = options.heading ? EntryOf(mark, options) : "";
    SaveSettings(store, [mark, entry](IniText& text) { return PutFirst(text, mark, entry); });
}

} // namespace velmora
