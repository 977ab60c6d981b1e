#include "base/TemporaryFile.h"

#include <system_error>

namespace velmora {

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace velmora
