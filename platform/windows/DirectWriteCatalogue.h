// The fonts that Windows has, found through DirectWrite.
#pragma once

#include "platform/FontCatalogue.h"

#include <memory>

namespace velmora {

/// Finds only outline faces that can be shaped and embedded. For a family that is not installed it takes one of the
/// same widths, else a usual one. Costs nothing before the first question. For one thread.
class DirectWriteCatalogue : public FontCatalogue {
public:
    DirectWriteCatalogue();
    ~DirectWriteCatalogue() override;
    std::optional<FontFile> Match(const FontRequest& request) const override;
    std::optional<FontFile> MatchCharacter(const FontRequest& request, char32_t character) const override;
    std::vector<std::string> Families() const override;

private:
    class Fonts;

    const Fonts& All() const;

    mutable std::unique_ptr<Fonts> fonts_;
};

} // namespace velmora
