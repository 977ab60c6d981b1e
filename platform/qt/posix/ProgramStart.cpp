#include "platform/qt/ProgramStart.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace velmora {

std::vector<std::string> WordsOfCall(int argc, char** argv) {
    return {argv + std::min(argc, 1), argv + argc};
}

void TakeTerminalOfCaller() {}

/// The toolkit would advise to install the program anew, and abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg)
        return;
    const char* display = std::getenv("DISPLAY");
    std::fprintf(stderr, "velmora: there is no display: %s%s. velmora-batch works without one.\n",
                 display ? "nothing answers at " : "neither DISPLAY nor WAYLAND_DISPLAY is set",
                 display ? display : "");
    std::_Exit(1);
}

} // namespace velmora
