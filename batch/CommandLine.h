// The commands of velmora-batch with their options.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace velmora {

struct ParsedCommand {
    std::function<int()> run; ///< gives the exit code; empty when all was said while parsing
    int exitCode = 0;         ///< in that case
};

/// `arguments` without the program's name. Help, version and wrong use are answered on the two streams.
ParsedCommand ParseCommandLine(std::vector<std::string> arguments, std::ostream& output, std::ostream& errors);

} // namespace velmora
