#include "settings/RegistryFile.h"

#include "base/AtomicFile.h"
#include "settings/RegistryText.h"

#include <cerrno>

namespace velmora {
namespace {

namespace fs = std::filesystem;

RegistryExport Load(const fs::path& file) {
    try {
        return RegistryExport(ReadFile(file));
    } catch (const FileAccessError& error) {
        if (error.Number() != ENOENT)
            throw;
        return RegistryExport("REGEDIT4\r\n");
    }
}

/// Does `action` with the text of the file.
template <typename Action> RegistryCode With(const fs::path& file, Action action) {
    try {
        RegistryExport text = Load(file);
        return action(text);
    } catch (const FileAccessError&) {
        return RegistryCode::Unreadable;
    } catch (const Error&) {
        return RegistryCode::Corrupt;
    }
}

RegistryCode Store(const fs::path& file, const RegistryExport& text) {
    const auto bytes = text.Bytes();
    if (!bytes)
        return RegistryCode::WriteFault;
    try {
        ReplaceFile(file, *bytes, Readers::OwnerAlone);
        return RegistryCode::Success;
    } catch (const FileAccessError&) {
        return RegistryCode::WriteFault;
    }
}

bool IsOneLine(const std::string& text) {
    return text.find_first_of("\r\n") == std::string::npos;
}

} // namespace

RegistryCode RegistryFile::Query(const std::string& path, const std::string& name, RegistryValue& value) const {
    return With(path_, [&](const RegistryExport& text) {
        const RegistryItem* found = text.Find(path, name);
        if (!found)
            return RegistryCode::FileNotFound;
        value = found->value.value_or(value);
        return found->value ? RegistryCode::Success : RegistryCode::AccessDenied;
    });
}

RegistryCode RegistryFile::Set(const std::string& path, const std::string& name, const RegistryValue& value) {
    if (path.empty() || !IsOneLine(path) || !IsOneLine(name))
        return RegistryCode::WriteFault;
    return With(path_, [&](RegistryExport& text) {
        if (const RegistryItem* found = text.Find(path, name); found && found->value == value)
            return RegistryCode::Success;
        text.Set(path, name, value);
        return Store(path_, text);
    });
}

RegistryCode RegistryFile::DeleteValue(const std::string& path, const std::string& name) {
    return With(path_, [&](RegistryExport& text) {
        if (!text.Find(path, name))
            return RegistryCode::FileNotFound;
        text.RemoveValue(path, name);
        return Store(path_, text);
    });
}

RegistryCode RegistryFile::DeleteKey(const std::string& path) {
    return With(path_, [&](RegistryExport& text) {
        const auto names = text.SubKeys(path);
        if (!names)
            return RegistryCode::FileNotFound;
        if (!names->empty())
            return RegistryCode::AccessDenied;
        text.RemoveKey(path);
        return Store(path_, text);
    });
}

RegistryCode RegistryFile::EnumerateKeys(const std::string& path, std::vector<std::string>& names) const {
    names.clear();
    return With(path_, [&](const RegistryExport& text) {
        const auto found = text.SubKeys(path);
        names = found.value_or(std::vector<std::string>());
        return found ? RegistryCode::Success : RegistryCode::FileNotFound;
    });
}

RegistryCode RegistryFile::EnumerateValues(const std::string& path,
                                           std::vector<std::pair<std::string, RegistryValue>>& values) const {
    values.clear();
    return With(path_, [&](const RegistryExport& text) {
        values = text.Values(path);
        return text.SubKeys(path) ? RegistryCode::Success : RegistryCode::FileNotFound;
    });
}

std::unique_ptr<Registry> RegistryFile::OpenExport(const fs::path& file) const {
    return std::make_unique<RegistryFile>(file);
}

} // namespace velmora
