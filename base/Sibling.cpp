#include "base/Sibling.h"

#include "base/SiblingNames.h"
#include "base/SystemLock.h"

#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

bool Sibling::Create(const fs::path& folder, Readers readers) {
    for (const fs::path& left : FilesNamed(folder, kSiblingStart, kUnfinished))
        SystemLock::RemoveUnheld(left);
    if (!CreateOne(folder, readers))
        return false;
    olderCopies_ = WholeCopies(target_, folder);
    return true;
}

fs::path Sibling::Leave() {
    fs::path left = Path();
    name_.Set({});
    return left;
}

void Sibling::RemoveOlderCopies() {
    std::error_code error;
    for (const fs::path& copy : olderCopies_)
        fs::remove(copy, error);
}

std::vector<fs::path> WholeCopies(const fs::path& target, const fs::path& folder) {
    std::vector<fs::path> copies = FilesNamed(folder, SiblingStart(target), kWhole);
    std::erase_if(copies, [](const fs::path& copy) { return SystemLock::IsHeld(copy); });
    return copies;
}

} // namespace velmora
