#include "base/TemporaryFile.h"

#include "base/ScratchNames.h"

#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(Path(), ignored);
}

const fs::path& ScratchFolder::Path() const {
    return name_->Path();
}

} // namespace velmora
