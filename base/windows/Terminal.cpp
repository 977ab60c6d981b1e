#include "base/Terminal.h"

#include "base/windows/Api.h"

namespace velmora {

bool OutputIsTerminal() {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
}

} // namespace velmora
