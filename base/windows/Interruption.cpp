#include "base/Interruption.h"

#include "base/ScratchNames.h"
#include "base/windows/Api.h"

namespace velmora {
namespace {

/// The system calls it in a thread of its own; FALSE: then it ends the program.
BOOL WINAPI OnInterruption(DWORD) {
    RemoveScratchFiles();
    return FALSE;
}

} // namespace

void RemoveTemporaryFiles() {
    RemoveScratchFiles();
}

void RemoveTemporaryFilesWhenInterrupted() {
    ::SetConsoleCtrlHandler(OnInterruption, TRUE);
}

} // namespace velmora
