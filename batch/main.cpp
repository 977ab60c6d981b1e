// velmora-batch: the command-line twin of Velmora, for scripts.

#include "batch/BatchProgram.h"
#include "batch/CommandLine.h"
#include "batch/Commands.h"

#include <iostream>

namespace {

using namespace velmora;

int Run(const ParsedCommand& command) {
    try {
        const int code = command.run();
        if (!std::cout.flush())
            throw Error("standard output: cannot be written");
        return code;
    } catch (const UsageError& error) {
        std::cerr << "velmora-batch: " << error.what() << '\n';
        return kWrongUsage;
    } catch (const std::exception& error) {
        std::cerr << "velmora-batch: " << error.what() << '\n';
        return kFailed;
    }
}

} // namespace

int main(int argc, char** argv) {
    const ParsedCommand command = ParseCommandLine({argv + 1, argv + argc}, std::cout, std::cerr);
    return command.run ? Run(command) : command.exitCode;
}
