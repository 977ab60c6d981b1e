// Whether a list without a header begins with the names of its columns: a guess that a person can overrule.
#pragma once

#include <string>
#include <vector>

namespace velmora {

/// True where each filled cell of the first row has a letter, and a usual name of a column, or several, is among them
/// or a text without digits above at least two cells that all have one.
bool LooksLikeHeading(const std::vector<std::vector<std::string>>& rows);

} // namespace velmora
