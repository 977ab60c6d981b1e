// A machine that has the families given, the first of them in place of any other; none at all by default.
#pragma once

#include "platform/FontCatalogue.h"

namespace velmora {

struct FewFonts : FontCatalogue {
    std::vector<std::string> families;

    explicit FewFonts(std::vector<std::string> names = {}) : families(std::move(names)) {}
    std::optional<FontFile> Match(const FontRequest&) const override {
        return families.empty() ? std::nullopt : std::optional(FontFile{"", 0, families[0]});
    }
    std::optional<FontFile> MatchCharacter(const FontRequest&, char32_t) const override { return std::nullopt; }
    std::vector<std::string> Families() const override { return families; }
};

} // namespace velmora
