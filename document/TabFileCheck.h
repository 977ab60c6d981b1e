// A strict reading of a tab file: header lines that are short or long, values that the program would replace, texts
// that it would cut when they are edited, and a number of tabs that is no whole page.
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
