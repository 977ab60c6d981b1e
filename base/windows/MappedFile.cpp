#include "base/MappedFile.h"

#include "base/windows/SystemFile.h"

namespace velmora {

MappedFile::MappedFile(const std::filesystem::path& path) {
    const SystemFile file(OpenFile(path, GENERIC_READ, kShareAll));
    LARGE_INTEGER size{};
    if (!file.IsOpen() || ::GetFileSizeEx(file.Get(), &size) == 0 || size.QuadPart == 0)
        return;
    const SystemFile mapping(::CreateFileMappingW(file.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    const void* const start = mapping.IsOpen() ? ::MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0) : nullptr;
    if (start)
        bytes_ = {static_cast<const char*>(start), static_cast<std::size_t>(size.QuadPart)};
}

MappedFile::~MappedFile() {
    if (!bytes_.empty())
        ::UnmapViewOfFile(bytes_.data());
}

} // namespace velmora
