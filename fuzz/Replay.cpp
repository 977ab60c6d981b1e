// Runs a fuzz target over files, so that what a fuzzer once found stays mended.
#include "base/AtomicFile.h"
#include "fuzz/Fuzz.h"

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : fs::directory_iterator(argv[i])) {
            const std::string bytes = velmora::ReadFile(entry.path());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
        }
    }
    velmora::Require(files > 0, "the corpus has files");
    return 0;
}
