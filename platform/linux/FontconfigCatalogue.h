// The fonts of a Linux desktop, found through fontconfig with the desktop's own aliases and preferences.
#pragma once

#include "platform/FontCatalogue.h"

#include <memory>

struct _FcConfig;

namespace velmora {

/// Finds only outline faces that can be shaped and embedded: TrueType and OpenType with CFF outlines. Of a
/// variable font the default instance is used. Costs nothing before the first question. For one thread.
class FontconfigCatalogue : public FontCatalogue {
public:
    FontconfigCatalogue();
    ~FontconfigCatalogue() override;
    std::optional<FontFile> Match(const FontRequest& request) const override;
    std::optional<FontFile> MatchCharacter(const FontRequest& request, char32_t character) const override;
    std::vector<std::string> Families() const override;

private:
    struct ReleaseConfig {
        void operator()(_FcConfig* config) const;
    };

    std::optional<FontFile> Find(const FontRequest& request, char32_t character) const;
    _FcConfig* Config() const;

    mutable std::unique_ptr<_FcConfig, ReleaseConfig> config_; ///< shared with other users of fontconfig
};

} // namespace velmora
