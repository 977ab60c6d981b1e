// The text that a registry editor exports: its entries as they stand, and the keys and values that they add
// up to.
#pragma once

#include "base/Encoding.h"
#include "platform/Registry.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// One entry of the text.
struct RegistryItem {
    enum class Kind { Blank, Comment, Key, DeletedKey, Value, DeletedValue };

    Kind kind = Kind::Comment;
    std::string name = {};                   ///< of a value; of a key the path below the hive
    std::optional<RegistryValue> value = {}; ///< nullopt: of a type that is only kept
    std::string raw = {};                    ///< all its lines
    /// In capitals the path of the key that it stands under; empty in a deleted key or another hive.
    std::string section = {};
};

/// As when such a text is imported, later lines win, and "[-key]" and "name"=- delete what came before them.
/// Paths start below the machine-wide hive; the part of it that 32-bit programs see ("Wow6432Node") counts as
/// if it were the whole, and other hives do not count.
class RegistryExport {
public:
    /// "REGEDIT4" in Windows-1252 or "Windows Registry Editor Version 5.00" in UTF-16; UTF-8 is taken too.
    /// Raises Error for bytes that no registry editor writes.
    explicit RegistryExport(std::string bytes);
    /// The text in the form that was read; nullopt for one that would not be read back as it is.
    std::optional<std::string> Bytes() const;

    /// The item that holds a value, or null.
    const RegistryItem* Find(const std::string& path, const std::string& name) const;
    /// In the order of the text, without those that are only kept.
    std::vector<std::pair<std::string, RegistryValue>> Values(const std::string& path) const;
    /// The names right below a key in the order of the text; nullopt when there is no such key.
    std::optional<std::vector<std::string>> SubKeys(const std::string& path) const;

    // Edits leave all other lines as they are.
    void Set(const std::string& path, const std::string& name, const RegistryValue& value);
    void RemoveValue(const std::string& path, const std::string& name);
    /// The key must be there and have no sub-keys. Comments stay.
    void RemoveKey(const std::string& path);

private:
    struct Key {
        std::size_t item;                          ///< the first one
        std::map<std::string, std::size_t> values; ///< the items that hold, by name in capitals
    };
    using Keys = std::map<std::string, Key>; ///< by path in capitals

    Keys Living() const;
    std::optional<std::size_t> IndexOf(const std::string& path, const std::string& name) const;
    void AppendKey(const std::string& path);

    std::optional<Encoding> encoding_; ///< nullopt: UTF-16
    std::vector<RegistryItem> items_;
};

} // namespace velmora
