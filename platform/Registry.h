// The keys that older installations left on the machine. The system's own registry on Windows, a file that a
// registry editor exported elsewhere.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace velmora {

/// Outcome of a registry call: the platform's code, 0 for success.
enum class RegistryCode : int {
    Success = 0,
    FileNotFound = 2,
    AccessDenied = 5,
    WriteFault = 29,
    NoMoreItems = 259,
    Corrupt = 1015,   ///< what holds the keys is damaged; it is never changed then
    Unreadable = 1016 ///< what holds the keys is there but can't be read
};

/// Text (REG_SZ) or a 32-bit number (REG_DWORD).
using RegistryValue = std::variant<std::string, std::uint32_t>;

/// Keys lie under the machine-wide hive; a path is "SOFTWARE\\Maker\\Program\\Section". Letter case of paths
/// and names does not matter, and the case of the first writing is kept.
class Registry {
public:
    virtual ~Registry() = default;
    /// Where the keys are kept, as a person knows it.
    virtual std::string Place() const = 0;
    /// FileNotFound when the key or the value is missing; `value` is then left alone.
    virtual RegistryCode Query(const std::string& path, const std::string& name, RegistryValue& value) const = 0;
    /// Makes the key, with all its parents, where it is missing.
    virtual RegistryCode Set(const std::string& path, const std::string& name, const RegistryValue& value) = 0;
    virtual RegistryCode DeleteValue(const std::string& path, const std::string& name) = 0;
    /// AccessDenied while the key has sub-keys.
    virtual RegistryCode DeleteKey(const std::string& path) = 0;
    /// Sub-key names in their stored order; FileNotFound when the key is missing.
    virtual RegistryCode EnumerateKeys(const std::string& path, std::vector<std::string>& names) const = 0;
    virtual RegistryCode EnumerateValues(const std::string& path,
                                         std::vector<std::pair<std::string, RegistryValue>>& values) const = 0;
    /// How the key of the last of these calls was closed again; Success for one that opened none.
    virtual RegistryCode LastClosing() const { return RegistryCode::Success; }
    /// The keys in a file that a registry editor exported, apart from those of the machine.
    virtual std::unique_ptr<Registry> OpenExport(const std::filesystem::path& file) const = 0;
};

} // namespace velmora
