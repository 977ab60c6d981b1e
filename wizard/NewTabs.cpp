#include "wizard/NewTabs.h"

#include "base/Error.h"

#include <algorithm>

namespace velmora {
namespace {

int TabsWithText(const TabDocument& document, int first, int last) {
    int filled = 0;
    for (int tab = first; tab <= std::min(last, document.TabCount); ++tab)
        filled += IsEmptyTab(document, tab) ? 0 : 1;
    return filled;
}

std::string ReplacedTexts(int filled) {
    if (filled == 0)
        return "";
    return filled == 1 ? "1 of them holds texts, which will be replaced."
                       : std::to_string(filled) + " of them hold texts, which will be replaced.";
}

/// A field that was chosen and then left without values keeps its texts.
bool IsFilled(const WizardState& wizard, std::size_t field) {
    return wizard.WizFieldUsed[field] && wizard.FieldDone[field];
}

std::string OldText(const TabDocument& document, int field, int tab) {
    const FieldTexts& texts = document.Field(field);
    return tab <= texts.Count() ? texts(tab) : "";
}

/// Empty where a number leaves its range, which the page says in words.
std::string EnteredValue(const ValueSeries& entries, std::int32_t index, std::int32_t count) {
    try {
        return ValueAt(entries, index, count);
    } catch (const OverflowError&) {
        return "";
    }
}

} // namespace

int TabBehindLastText(const TabDocument& document) {
    int tab = document.TabCount;
    while (tab >= 1 && IsEmptyTab(document, tab))
        --tab;
    return tab + 1;
}

int FirstNewTab(const TabDocument& document, bool behindLast) {
    return behindLast ? TabBehindLastText(document) : std::max<int>(1, document.CurrentTab);
}

std::optional<std::string> RefuseNewTabs(const TabDocument& document, int first, std::int32_t count) {
    const int perPage = document.setup.TabsPerPage;
    const int most = (kMostTabs - 1) / perPage * perPage;
    if (first - 1 + count <= most)
        return std::nullopt;
    return "The maximum number of pages for this type on label is: " + std::to_string(kMostTabs / perPage) +
           "\r\nPlease change your number of labels to " + std::to_string(std::max(0, most - first + 1));
}

PlaceOfNewTabs PlaceOf(const TabDocument& document, bool behindLast, std::int32_t count) {
    const int first = FirstNewTab(document, behindLast);
    if (auto refused = RefuseNewTabs(document, first, count))
        return {"", std::move(*refused)};
    const int last = first + count - 1;
    const std::string place = count == 1
                                  ? "This will be tab " + std::to_string(first) + "."
                                  : "These will be tabs " + std::to_string(first) + " to " + std::to_string(last) + ".";
    return {place, ReplacedTexts(TabsWithText(document, first, last))};
}

std::string FromTabInUse(const TabDocument& document) {
    return "from tab " + std::to_string(FirstNewTab(document, false)) + ", where you are";
}

std::string FromBehindLast(const TabDocument& document) {
    return "behind the last text, from tab " + std::to_string(TabBehindLastText(document));
}

TabTexts TextsOfNewTab(const TabDocument& document, const WizardState& wizard, std::int32_t index,
                       const std::optional<ValueSeries>& entries) {
    const int tab = FirstNewTab(document, wizard.BehindLast) + index - 1;
    TabTexts texts;
    for (int field = 0; field < document.setup.NoOfFields; ++field) {
        const auto place = static_cast<std::size_t>(field);
        if (entries && field == wizard.CurrentFieldNo - 1)
            texts[place] = EnteredValue(*entries, index, std::max<std::int32_t>(1, wizard.NewTabCount));
        else
            texts[place] = IsFilled(wizard, place) ? wizard.Buffer(field)(index) : OldText(document, field, tab);
    }
    return texts;
}

} // namespace velmora
