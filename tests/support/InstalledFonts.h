// The fonts of the machine, as whatever class of the system has them.
#pragma once

#include "platform/Machine.h"

namespace velmora {

struct InstalledFonts : FontCatalogue {
    std::optional<FontFile> Match(const FontRequest& request) const override { return all->Match(request); }
    std::optional<FontFile> MatchCharacter(const FontRequest& request, char32_t character) const override {
        return all->MatchCharacter(request, character);
    }
    std::vector<std::string> Families() const override { return all->Families(); }

    std::unique_ptr<FontCatalogue> all = MakeFontCatalogue();
};

} // namespace velmora
