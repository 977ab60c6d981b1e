// Where there is no registry, the text that a registry editor exported on an older machine stands for it.
#pragma once

#include "platform/Registry.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// The file is no text that a registry editor writes. It is never changed then.
inline constexpr RegistryCode kRegistryCorrupt{1015};
/// The file is there but can't be read.
inline constexpr RegistryCode kRegistryUnreadable{1016};

/// "REGEDIT4" in Windows-1252 or "Windows Registry Editor Version 5.00" in UTF-16, written back in the form
/// that was read; a text in UTF-8 is taken too. Every call reads the file anew, and a change replaces it in
/// one step and leaves all other lines as they are. As when such a text is imported, later lines win, and
/// "[-key]" and "name"=- delete what came before them. A missing file is an empty registry; the first Set
/// makes a REGEDIT4 one.
///
/// Only the machine-wide hive counts, also under its short name, and the part of it that 32-bit programs see
/// ("Wow6432Node") as if it were the whole. Values of other types than text, expandable text and 32-bit
/// number are kept; they are not enumerated, and Query gives AccessDenied for them. A text that the file's
/// encoding does not hold is a WriteFault.
class RegistryFile : public Registry {
public:
    explicit RegistryFile(std::filesystem::path path) : path_(std::move(path)) {}

    RegistryCode Query(const std::string& path, const std::string& name, RegistryValue& value) const override;
    RegistryCode Set(const std::string& path, const std::string& name, const RegistryValue& value) override;
    RegistryCode DeleteValue(const std::string& path, const std::string& name) override;
    RegistryCode DeleteKey(const std::string& path) override;
    RegistryCode EnumerateKeys(const std::string& path, std::vector<std::string>& names) const override;
    RegistryCode EnumerateValues(const std::string& path,
                                 std::vector<std::pair<std::string, RegistryValue>>& values) const override;

private:
    std::filesystem::path path_;
};

} // namespace velmora
