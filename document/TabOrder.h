// The tabs of a document in another order: what inserting, removing, moving and sorting them have in common.
#pragma once

#include "document/TabDocument.h"

#include <cstdint>
#include <vector>

namespace velmora {

/// Tab numbers from 1, ascending, each once.
using TabNumbers = std::vector<std::int32_t>;
/// The tab number from `first` on, `count` of them.
TabNumbers TabsFrom(std::int32_t first, std::int32_t count);

/// For each place from tab 1 on the tab that comes there, with the texts of all fields; 0: an empty one.
using TabOrder = std::vector<std::int32_t>;
/// Each tab where it is.
TabOrder OrderOf(const TabDocument& document);
/// Fills the last page with empty tabs.
void FillLastPage(TabOrder& order, std::int16_t tabsPerPage);
/// True when every text stays where it is, whatever becomes of tabs without one.
bool ChangesNothing(const TabDocument& document, const TabOrder& order);
/// True when a tab that holds a text, in whatever field, comes to no place.
bool LosesTexts(const TabDocument& document, const TabOrder& order);
/// Puts the tabs in that order, which must be whole pages, at most kMostTabs of them. An error leaves the document as
/// it was.
void Arrange(TabDocument& document, const TabOrder& order);

/// No text in any field, one not in use included.
bool IsBareTab(const TabDocument& document, std::int32_t tab);
/// The page that a tab stands on.
std::int16_t PageOfTab(const TabDocument& document, std::int32_t tab);
/// The first tab of a page.
std::int32_t FirstTabOf(const TabDocument& document, std::int16_t page);
/// `CurrentTab` where it is on the page shown, else the first tab there.
std::int32_t TabInUse(const TabDocument& document);

} // namespace velmora
