// Where a few typed letters may lead: to a page, to a tab, or to a text.
#pragma once

#include "workspace/mdlMain.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

struct FoundPlace {
    TabBox box;
    std::size_t at = 0; ///< what to select of the box's text, in bytes
    std::size_t length = std::string::npos;
    std::string caption; ///< "Page 2", "Tab 26: Archive, 2026"
};

/// A number is a page and a tab, with "p" or "page" before it a page, with "t" or "tab" a tab; whatever is typed may be
/// part of a text too, in any letter case. Likeliest first, of a tab its first such text; no more are looked for once
/// there are `most`. Empty for a text that is nowhere and for blanks. The page on screen was taken back before.
std::vector<FoundPlace> PlacesFor(const TabDocument& document, std::string_view typed, std::size_t most = 100);

} // namespace velmora
