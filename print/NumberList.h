// Lists such as "1-3,7", as a person types them.
#pragma once

#include <string>
#include <vector>

namespace velmora {

/// What a list numbers, for its errors.
struct ListWords {
    std::string one;   ///< "page"
    std::string owner; ///< "document"
};

/// The numbers in their order, ranges spelled out, from 1 to `most`. Raises Error for what is no such list and for a
/// number above `most`.
std::vector<int> ParseNumberList(const std::string& list, int most, const ListWords& words);
/// Such a list of the numbers in their order; empty without any.
std::string NumberListText(const std::vector<int>& numbers);

} // namespace velmora
