// A strict reading of a tab file: everything that the program would silently replace, cut or move.
#pragma once

#include <string>
#include <vector>

namespace velmora {

struct TabFileProblem {
    int line = 0; ///< from 1
    std::string text;
};

/// Every problem of the file, in the order of its lines; empty for a file that reads back as it stands.
std::vector<TabFileProblem> CheckTabFile(const std::string& bytes);

} // namespace velmora
