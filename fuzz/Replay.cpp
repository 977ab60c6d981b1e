// Runs a fuzz target over files, so that what a fuzzer once found stays mended, and over texts that small changes make
// of them, the same in every run.
//   CHANGED-TEXTS-OF-EACH-FILE FOLDER...
#include "base/AtomicFile.h"
#include "fuzz/Fuzz.h"

#include <algorithm>
#include <random>
#include <vector>

namespace {

void Run(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// With a few parts cut out, doubled or replaced by bytes from elsewhere in it, or cut off.
std::string Changed(std::string bytes, std::mt19937& random) {
    for (auto changes = 1 + random() % 4; changes > 0 && !bytes.empty(); --changes) {
        const std::size_t at = random() % bytes.size();
        const std::size_t from = random() % bytes.size();
        const std::string part = bytes.substr(from, random() % 9);
        switch (random() % 5) {
        case 0: bytes.erase(at, part.size()); break;
        case 1: bytes.insert(at, part); break;
        case 2: bytes.replace(at, part.size(), part); break;
        case 3: bytes.resize(at); break;
        default: bytes[at] = static_cast<char>(random());
        }
    }
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    const int changedTexts = argc > 1 ? std::atoi(argv[1]) : 0;
    std::mt19937 random(8); // NOLINT(cert-msc51-cpp): every run makes the same changes
    std::vector<fs::path> files;
    for (int i = 2; i < argc; ++i)
        for (const auto& entry : fs::directory_iterator(argv[i]))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        const std::string bytes = velmora::ReadFile(file);
        Run(bytes);
        for (int text = 0; text < changedTexts; ++text)
            Run(Changed(bytes, random));
    }
    velmora::Require(!files.empty(), "the corpus has files");
    return 0;
}
