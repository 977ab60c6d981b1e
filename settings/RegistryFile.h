// Where there is no registry, the text that a registry editor exported on an older machine stands for it.
#pragma once

#include "base/Paths.h"
#include "platform/Registry.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// Every call reads the file anew, and a change replaces it in one step. A missing file is an empty registry;
/// the first Set makes a REGEDIT4 one. A file that is no export is Corrupt and never changed.
///
/// Values of other types than text and 32-bit number are kept; they are not enumerated, and Query gives
/// AccessDenied for them. A text that the file's encoding does not hold is a WriteFault.
class RegistryFile : public Registry {
public:
    explicit RegistryFile(std::filesystem::path path) : path_(std::move(path)) {}

    std::string Place() const override { return PathText(path_); }
    RegistryCode Query(const std::string& path, const std::string& name, RegistryValue& value) const override;
    RegistryCode Set(const std::string& path, const std::string& name, const RegistryValue& value) override;
    RegistryCode DeleteValue(const std::string& path, const std::string& name) override;
    RegistryCode DeleteKey(const std::string& path) override;
    RegistryCode EnumerateKeys(const std::string& path, std::vector<std::string>& names) const override;
    RegistryCode EnumerateValues(const std::string& path,
                                 std::vector<std::pair<std::string, RegistryValue>>& values) const override;
    std::unique_ptr<Registry> OpenExport(const std::filesystem::path& file) const override;

private:
    std::filesystem::path path_;
};

} // namespace velmora
