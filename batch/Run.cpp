#include "batch/Run.h"

#include "base/Interruption.h"
#include "base/Terminal.h"
#include "base/Text.h"
#include "batch/BatchProgram.h"
#include "batch/CommandLine.h"
#include "batch/Commands.h"
#include "batch/TerminalStream.h"

#include <iostream>
#include <optional>

namespace velmora {
namespace {

int RunCommand(const std::vector<std::string>& arguments) {
    try {
        const ParsedCommand command = ParseCommandLine(arguments, std::cout, std::cerr);
        if (!command.run)
            return command.exitCode;
        const int code = command.run();
        if (!std::cout.flush())
            throw Error("standard output: cannot be written");
        return code;
    } catch (const UsageError& error) {
        std::cerr << "velmora-batch: " << OneLine(error.what()) << '\n';
        return kWrongUsage;
    } catch (const std::exception& error) {
        std::cerr << "velmora-batch: " << OneLine(error.what()) << '\n';
        return kFailed;
    }
}

} // namespace

int RunBatch(const std::vector<std::string>& arguments) {
    RemoveTemporaryFilesWhenInterrupted();
    const TerminalStream errors(std::cerr);
    std::optional<TerminalStream> output; // what goes to a file or another program is theirs as it is
    if (OutputIsTerminal())
        output.emplace(std::cout);
    return RunCommand(arguments);
}

} // namespace velmora
