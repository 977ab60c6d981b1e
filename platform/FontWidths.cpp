#include "platform/FontWidths.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

/// Families made to have the widths of the one beside them.
constexpr std::pair<std::string_view, std::string_view> kSameWidths[] = {
    {"helvetica", "arial"},
    {"liberation sans", "arial"},
    {"arimo", "arial"},
    {"nimbus sans", "arial"},
    {"times", "times new roman"},
    {"liberation serif", "times new roman"},
    {"tinos", "times new roman"},
    {"nimbus roman", "times new roman"},
    {"courier", "courier new"},
    {"cousine", "courier new"},
    {"liberation mono", "courier new"},
    {"nimbus mono ps", "courier new"},
    {"carlito", "calibri"},
    {"caladea", "cambria"},
};

} // namespace

std::string WidthsOf(const std::string& family) {
    const std::string name = FoldCase(family);
    const auto* found = std::find_if(std::begin(kSameWidths), std::end(kSameWidths),
                                     [&](const auto& row) { return row.first == name; });
    return found == std::end(kSameWidths) ? name : std::string(found->second);
}

} // namespace velmora
