// velmora-batch: the command-line twin of Velmora, for scripts.

#include "base/Interruption.h"
#include "batch/BatchProgram.h"
#include "batch/CommandLine.h"
#include "batch/Commands.h"

#include <iostream>

namespace {

using namespace velmora;

int Run(int argc, char** argv) {
    try {
        const ParsedCommand command = ParseCommandLine({argv + 1, argv + argc}, std::cout, std::cerr);
        if (!command.run)
            return command.exitCode;
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
    velmora::RemoveTemporaryFilesWhenInterrupted();
    return Run(argc, argv);
}
