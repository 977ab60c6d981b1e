#include "document/Stationery.h"

namespace velmora {

// The double blank in the first two captions is part of them.
const std::array<TabType, kTabTypes> kCatalogue = {{
    {"A4", "A4 - 8 rows, 3  Columns", "A4 Alpha (8 rows, 3 cols)", "A4_alpha.gif", 8, 3, {3660, 1825, 830, 370}},
    {"A4", "A4 - 8 rows, 6  Columns", "A4 Numeric (8 rows, 6 cols)", "A4_num.gif", 8, 6, {1810, 900, 830, 370}},
    {"A4", "A4 - 9 rows, 3 Columns", "A4 Alpha (9 rows, 3 cols)", "A4_alpha_new.gif", 9, 3, {3660, 1825, 750, 325}},
    {"A4", "A4 - 9 rows, 6 Columns", "A4 Numeric (9 rows, 6 cols)", "A4_num_new.gif", 9, 6, {1810, 900, 750, 325}},
    {"DL", "DL - 3 rows, 7 Columns", "DL Numeric (3 rows, 7 cols)", "DL1a_num.gif", 3, 7, {1545, 765, 850, 380}},
    {"DL", "DL - 3 rows, 4 Columns", "DL Alpha (3 rows, 4 cols)", "DL1a_alpha.gif", 3, 4, {2735, 1360, 850, 380}},
}};

const TabType* FindTabType(int optType) {
    return optType >= 0 && optType < kTabTypes ? &kCatalogue[static_cast<std::size_t>(optType)] : nullptr;
}

int MostTabs(int optType) {
    const TabType* type = FindTabType(optType);
    return type ? kMostTabs / type->TabsPerPage() * type->TabsPerPage() : 0;
}

void GetTabsPerPage(int optType, std::int16_t& tabsPerPage) {
    if (const TabType* type = FindTabType(optType))
        tabsPerPage = type->TabsPerPage();
}

std::string SetStationeryFromType(int optType) {
    const TabType* type = FindTabType(optType);
    return std::string(type ? type->stationery : "A4");
}

} // namespace velmora
