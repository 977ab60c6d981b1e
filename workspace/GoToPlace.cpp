#include "workspace/GoToPlace.h"

#include "base/Text.h"
#include "document/TabOrder.h"

#include <charconv>
#include <optional>

namespace velmora {
namespace {

/// The number behind one of the words, or alone; nullopt for anything else.
std::optional<std::int32_t> NumberAfter(std::string_view typed, std::initializer_list<std::string_view> words) {
    for (const std::string_view word : words)
        if (typed.starts_with(word)) {
            typed = Trim(typed.substr(word.size()));
            break;
        }
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
    return error == std::errc() && end == typed.data() + typed.size() ? std::optional(number) : std::nullopt;
}

std::string TabCaption(const TabDocument& document, std::int32_t tab) {
    std::string caption = "Tab " + std::to_string(tab);
    for (int field = 0; field < document.setup.NoOfFields; ++field)
        if (const std::string& text = document.Field(field)(tab); !text.empty())
            caption += (caption.find(':') == std::string::npos ? ": " : ", ") + text;
    return caption;
}

void AddNumbered(std::vector<FoundPlace>& places, const TabDocument& document, const std::string& typed) {
    if (const auto page = NumberAfter(typed, {"page", "p"}); page && *page >= 1 && *page <= document.NoOfPages)
        places.push_back({{FirstTabOf(document, static_cast<std::int16_t>(*page)), 0},
                          0,
                          std::string::npos,
                          "Page " + std::to_string(*page)});
    if (const auto tab = NumberAfter(typed, {"tab", "t"}); tab && *tab >= 1 && *tab <= document.TabCount)
        places.push_back({{*tab, 0}, 0, std::string::npos, TabCaption(document, *tab)});
}

/// The tab's first text that holds it.
void AddMatch(std::vector<FoundPlace>& places, const TabDocument& document, std::int32_t tab,
              const std::string& folded) {
    for (int field = 0; field < document.setup.NoOfFields; ++field) {
        const std::size_t at = FoldCase(document.Field(field)(tab)).find(folded);
        if (at != std::string::npos) {
            places.push_back({{tab, field}, at, folded.size(), TabCaption(document, tab)});
            return;
        }
    }
}

} // namespace

std::vector<FoundPlace> PlacesFor(const TabDocument& document, std::string_view typed, std::size_t most) {
    std::vector<FoundPlace> places;
    const std::string folded = FoldCase(Trim(typed));
    if (folded.empty())
        return places;
    AddNumbered(places, document, folded);
    const auto numbered = NumberAfter(folded, {"tab", "t"}); // there already
    for (std::int32_t tab = 1; tab <= document.TabCount && places.size() < most; ++tab)
        if (tab != numbered)
            AddMatch(places, document, tab, folded);
    return places;
}

} // namespace velmora
