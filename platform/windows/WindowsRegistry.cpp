#include "platform/windows/WindowsRegistry.h"

#include "base/windows/Api.h"

#include <cstring>

namespace velmora {
namespace {

/// Older installations were programs of 32 bits, whose keys the system keeps apart.
constexpr REGSAM kView = KEY_WOW64_32KEY;
constexpr DWORD kMostNameLength = 16384;

RegistryCode CodeOf(LSTATUS status) {
    return static_cast<RegistryCode>(status);
}

/// What its end gives is put down in `closing`.
struct Key {
    explicit Key(RegistryCode& closing) : closing_(closing) {}
    Key(const std::string& path, REGSAM rights, RegistryCode& closing) : Key(closing) {
        code = ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, Wide(path).c_str(), 0, rights | kView, &handle);
    }
    ~Key() { closing_ = handle ? CodeOf(::RegCloseKey(handle)) : RegistryCode::Success; }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    HKEY handle = nullptr;
    LSTATUS code = ERROR_SUCCESS;

private:
    RegistryCode& closing_;
};

/// False for a kind that no installation wrote.
bool Take(DWORD type, const std::string& bytes, RegistryValue& value) {
    if (type == REG_DWORD && bytes.size() == sizeof(std::uint32_t)) {
        std::uint32_t number = 0;
        std::memcpy(&number, bytes.data(), sizeof number);
        value = number;
        return true;
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ)
        return false;
    std::wstring text(bytes.size() / sizeof(wchar_t), 0);
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    value = Narrow(text.substr(0, text.find(L'\0')));
    return true;
}

RegistryCode QueryOf(HKEY key, const std::wstring& name, RegistryValue& value) {
    DWORD type = 0, size = 0;
    LSTATUS code = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size);
    std::string bytes(size, '\0');
    if (code == ERROR_SUCCESS)
        code = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
    if (code != ERROR_SUCCESS)
        return CodeOf(code);
    bytes.resize(size);
    return Take(type, bytes, value) ? RegistryCode::Success : RegistryCode::AccessDenied;
}

} // namespace

std::string WindowsRegistry::Place() const {
    return "HKEY_LOCAL_MACHINE";
}

RegistryCode WindowsRegistry::Query(const std::string& path, const std::string& name, RegistryValue& value) const {
    const Key key(path, KEY_QUERY_VALUE, closing_);
    return key.handle ? QueryOf(key.handle, Wide(name), value) : CodeOf(key.code);
}

RegistryCode WindowsRegistry::Set(const std::string& path, const std::string& name, const RegistryValue& value) {
    Key made(closing_);
    LSTATUS code = ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, Wide(path).c_str(), 0, nullptr, 0, KEY_SET_VALUE | kView,
                                     nullptr, &made.handle, nullptr);
    if (code != ERROR_SUCCESS)
        return CodeOf(code);
    if (const auto* number = std::get_if<std::uint32_t>(&value)) {
        code = ::RegSetValueExW(made.handle, Wide(name).c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(number),
                                sizeof *number);
    } else {
        const std::wstring text = Wide(std::get<std::string>(value));
        const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
        code = ::RegSetValueExW(made.handle, Wide(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                size);
    }
    return CodeOf(code);
}

RegistryCode WindowsRegistry::DeleteValue(const std::string& path, const std::string& name) {
    const Key key(path, KEY_SET_VALUE, closing_);
    return CodeOf(key.handle ? ::RegDeleteValueW(key.handle, Wide(name).c_str()) : key.code);
}

RegistryCode WindowsRegistry::DeleteKey(const std::string& path) {
    closing_ = RegistryCode::Success;
    return CodeOf(::RegDeleteKeyExW(HKEY_LOCAL_MACHINE, Wide(path).c_str(), kView, 0));
}

RegistryCode WindowsRegistry::EnumerateKeys(const std::string& path, std::vector<std::string>& names) const {
    names.clear();
    const Key key(path, KEY_ENUMERATE_SUB_KEYS, closing_);
    LSTATUS code = key.code;
    std::wstring name(kMostNameLength, 0);
    for (DWORD i = 0; code == ERROR_SUCCESS; ++i) {
        auto length = static_cast<DWORD>(name.size());
        code = ::RegEnumKeyExW(key.handle, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (code == ERROR_SUCCESS)
            names.push_back(Narrow({name.data(), length}));
    }
    return code == ERROR_NO_MORE_ITEMS ? RegistryCode::Success : CodeOf(code);
}

RegistryCode WindowsRegistry::EnumerateValues(const std::string& path,
                                              std::vector<std::pair<std::string, RegistryValue>>& values) const {
    values.clear();
    const Key key(path, KEY_QUERY_VALUE, closing_);
    LSTATUS code = key.code;
    std::wstring name(kMostNameLength, 0);
    for (DWORD i = 0; code == ERROR_SUCCESS; ++i) {
        auto length = static_cast<DWORD>(name.size());
        code = ::RegEnumValueW(key.handle, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        RegistryValue value;
        const std::wstring found = name.substr(0, length);
        if (code == ERROR_SUCCESS && QueryOf(key.handle, found, value) == RegistryCode::Success)
            values.emplace_back(Narrow(found), value);
    }
    return code == ERROR_NO_MORE_ITEMS ? RegistryCode::Success : CodeOf(code);
}

std::unique_ptr<Registry> WindowsRegistry::OpenExport(const std::filesystem::path& file) const {
    return openExport_(file);
}

} // namespace velmora
