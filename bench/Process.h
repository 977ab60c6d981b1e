// One run of another program.
#pragma once

#include <string>
#include <vector>

namespace velmora::bench {

struct Finished {
    std::string output;       ///< standard output
    double peakMegabytes = 0; ///< the most memory that it had, at least ours when it was started
};

/// Runs `command` (path and arguments) with `environment` ("NAME=value") on top of ours. Raises Error where it fails.
Finished RunProcess(const std::vector<std::string>& command, const std::vector<std::string>& environment = {});

} // namespace velmora::bench
