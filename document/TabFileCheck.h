// A strict reading of a tab file: header lines that are short or long, values that the program would replace, texts
// that it would cut when they are edited, and a number of tabs that is no whole page.
#pragma once

#include "document/TabFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

struct TabFileProblem {
    int line = 0; ///< from 1
    std::string text;
};

/// Every problem of the file, in the order of its lines; empty for a file that reads back as it stands.
std::vector<TabFileProblem> CheckTabFile(std::string bytes);

/// The numbers, from 1, of the lines of tabs with more fields than a tab has; what follows the third is not read.
std::vector<std::int32_t> OverfullLines(const TabFile& file);

/// The number of fields, at least 1, that the lines of tabs have texts for.
int FieldsInUse(const TabFile& file);

} // namespace velmora
