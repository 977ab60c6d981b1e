// The machine's own registry.
#pragma once

#include "platform/Machine.h"

namespace velmora {

class WindowsRegistry : public Registry {
public:
    explicit WindowsRegistry(ExportReader openExport) : openExport_(std::move(openExport)) {}

    std::string Place() const override;
    RegistryCode Query(const std::string& path, const std::string& name, RegistryValue& value) const override;
    RegistryCode Set(const std::string& path, const std::string& name, const RegistryValue& value) override;
    RegistryCode DeleteValue(const std::string& path, const std::string& name) override;
    RegistryCode DeleteKey(const std::string& path) override;
    RegistryCode EnumerateKeys(const std::string& path, std::vector<std::string>& names) const override;
    RegistryCode EnumerateValues(const std::string& path,
                                 std::vector<std::pair<std::string, RegistryValue>>& values) const override;
    RegistryCode LastClosing() const override { return closing_; }
    std::unique_ptr<Registry> OpenExport(const std::filesystem::path& file) const override;

private:
    ExportReader openExport_;
    mutable RegistryCode closing_ = RegistryCode::Success; ///< of reading calls, too
};

} // namespace velmora
