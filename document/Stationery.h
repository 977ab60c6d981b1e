// The stationery catalogue: six tab types, each a fixed grid of pre-cut tabs on one sheet. The one source of rows,
// columns and tabs per page.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

inline constexpr int kTabTypes = 6;
/// The most tabs there can be, whatever their type: their numbers have 16 bits.
inline constexpr int kMostTabs = 32767;

/// Measures of the boxes in the grid editor, in twips.
struct GridGeometry {
    int Width1 = 0;  ///< box over the whole cell
    int Width2 = 0;  ///< box over half the cell
    int Height1 = 0; ///< cell
    int Height2 = 0; ///< one line
    int TopOffset = 10;
    int LeftOffset = 0;
    int CellGap = 30;
    int LineGap = 10;
    bool operator==(const GridGeometry&) const = default;
};

struct TabType {
    std::string_view stationery; ///< "A4" or "DL"
    std::string_view caption;    ///< as in the page set-up; the status line shows the part after the "-"
    std::string_view label;      ///< as in the printer set-up wizard
    std::string_view picture;    ///< file in the images folder, found whatever its letter case
    std::int16_t rows;
    std::int16_t columns;
    GridGeometry grid;

    constexpr std::int16_t TabsPerPage() const { return static_cast<std::int16_t>(rows * columns); }
};

/// Indexed by `OptType`.
extern const std::array<TabType, kTabTypes> kCatalogue;

/// The entry of a tab type, or nullptr outside 0 to 5.
const TabType* FindTabType(int optType);

/// Tabs of the most whole pages within kMostTabs; 0 outside 0 to 5.
int MostTabs(int optType);

/// Leaves `tabsPerPage` as it is outside 0 to 5.
void GetTabsPerPage(int optType, std::int16_t& tabsPerPage);
/// "DL" for types 4 and 5, else "A4", also outside 0 to 5.
std::string SetStationeryFromType(int optType);

} // namespace velmora
