// Output that a person watches: what a file holds could tell the terminal to clear itself or to lie about a name.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// True when standard output goes to a terminal, not to a file or another program.
bool OutputIsTerminal();

/// As a terminal may be given it: control characters other than tabs and line ends as "?", and what is no UTF-8 taken
/// as Windows-1252.
std::string ForTerminal(std::string_view text);

} // namespace velmora
