// Which tabs the wizard fills, what becomes of those that hold texts, and the limit of their number.
#pragma once

#include "wizard/WizardState.h"

#include <optional>
#include <string>

namespace velmora {

/// The first tab behind all that hold texts.
int TabBehindLastText(const TabDocument& document);
/// The first tab to fill: the one in use, or 1 where there is none, or the one behind the last text.
int FirstNewTab(const TabDocument& document, bool behindLast);

/// Why the document cannot hold `count` tabs from `first` on; nullopt where it can. Names the most that it can.
std::optional<std::string> RefuseNewTabs(const TabDocument& document, int first, std::int32_t count);

struct PlaceOfNewTabs {
    std::string place;   ///< "These will be tabs 28 to 57."
    std::string warning; ///< of texts that are replaced, or in RefuseNewTabs' words; empty: nothing
};
/// What the count page says of its entries.
PlaceOfNewTabs PlaceOf(const TabDocument& document, bool behindLast, std::int32_t count);

/// The captions of the two places to start.
std::string FromTabInUse(const TabDocument& document);
std::string FromBehindLast(const TabDocument& document);

/// Texts of the new tab `index`, from 1 to `NewTabCount`, as Finish would leave them; `entries`: of the current field,
/// in place of what was chosen for it.
TabTexts TextsOfNewTab(const TabDocument& document, const WizardState& wizard, std::int32_t index,
                       const std::optional<ValueSeries>& entries = std::nullopt);

} // namespace velmora
