#include "base/MappedFile.h"

#include "base/posix/SystemFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace velmora {

MappedFile::MappedFile(const std::filesystem::path& path) {
    const SystemFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0 || status.st_size <= 0)
        return;
    const auto size = static_cast<std::size_t>(status.st_size);
    void* const start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.Get(), 0);
    if (start != MAP_FAILED)
        bytes_ = {static_cast<const char*>(start), size};
}

MappedFile::~MappedFile() {
    if (!bytes_.empty())
        ::munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

} // namespace velmora
