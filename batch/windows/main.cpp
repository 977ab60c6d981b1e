// velmora-batch: the command-line twin of Velmora, for scripts.
#include "base/windows/Api.h"
#include "batch/Run.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <span>

/// What is read and written is bytes, such as a PDF; a console takes texts as UTF-8.
int wmain(int argc, wchar_t** argv) {
    for (std::FILE* stream : {stdin, stdout})
        ::_setmode(::_fileno(stream), _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> arguments;
    for (const wchar_t* argument : std::span(argv, static_cast<std::size_t>(argc)).subspan(1))
        arguments.push_back(velmora::Narrow(argument));
    return velmora::RunBatch(arguments);
}
