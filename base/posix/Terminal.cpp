#include "base/Terminal.h"

#include <unistd.h>

namespace velmora {

bool OutputIsTerminal() {
    return ::isatty(STDOUT_FILENO) == 1;
}

} // namespace velmora
