// What the program does, whatever the system hands its command line over as.
#pragma once

#include <string>
#include <vector>

namespace velmora {

/// The arguments, in UTF-8, without the program's own name. Gives the exit code.
int RunBatch(const std::vector<std::string>& arguments);

} // namespace velmora
