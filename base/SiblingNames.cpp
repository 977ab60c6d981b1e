#include "base/SiblingNames.h"

#include "base/Paths.h"

#include <cstdint>
#include <cstdio>

namespace velmora {

namespace fs = std::filesystem;

std::string PathSum(const fs::path& canonical) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char byte : PathText(canonical))
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    std::string digits(16, '0');
    std::snprintf(digits.data(), digits.size() + 1, "%016llx", static_cast<unsigned long long>(sum));
    return digits;
}

std::vector<fs::path> FilesNamed(const fs::path& folder, std::string_view start, std::string_view ending) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = PathText(entry->path().filename());
        if (name.starts_with(start) && name.ends_with(ending))
            files.push_back(entry->path());
    }
    return files;
}

} // namespace velmora
